// The ZED-F9T's two diagnostics and what else it prints or logs.

#include <chrono>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "WireFrames.h"
#include "WriteCalls.h"
#include "ZedF9tTest.h"

using testsupport::CapturedOutput;
using zedtest::ZedF9tTest;
using Lines = std::vector<std::string>;
using namespace std::chrono_literals;

namespace
{

constexpr const char* kResetLine = "06 04: Reset Receiver / Clear Backup Data Structures";

class ResetInfo : public ZedF9tTest
{};

TEST_F(ResetInfo, SendsTwoFramesAndPrintsEveryByteOfTheReply)
{
    answer(0x0604, "00 0A FF 10 7f");
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return controller.getResetInfo(); }), 0);

    EXPECT_EQ(printed, "0x0\n0xA\n0xFF\n0x10\n0x7F\n");
    expectFrames({zedtest::kReset, zedtest::kReset});
    EXPECT_EQ(log(), Lines{});
}

TEST_F(ResetInfo, PrintsNothingForAnEmptyReply)
{
    answer(0x0604, "");
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return controller.getResetInfo(); }), 0);

    EXPECT_EQ(printed, "");
}

TEST_F(ResetInfo, Reports4AndLogsWhenNoReplyComes)
{
    std::string printed;
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(printing(printed, [&] { return whenSilent([&] { return controller.getResetInfo(); }); }), 4);

    EXPECT_EQ(printed, "");
    expectFrames({zedtest::kReset, zedtest::kReset});
    EXPECT_EQ(log(), Lines{std::string("Did not receive : ") + kResetLine});
}

TEST_F(ResetInfo, IgnoresThatTheFirstFrameIsNotWritten)
{
    answer(0x0604, "01");
    const writecalls::Failure failure(zedtest::kReset, 1);
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return controller.getResetInfo(); }), 0);

    EXPECT_EQ(printed, "0x1\n");
    expectFrames({zedtest::kReset});
    EXPECT_EQ(log(), Lines{});
}

TEST_F(ResetInfo, Reports8AndLogsWhenTheSecondFrameIsNotWritten)
{
    receiver();
    const writecalls::Failure failure(zedtest::kReset, 2);
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return controller.getResetInfo(); }), 8);

    EXPECT_EQ(printed, "");
    expectFrames({zedtest::kReset});
    EXPECT_EQ(log(), Lines{std::string("Could not send : ") + kResetLine});
}

TEST_F(ResetInfo, WithoutADeviceReports8AndSaysTwiceThatItCanNotSend)
{
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(controller.getResetInfo(), 8);

    EXPECT_EQ(errors.text(), "Could not open tty_gps, cannot communicate with the ublox device.\n"
                             "Cannot send message to the ublox, the device is not open!\n"
                             "Cannot send message to the ublox, the device is not open!\n");
    EXPECT_EQ(log(), Lines{std::string("Could not send : ") + kResetLine});
}

TEST_F(ResetInfo, Waits4Seconds)
{
    answer(0x0604, "01");

    expectWait(4s, 0x0604, [this] { quietly([this] { return controller.getResetInfo(); }); });
}

class PollTest : public ZedF9tTest
{
protected:
    static constexpr const char* kPoll = "B5 62 06 8B 24 00 "
                                         "00 00 00 00 "
                                         "01 00 03 20 02 00 03 20 "
                                         "09 00 03 40 0A 00 03 40 0B 00 03 40 "
                                         "0F 00 03 40 10 00 03 40 11 00 03 40 "
                                         "DE 55";
};

TEST_F(PollTest, PrintsEveryByteOfTheReplyOnOneLine)
{
    answerItems("01 00 03 20 02 0F");
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return controller.configPollTest(); }), 0);

    EXPECT_EQ(printed, "01 00 00 00 01 00 03 20 02 0F \n");
    expectFrames({kPoll});
}

TEST_F(PollTest, PrintsAnEmptyLineForAnEmptyReply)
{
    answer(0x068B, "");
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return controller.configPollTest(); }), 0);

    EXPECT_EQ(printed, "\n");
}

