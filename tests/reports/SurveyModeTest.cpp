#include <algorithm>
#include <ctime>

#include <unistd.h>

#include "CapturedOutput.h"
#include "FlushLog.h"
#include "NeoM8tTest.h"

namespace
{

using testsupport::Bytes;
using testsupport::bytes;
using testsupport::frame;
using testsupport::kPollSolution;
using testsupport::kPollTimeMode;
using testsupport::Lines;
using testsupport::payload;

constexpr std::uint16_t kNavPvt = 0x0107;
constexpr std::uint16_t kCfgTmode2 = 0x063D;

// 8.5 E, 47.3 N, 455.123 m
const std::string kSolution = payload(92, {{20, "03"}, {24, "40 FF 10 05"}, {28, "40 68 31 1C"}, {32, "D3 F1 06 00"}});

// 1500 mm, 10800 s, 1000 mm, and a mode, flags and a position that must not be taken over
const std::string kTimeMode = "01 FF FF FF 11 11 11 11 22 22 22 22 33 33 33 33 DC 05 00 00 30 2A 00 00 E8 03 00 00";

class SurveyMode : public testsupport::NeoM8tTest
{
protected:
    SurveyMode()
    {
        receiver().answerWith(kNavPvt, bytes(kSolution));
        receiver().answerWith(kCfgTmode2, bytes(kTimeMode));
    }

    void answerInstead(std::uint16_t classId, const std::string& reply)
    {
        receiver().clearFaults();
        receiver().answerWith(classId, bytes(reply));
        receiver().answerWith(kNavPvt, bytes(kSolution));
        receiver().answerWith(kCfgTmode2, bytes(kTimeMode));
    }

