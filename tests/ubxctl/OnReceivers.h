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

/// Tests that hold for each of them.
class OnEachReceiver : public testsupport::ReceiverTest, public testing::WithParamInterface<KnownReceiver>
{
protected:
    OnEachReceiver() : ReceiverTest(fastReceiver(GetParam())) { receiver(); }

    /// A minute's survey of its takes a second.
    static ubxsim::SimulatorOptions fastReceiver(const KnownReceiver& known)
    {
        ubxsim::SimulatorOptions options = testsupport::quietReceiver(known.model, known.firmware);
        options.timeScale = 60;
        return options;
    }
};

#define UBX_ON_EACH_RECEIVER(suite)                                                                                    \
    INSTANTIATE_TEST_SUITE_P(, suite, testing::Values(kNeoM8t, kZedF9tOld, kZedF9t),                                   \
                             [](const auto& one) { return std::string(one.param.name); })
