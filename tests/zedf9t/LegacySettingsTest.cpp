// The ZED-F9T's settings through legacy messages: every frame, and every word and value in which this model differs.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "Frames.h"
#include "WireFrames.h"
#include "ZedF9tTest.h"

using testsupport::CapturedOutput;
using testsupport::frame;
using testsupport::payload;
using zedtest::kLegacy;
using zedtest::ZedF9tTest;
using Lines = std::vector<std::string>;

namespace
{

class LegacySettings : public ZedF9tTest
{
protected:
    LegacySettings()
    {
        receiver();
        controller.setZedf9tConfigurationInterfaceMode(kLegacy);
    }
};

// Bytes that no setting of this receiver has, to be seen again where they are not changed.
constexpr const char* kInterference = "11 22 33 44 55 66 77 88";

TEST_F(LegacySettings, AntennaTypeGoesIntoTheTwoLowBytesOfTheSecondWord)
{
    answer(0x0639, kInterference);

    EXPECT_EQ(controller.setAntennaType("active"), 0);
    EXPECT_EQ(controller.setAntennaType("passive"), 0);
    EXPECT_EQ(controller.setAntennaType("unknown"), 0);

    expectFrames({zedtest::kPollInterference, "B5 62 06 39 08 00 11 22 33 44 1E 23 77 88 31 5E",
                  zedtest::kPollInterference, "B5 62 06 39 08 00 11 22 33 44 1E 13 77 88 21 2E",
                  zedtest::kPollInterference, "B5 62 06 39 08 00 11 22 33 44 1E 03 77 88 11 FE"});
}

TEST_F(LegacySettings, AntennaTypeIsReadFromTwoBits)
{
    const struct
    {
        const char* reply;
        const char* type;
    } rows[] = {{"F3 AC 62 2D 1E 03 00 00", "unknown"}, {"F3 AC 62 2D 1E 13 00 00", "passive"},
                {"F3 AC 62 2D 1E 23 00 00", "active"},  {"F3 AC 62 2D 1E 33 00 00", "unknown"},
                {"FF FF FF FF FF DF FF FF", "passive"}, {"00 00 00 00 00 20 00 00", "active"}};
    for (const auto& row : rows) {
        answer(0x0639, row.reply, 1);
        std::string type = "before";

        EXPECT_EQ(controller.getAntennaType(type), 0);

        EXPECT_EQ(type, row.type) << row.reply;
        expectFrames({zedtest::kPollInterference});
    }
}

// One byte out of place, on purpose.
TEST_F(LegacySettings, JammingDetectionLeavesByte1AndGoesIntoByte4)
{
    answer(0x0639, kInterference);

    EXPECT_EQ(controller.setJammingDetection(true), 0);
    EXPECT_EQ(controller.setJammingDetection(false), 0);

    expectFrames({zedtest::kPollInterference, "B5 62 06 39 08 00 F3 22 AC 62 AD 66 77 88 7C DF",
                  zedtest::kPollInterference, "B5 62 06 39 08 00 F3 22 AC 62 2D 66 77 88 FC DF"});
}

TEST_F(LegacySettings, JammingDetectionIsReadFromTheTopBitOfByte4)
{
    answer(0x0639, "FF FF FF FF 7F FF FF FF", 1);
    answer(0x0639, "00 00 00 00 80 00 00 00", 1);
    bool on = true;

    EXPECT_EQ(controller.getJammingDetection(on), 0);
    EXPECT_FALSE(on);
    EXPECT_EQ(controller.getJammingDetection(on), 0);
    EXPECT_TRUE(on);

    expectFrames({zedtest::kPollInterference, zedtest::kPollInterference});
}

TEST_F(LegacySettings, TimeReferencesOtherThanUtcAllGoOutAsGps)
{
    answer(0x0608, "E8 03 01 00 05 07");

    for (const char* const reference : {"UTC", "GPS", "GLO", "BDS", "GAL"})
        EXPECT_EQ(controller.setTimeReference(reference), 0);

    constexpr const char* kUtc = "B5 62 06 08 06 00 E8 03 01 00 00 07 07 3E";
    constexpr const char* kGps = "B5 62 06 08 06 00 E8 03 01 00 01 07 08 40";
    expectFrames({zedtest::kPollRate, kUtc, zedtest::kPollRate, kGps, zedtest::kPollRate, kGps, zedtest::kPollRate,
                  kGps, zedtest::kPollRate, kGps});
}

TEST_F(LegacySettings, TimeReferenceIsReadAsUtcOrGps)
{
    const struct
    {
        const char* reply;
        const char* reference;
    } rows[] = {{"E8 03 01 00 00 00", "UTC"},
                {"E8 03 01 00 01 00", "GPS"},
                {"E8 03 01 00 02 00", "before"},
                {"E8 03 01 00 FF 00", "before"}};
    for (const auto& row : rows) {
        answer(0x0608, row.reply, 1);
        std::string reference = "before";

        EXPECT_EQ(controller.getTimeReference(reference), 0);

        EXPECT_EQ(reference, row.reference);
        expectFrames({zedtest::kPollRate});
    }
}

TEST_F(LegacySettings, MinCNo)
{
    EXPECT_EQ(controller.setMinCNo(40), 0);
    EXPECT_EQ(controller.setMinCNo(0), 0);
    EXPECT_EQ(controller.setMinCNo(50), 0);

    expectFrames({"B5 62 06 23 28 00 "
                  "02 00 08 00 00 00 00 00 00 00 00 00 28 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "83 59",
                  zedtest::kPollNavx5,
                  "B5 62 06 23 28 00 "
                  "02 00 08 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "5B F9",
                  zedtest::kPollNavx5,
                  "B5 62 06 23 28 00 "
                  "02 00 08 00 00 00 00 00 00 00 00 00 32 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "8D 71",
                  zedtest::kPollNavx5});
}

TEST_F(LegacySettings, MinCNoIsReadFromByte12AndIs0WithoutAReply)
{
    answer(0x0623, payload(40, {{11, "FF"}, {12, "15"}, {13, "FF"}}), 1);
    signed char minCNo = 99;
    EXPECT_EQ(controller.getMinCNo(minCNo), 0);
    EXPECT_EQ(minCNo, 21);

    const CapturedOutput errors(STDERR_FILENO);
    EXPECT_EQ(whenSilent([&] { return controller.getMinCNo(minCNo); }), 4);
    EXPECT_EQ(minCNo, 0);
    EXPECT_EQ(log(), Lines{"Did not receive : 06 23: Navigation Engine Expert Settings"});
}

TEST_F(LegacySettings, ElevationLimitIsSentAndNotReadBack)
{
    EXPECT_EQ(controller.setElevationLimit(5), 0);
    EXPECT_EQ(controller.setElevationLimit(60), 0);

    expectFrames({"B5 62 06 24 24 00 "
                  "02 00 00 00 00 00 00 00 00 00 00 00 05 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "55 84",
                  "B5 62 06 24 24 00 "
                  "02 00 00 00 00 00 00 00 00 00 00 00 3C 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "8C AC"});
}

TEST_F(LegacySettings, ElevationLimitAndDynamicModelAreReadFromNav5)
{
    answer(0x0624, payload(36, {{0, "FF FF 06 03"}, {12, "0F"}}));
    unsigned char degrees = 99;
    unsigned char model = 99;
    unsigned char fixMode = 99;

    EXPECT_EQ(controller.getElevationLimit(degrees), 0);
    EXPECT_EQ(controller.getDynamicModel(model, fixMode), 0);

    EXPECT_EQ(degrees, 15);
    EXPECT_EQ(model, 6);
    EXPECT_EQ(fixMode, 3);
    expectFrames({zedtest::kPollNav5, zedtest::kPollNav5});
}

TEST_F(LegacySettings, DynamicModelAndFixMode)
{
    EXPECT_EQ(controller.setDynamicModel(6), 0);
    EXPECT_EQ(controller.setDynamicModel(2, 3), 0);
    EXPECT_EQ(controller.setFixMode(255), 0);

    expectFrames({"B5 62 06 24 24 00 "
                  "01 00 06 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "55 B4",
                  "B5 62 06 24 24 00 "
                  "05 00 02 03 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "58 1F",
                  "B5 62 06 24 24 00 "
                  "04 00 00 FF 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "51 33"});
}

// The accuracy goes out in millimetres: 0.01F is a little less than 10 of them.
TEST_F(LegacySettings, AntennaDelayIsReadWithItsSign)
{
    answer(0x0631, payload(32, {{4, "FF FF 01 00"}}), 1);
    answer(0x0631, payload(32, {{4, "00 80"}}), 1);
    int delay = 0;

    EXPECT_EQ(controller.getAntennaDelay(delay), 0);
    EXPECT_EQ(delay, -1);
    EXPECT_EQ(controller.getAntennaDelay(delay), 0);
    EXPECT_EQ(delay, -32768);
}

TEST_F(LegacySettings, ReplyOfAnotherValueReports1)
{
    renewTimePulse();
    answer(0x0631, payload(32, {{4, "1D 00"}}));
    answer(0x063D, payload(28, {{0, "03"}}));
    answer(0x0623, payload(40, {{12, "27"}}));

    EXPECT_EQ(controller.setAntennaDelay(28), 1);
    EXPECT_EQ(controller.setSurveyStatic(45, 7, 300, 1), 1);
    EXPECT_EQ(controller.setSurveyAuto(60, 1.0F), 1);
    EXPECT_EQ(controller.setSurveyDynamic(), 1);
    EXPECT_EQ(controller.setMinCNo(40), 1);
}

TEST_F(LegacySettings, EveryPollThatIsNotWrittenReports8AndLogsItsDescription)
{
    receiver().hangUp();
    const CapturedOutput errors(STDERR_FILENO);
    bool flag = true;
    std::string text = "before";
    unsigned short mask = 99;

    EXPECT_EQ(controller.isOn(flag), 8);
    EXPECT_EQ(controller.getAntennaType(text), 8);
    EXPECT_EQ(controller.getTimeReference(text), 8);
    EXPECT_EQ(controller.getSurveyMode(text), 8);
    EXPECT_EQ(controller.setAntennaType("unknown"), 8);
    EXPECT_EQ(controller.setJammingDetection(true), 8);
    EXPECT_EQ(controller.setTimeReference("GAL"), 8);
    EXPECT_EQ(controller.getGnssSystem(mask), 8);

    EXPECT_TRUE(flag);
    EXPECT_EQ(text, "before");
    EXPECT_EQ(mask, 0);
    EXPECT_EQ(log(), (Lines{"Could not send : 06 31: Poll Time Pulse Parameters",
                            "Could not send : 06 39: Jamming/Interference Monitor configuration",
                            "Could not send : 06 08: Navigation/Measurement Rate Settings",
                            "Could not send : 06 3D: Time Mode Settings 2",
                            "Could not send : 06 39: Jamming/Interference Monitor configuration",
                            "Could not send : 06 39: Jamming/Interference Monitor configuration",
                            "Could not send : 06 08: Navigation/Measurement Rate Settings",
                            "Could not send : 06 3E: GNSS system configuration"}));
}

} // namespace