    void expectSet(const std::string& payload)
    {
        expectFrames({kPollSolution, kPollTimeMode, frame("06 3D", payload)});
    }
};

TEST_F(SurveyMode, StaticAtLongitude8Point5AndLatitude47Point3SendsThemInEachOthersPlace)
{
    EXPECT_EQ(controller.setSurveyMode("STATIC"), 0);

    expectFrames({kPollSolution, kPollTimeMode,
                  "B5 62 06 3D 1C 00 02 00 01 00 40 FF 10 05 40 68 31 1C C8 B1 00 00 DC 05 00 00 "
                  "30 2A 00 00 E8 03 00 00 4A 2A"});
}

TEST_F(SurveyMode, AutoSendsThePositionToo)
{
    EXPECT_EQ(controller.setSurveyMode("AUTO"), 0);

    expectSet("01 00 00 00 40 FF 10 05 40 68 31 1C C8 B1 00 00 DC 05 00 00 30 2A 00 00 E8 03 00 00");
}

TEST_F(SurveyMode, DynamicSendsThePositionToo)
{
    EXPECT_EQ(controller.setSurveyMode("DYNAMIC"), 0);

    expectSet("00 00 00 00 40 FF 10 05 40 68 31 1C C8 B1 00 00 DC 05 00 00 30 2A 00 00 E8 03 00 00");
}

TEST_F(SurveyMode, HeightOfMinus15MillimetresBecomesMinus1Centimetre)
{
    const struct
    {
        const char* millimetres;
        const char* centimetres;
    } cases[] = {{"F1 FF FF FF", "FF FF FF FF"}, {"F7 FF FF FF", "00 00 00 00"}, {"0F 00 00 00", "01 00 00 00"},
                 {"EC FF FF FF", "FE FF FF FF"}, {"00 00 00 80", "34 33 33 F3"}, {"FF FF FF 7F", "CC CC CC 0C"}};
    for (const auto& each : cases) {
        answerInstead(kNavPvt, payload(92, {{32, each.millimetres}}));

        controller.setSurveyMode("STATIC");

        expectSet(payload(28, {{0, "02 00 01"}, {12, each.centimetres}, {16, "DC 05"}, {20, "30 2A"}, {24, "E8 03"}}));
    }
}

TEST_F(SurveyMode, InLowerCaseIsRefusedLoggedAndNotSent)
{
    EXPECT_EQ(controller.setSurveyMode("static"), 1);

    expectNoFrames();
    EXPECT_EQ(errors(), Lines{"Parameter invalid: static"});
}

TEST_F(SurveyMode, OfAnyOtherWordIsRefusedLoggedAndNotSent)
{
    Lines expected;
    for (const char* word : {"", "Auto", "DYNAMIC ", " AUTO", "FIXED", "STATI"}) {
        EXPECT_EQ(controller.setSurveyMode(word), 1) << word;
        expected.push_back(std::string("Parameter invalid: ") + word);
    }

    expectNoFrames();
    EXPECT_EQ(errors(), expected);
}

TEST_F(SurveyMode, OpensThePortOnceForBothPollsAndOnceForTheCommand)
{
    flushlog::clear();

    controller.setSurveyMode("STATIC");

    EXPECT_EQ(flushlog::asked().size(), 2U);
}

TEST_F(SurveyMode, IsSetWithoutAPositionWhenTheSolutionDoesNotCome)
{
    receiver().clearFaults();
    receiver().ignore(kNavPvt);
    receiver().answerWith(kCfgTmode2, bytes(kTimeMode));

    EXPECT_EQ(withFastClock([&] { return controller.setSurveyMode("STATIC"); }), 0);

    expectSet("02 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 DC 05 00 00 30 2A 00 00 E8 03 00 00");
    EXPECT_EQ(errors(), Lines{"Did not receive : 01 07: Navigation Position Velocity Time Solution"});
}

TEST_F(SurveyMode, IsSetWithoutSurveyParametersWhenTheTimeModeDoesNotCome)
{
    receiver().clearFaults();
    receiver().answerWith(kNavPvt, bytes(kSolution));
    receiver().ignore(kCfgTmode2);

    EXPECT_EQ(withFastClock([&] { return controller.setSurveyMode("STATIC"); }), 0);

    expectSet("02 00 01 00 40 FF 10 05 40 68 31 1C C8 B1 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(errors(), Lines{"Did not receive : 06 3D: Time Mode Settings 2"});
}

TEST_F(SurveyMode, IsSetOnASilentReceiverWithTheModeAlone)
{
    receiver().clearFaults();

    EXPECT_EQ(whenSilent([&] { return controller.setSurveyMode("AUTO"); }), 0);

    expectSet(payload(28, {{0, "01"}}));
    EXPECT_EQ(errors(), (Lines{"Did not receive : 01 07: Navigation Position Velocity Time Solution",
                               "Did not receive : 06 3D: Time Mode Settings 2"}));
}

TEST_F(SurveyMode, WithoutADeviceReturnsSuccessAndLogsAllThreeMessages)
{
    takeDeviceAway();

    EXPECT_EQ(controller.setSurveyMode("DYNAMIC"), 0);

    EXPECT_EQ(errors(),
              (Lines{"Could not send : 01 07: Navigation Position Velocity Time Solution",
                     "Could not send : 06 3D: Time Mode Settings 2", "Could not send : 06 3D: Time Mode Settings 2"}));
}

TEST_F(SurveyMode, BadChecksumInTheFirstWaitHoldsUpTheSecond)
{
    receiver().corruptChecksum(kNavPvt);
    const testsupport::CapturedOutput standardError(STDERR_FILENO);
    const testclock::FastClock clock(50);

    const std::time_t start = std::time(nullptr);
    EXPECT_EQ(controller.setSurveyMode("STATIC"), 0);
    const std::time_t end = std::time(nullptr);

    EXPECT_GE(end - start, 10) << "both waits run to their limit of 5 s";
    expectSet("02 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 DC 05 00 00 30 2A 00 00 E8 03 00 00");
    EXPECT_EQ(errors(), Lines{"Did not receive : 01 07: Navigation Position Velocity Time Solution"});
}

TEST_F(SurveyMode, GoodCopyBehindABadChecksumIsTaken)
{
    receiver().corruptChecksum(kNavPvt);
    receiver().answerTwice(kNavPvt, 1);
    const testsupport::CapturedOutput standardError(STDERR_FILENO);

    EXPECT_EQ(withFastClock([&] { return controller.setSurveyMode("STATIC"); }), 0);

    expectSet("02 00 01 00 40 FF 10 05 40 68 31 1C C8 B1 00 00 DC 05 00 00 30 2A 00 00 E8 03 00 00");
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(SurveyMode, OfAShortSolutionHas0ForWhatIsNotThere)
{
    const struct
    {
        std::size_t length;
        const char* position;
    } cases[] = {{0, "00 00 00 00 00 00 00 00 00 00 00 00"},  {24, "00 00 00 00 00 00 00 00 00 00 00 00"},
                 {25, "40 00 00 00 00 00 00 00 00 00 00 00"}, {28, "40 FF 10 05 00 00 00 00 00 00 00 00"},
                 {31, "40 FF 10 05 40 68 31 00 00 00 00 00"}, {32, "40 FF 10 05 40 68 31 1C 00 00 00 00"},
                 {33, "40 FF 10 05 40 68 31 1C 15 00 00 00"}, {36, "40 FF 10 05 40 68 31 1C C8 B1 00 00"}};
    const Bytes whole = bytes(kSolution);
    for (const auto& each : cases) {
        answerInstead(kNavPvt, testsupport::hex({whole.begin(), whole.begin() + static_cast<long>(each.length)}));

        EXPECT_EQ(controller.setSurveyMode("STATIC"), 0);

        expectSet(std::string("02 00 01 00 ") + each.position + " DC 05 00 00 30 2A 00 00 E8 03 00 00");
    }
}

TEST_F(SurveyMode, IsSetWithRepliesOfEveryLength)
{
    const Bytes solution = bytes(kSolution);
    const Bytes timeMode = bytes(kTimeMode);
    for (std::size_t length = 0; length <= solution.size(); ++length) {
        const auto kept = static_cast<long>(length);
        receiver().clearFaults();
        receiver().answerWith(kNavPvt, {solution.begin(), solution.begin() + kept});
        receiver().answerWith(kCfgTmode2, {timeMode.begin(), timeMode.begin() + std::min(28L, kept)});

        EXPECT_EQ(controller.setSurveyMode("AUTO"), 0);

        EXPECT_EQ(takeFrames().size(), 3U) << length;
    }
}

TEST_F(SurveyMode, OfAShortTimeModeHas0ForWhatIsNotThere)
{
    const struct
    {
        std::size_t length;
        const char* parameters;
    } cases[] = {{0, "00 00 00 00 00 00 00 00 00 00 00 00"},  {16, "00 00 00 00 00 00 00 00 00 00 00 00"},
                 {17, "DC 00 00 00 00 00 00 00 00 00 00 00"}, {20, "DC 05 00 00 00 00 00 00 00 00 00 00"},
                 {21, "DC 05 00 00 30 00 00 00 00 00 00 00"}, {24, "DC 05 00 00 30 2A 00 00 00 00 00 00"},
                 {25, "DC 05 00 00 30 2A 00 00 E8 00 00 00"}, {27, "DC 05 00 00 30 2A 00 00 E8 03 00 00"}};
    const Bytes whole = bytes(kTimeMode);
    for (const auto& each : cases) {
        answerInstead(kCfgTmode2, testsupport::hex({whole.begin(), whole.begin() + static_cast<long>(each.length)}));

        EXPECT_EQ(controller.setSurveyMode("STATIC"), 0);

        expectSet(std::string("02 00 01 00 40 FF 10 05 40 68 31 1C C8 B1 00 00 ") + each.parameters);
    }
}

} // namespace