TEST_F(PollTest, ShowsTheTimingModeOfTheReceiver)
{
    receiver();
    ASSERT_EQ(controller.setSurveyStatic(47.5, -8.25, 455.12, 0.5), 0);
    takeFrames();
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return controller.configPollTest(); }), 0);

    EXPECT_EQ(printed, "01 00 00 00 01 00 03 20 02 02 00 03 20 01 09 00 03 40 C0 EC 4F 1C 0A 00 03 40 60 26 15 FB "
                       "0B 00 03 40 C8 B1 00 00 0F 00 03 40 F4 01 00 00 10 00 03 40 00 00 00 00 11 00 03 40 00 00 "
                       "00 00 \n");
    expectFrames({kPoll});
}

TEST_F(PollTest, Returns0AndLogsWhenNoReplyComes)
{
    std::string printed;
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(printing(printed, [&] { return whenSilent([&] { return controller.configPollTest(); }); }), 0);

    EXPECT_EQ(printed, "");
    expectFrames({kPoll});
    EXPECT_EQ(log(), Lines{"Did not receive : 06 8B: Configuration Items"});
}

TEST_F(PollTest, Returns0AndLogsTwoLinesWithoutADevice)
{
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(controller.configPollTest(), 0);

    EXPECT_EQ(log(),
              (Lines{"Could not send : 06 8B: Configuration Items", "Did not receive : 06 8B: Configuration Items"}));
}

class Factories : public ZedF9tTest
{
protected:
    static std::string frameOf(const UBXMessage& message)
    {
        const unsigned char* const data = message.getPacketData();
        return testsupport::hex(testsupport::Bytes(data, data + message.getPacketLength()));
    }
};

TEST_F(Factories, GnssOffKeepsOrDropsTheNavigationData)
{
    EXPECT_EQ(frameOf(controller.constructGNSSOffMessage(false)), zedtest::kStopAndForget);
    EXPECT_EQ(frameOf(controller.constructGNSSOffMessage(true)), zedtest::kStop);
}

TEST_F(Factories, GnssOn)
{
    EXPECT_EQ(frameOf(controller.constructGNSSOnMessage()), zedtest::kStart);
}

TEST_F(Factories, GnssResetPrintsItsName)
{
    std::string made;
    std::string printed;

    printing(printed, [&] {
        made = frameOf(controller.constructGNSSResetMessage());
        return 0;
    });

    EXPECT_EQ(made, zedtest::kReset);
    EXPECT_EQ(printed, "constructGNSSResetMessage\n");
}

TEST_F(Factories, MessageRate)
{
    EXPECT_EQ(frameOf(controller.createMessageRateByClassIDMessage(0xF00D, 0xFE)), "B5 62 06 01 03 00 F0 0D FE 05 27");
}

TEST_F(ZedF9tTest, SendUbxMessageReturns0AndLogsWhatCouldNotBeWritten)
{
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(controller.sendUBXMessage(controller.constructGNSSOnMessage()), 0U);
    EXPECT_EQ(log(), Lines{std::string("Could not send : ") + kResetLine});

    receiver();
    EXPECT_EQ(controller.sendUBXMessage(controller.constructGNSSOnMessage()), 0U);
    expectFrames({zedtest::kStart});
}

TEST_F(ZedF9tTest, TimeStampIsTheTimeOfDayWithMilliseconds)
{
    EXPECT_TRUE(std::regex_match(controller.timeStamp(), std::regex("[0-2][0-9]:[0-5][0-9]:[0-5][0-9]_[0-9]{3}: ")))
        << controller.timeStamp();
}

TEST_F(ZedF9tTest, ControllersAppendToOneLog)
{
    const CapturedOutput errors(STDERR_FILENO);
    {
        ubxController_ZEDF9T other(zedtest::kVersion2_13, zedtest::kByKey);
        other.save();
    }
    controller.load();

    EXPECT_EQ(log(), Lines(2, "Could not send : 06 09: Clear, Save and Load configurations"));
}

TEST_F(ZedF9tTest, LogThatCanNotBeOpenedIsDoneWithout)
{
    constexpr const char* kLog = "/var/log/rxtool-zedf9t-errors.log";
    std::filesystem::remove(kLog);
    std::filesystem::create_directory(kLog);
    const CapturedOutput errors(STDERR_FILENO);
    {
        ubxController_ZEDF9T mute(zedtest::kVersion2_20, zedtest::kByKey);
        signed char minCNo = 7;

        EXPECT_EQ(mute.getMinCNo(minCNo), 4);
        EXPECT_EQ(mute.setRxMode("ECO"), 0);

        EXPECT_EQ(minCNo, 7);
    }
    std::filesystem::remove(kLog);
}

} // namespace
