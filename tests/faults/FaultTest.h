#pragma once

#include <chrono>
#include <string>
#include <thread>
#include <variant>
#include <vector>

#include <ubxController_NEOM8T.h>

#include "ReceiverTest.h"
#include "simulator/faults/ActionText.h"

namespace testsupport
{

/// A test of what the library makes of a fault. The faults are played in the words that ubxsim takes.
class FaultTest : public ReceiverTest
{
protected:
    /// @param epoch  the time that a second of the receiver takes.
    explicit FaultTest(std::chrono::microseconds epoch = std::chrono::seconds(1)) : ReceiverTest(options(epoch))
    {
        EXPECT_TRUE(receiver().setKeyValue(kMinCNo, 17));
    }

    void play(const std::string& words)
    {
        const ubxsim::Action action = ubxsim::parseAction(words);
        if (const auto* fault = std::get_if<ubxsim::Fault>(&action.what)) {
            receiver().play(*fault);
        } else {
            receiver().happen(std::get<ubxsim::Event>(action.what));
        }
    }

    /// Asks for the minimum signal level, which the receiver holds at 17.
    int ask()
    {
        value = -1;
        return controller.getMinCNo(value);
    }

    /// As above, when no answer is expected: the time limit passes quickly.
    int askInVain()
    {
        return withFastClock([&] { return ask(); });
    }

    /// What was in the way is over.
    void expectTheNextWorks(signed char expected = 17)
    {
        EXPECT_EQ(ask(), 0);
        EXPECT_EQ(value, expected);
    }

    /// The receiver needs a while before it answers again.
    bool answersAgain()
    {
        for (int attempt = 0; attempt < 300; ++attempt) {
            if (askInVain() == 0) return true;
        }
        return false;
    }

    /// One part of the navigation solution.
    std::string solution(const std::string& part)
    {
        std::string text;
        EXPECT_EQ(controller.getNavsolution(part, text), 0);
        return text;
    }

    /// Asks for a part of the navigation solution until it begins like this, for ten seconds at most.
    bool becomes(const std::string& part, const std::string& beginning)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (solution(part).rfind(beginning, 0) != 0) {
            if (std::chrono::steady_clock::now() > end) return false;
            std::this_thread::yield();
        }
        return true;
    }

    static std::vector<std::string> errors() { return log("/var/log/rxtool-neom8t-errors.log"); }

    static constexpr std::uint32_t kMinCNo = 0x201100A3;

    ubxController_NEOM8T controller;
    signed char value = -1;

private:
    static ubxsim::SimulatorOptions options(std::chrono::microseconds epoch)
    {
        ubxsim::SimulatorOptions options = quietReceiver(ubxsim::Model::neoM8t);
        options.epoch = epoch;
        options.startTime = std::chrono::milliseconds(1709802342000); // 7 March 2024, 09:05:42
        return options;
    }
};

using Lines = std::vector<std::string>;

inline const std::string kNotReceived = "Did not receive : 06 23: Navigation Engine Expert Settings";
inline const std::string kNotSent = "Could not send : 06 23: Navigation Engine Expert Settings";

} // namespace testsupport
