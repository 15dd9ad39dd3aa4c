#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <ubxController_ZEDF9T.h>

#include "CapturedOutput.h"
#include "ReceiverTest.h"

namespace zedtest
{

inline constexpr const char* kVersion2_13 = "FWVER=TIM 2.13";
inline constexpr const char* kVersion2_20 = "FWVER=TIM 2.20";

inline constexpr bool kByKey = true;
inline constexpr bool kLegacy = false;

/// A test with a simulated ZED-F9T and its controller, which begins in configuration-interface mode.
class ZedF9tTest : public testsupport::ReceiverTest
{
protected:
    /// @param firmware  "TIM 2.13" or "TIM 2.20", of the receiver and of the controller.
    explicit ZedF9tTest(const std::string& firmware = "TIM 2.20");

    /// The receiver answers the polls of configuration items with these items, keys and values as they stand in a
    /// reply behind its header.
    void answerItems(const std::string& items, int times = -1);

    /// It answers with a reply of which only this many bytes have come, the header included.
    void answerShortened(const std::string& items, std::size_t length);

    /// The polls of a legacy message are answered with this payload, typed as hexadecimal text.
    void answer(std::uint16_t classId, const std::string& payload, int times = -1);

    /// The next poll of this message is answered with a wrong checksum, for which the library waits on for a good one.
    void answerWrongly(std::uint16_t classId);

    /// What an operation returns of which one wait is in vain, because of answerWrongly(). The time limit of that wait
    /// passes at once, and no other.
    int whileOneWaitIsInVain(const std::function<int()>& operation);

    /// The settings of the legacy time pulse, which all controllers share, as they are in a new process. Nothing that
    /// this takes is seen by expectFrames().
    void renewTimePulse();

    /// A USB node, for as long as the test runs.
    static void plugIntoUsb();

    /// What an operation returns, and what it prints on standard output.
    template <typename Operation>
    static int printing(std::string& printed, Operation operation)
    {
        const testsupport::CapturedOutput output(STDOUT_FILENO);
        const int status = operation();
        printed = output.text();
        return status;
    }

    /// What an operation returns, whatever it prints.
    template <typename Operation>
    static int quietly(Operation operation)
    {
        std::string printed;
        return printing(printed, operation);
    }

    /// The lines of the ZED-F9T's error log without their time stamps.
    static std::vector<std::string> log();

    ubxController_ZEDF9T controller;
};

} // namespace zedtest
