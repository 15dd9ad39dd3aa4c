#pragma once

#include <string>

#include <gtest/gtest.h>

#include "ReceiverTest.h"
#include "Run.h"

/// A receiver that there is.
struct KnownReceiver
{
    const char* name;
    ubxsim::Model model;
    const char* firmware;

    bool isZedF9t() const { return model == ubxsim::Model::zedF9t; }
};

inline constexpr KnownReceiver kNeoM8t{"NeoM8tTim110", ubxsim::Model::neoM8t, "TIM 1.10"};
inline constexpr KnownReceiver kZedF9tOld{"ZedF9tTim213", ubxsim::Model::zedF9t, "TIM 2.13"};
inline constexpr KnownReceiver kZedF9t{"ZedF9tTim220", ubxsim::Model::zedF9t, "TIM 2.20"};

/// Tests that hold for each of them, with what may happen around it.
class WithKnownReceiver : public testsupport::ReceiverTest, public testing::WithParamInterface<KnownReceiver>
{
protected:
    explicit WithKnownReceiver(const ubxsim::SimulatorOptions& options) : ReceiverTest(options) { receiver(); }

    void turn(ubxsim::EventKind kind, bool on)
    {
        ubxsim::Event event;
        event.kind = kind;
        event.on = on;
        receiver().happen(event);
    }
};

/// One that speaks only when it is asked. A minute's survey of its takes a second.
class OnEachReceiver : public WithKnownReceiver
{
protected:
    OnEachReceiver() : WithKnownReceiver(quiet(GetParam())) {}

private:
    static ubxsim::SimulatorOptions quiet(const KnownReceiver& known)
    {
        ubxsim::SimulatorOptions options = testsupport::quietReceiver(known.model, known.firmware);
        options.timeScale = 60;
        return options;
    }
};

/// One that speaks, twenty times a second.
class OnEachTalkingReceiver : public WithKnownReceiver
{
protected:
    OnEachTalkingReceiver() : WithKnownReceiver(talking(GetParam())) {}

private:
    static ubxsim::SimulatorOptions talking(const KnownReceiver& known)
    {
        ubxsim::SimulatorOptions options;
        options.model = known.model;
        options.firmware = known.firmware;
        options.timeScale = 20;
        return options;
    }
};

#define UBX_ON_EACH_RECEIVER(suite)                                                                                    \
    INSTANTIATE_TEST_SUITE_P(, suite, testing::Values(kNeoM8t, kZedF9tOld, kZedF9t),                                   \
                             [](const auto& one) { return std::string(one.param.name); })
