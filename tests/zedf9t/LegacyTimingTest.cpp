// The ZED-F9T's timing mode and UTC standard through legacy messages.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Frames.h"
#include "WireFrames.h"
#include "ZedF9tTest.h"

using testsupport::frame;
using testsupport::payload;
using zedtest::kLegacy;
using zedtest::ZedF9tTest;
using Lines = std::vector<std::string>;

namespace
{

class LegacyTiming : public ZedF9tTest
{
protected:
    LegacyTiming()
    {
        receiver();
        controller.setZedf9tConfigurationInterfaceMode(kLegacy);
    }
};

TEST_F(LegacyTiming, UtcStandardAutomatic)
{
    EXPECT_EQ(controller.setUtcStandardAuto(), 0);

    expectFrames({zedtest::kUtcStandardAutomatic});
}

TEST_F(LegacyTiming, UtcStandardOfUsnoForGps)
{
    EXPECT_EQ(controller.setUtsStandardTime(1), 0);

    expectFrames({"B5 62 06 24 24 00 "
                  "00 04 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 03 00 00 00 00 00 "
                  "55 62"});
}

TEST_F(LegacyTiming, UtcStandardFollowsEveryGnssMask)
{
    const auto standard = [](int mask) {
        switch (mask) {
        case 1:
        case 3:
        case 5:
        case 9:
        case 65:
        case 67:
        case 71:
            return "03"; // USNO
        case 4:
        case 6:
            return "05"; // European
        case 64:
        case 66:
        case 68:
        case 72:
            return "06"; // Russian
        case 8:
        case 10:
            return "07"; // Chinese
        default:
            return "00"; // automatic
        }
    };
    Lines expected;
    for (int mask = -128; mask <= 127; ++mask) {
        expected.push_back(frame("06 24", payload(36, {{0, "00 04"}, {30, standard(mask)}})));

        ASSERT_EQ(controller.setUtsStandardTime(static_cast<signed char>(mask)), 0);
    }
    expectFrames(expected);
}

TEST_F(LegacyTiming, SurveyStatic)
{
    EXPECT_EQ(controller.setSurveyStatic(47.5, -8.25, 455.129, 0.5159), 0);
    EXPECT_EQ(controller.setSurveyStatic(-90, -180, -1000, 200), 0);

    expectFrames({"B5 62 06 3D 1C 00 "
                  "02 00 01 00 "
                  "C0 EC 4F 1C 60 26 15 FB C8 B1 00 00 "
                  "03 02 00 00 00 00 00 00 00 00 00 00 "
                  "8D 97",
                  zedtest::kPollTimingMode,
                  "B5 62 06 3D 1C 00 "
                  "02 00 01 00 "
                  "00 17 5B CA 00 2E B6 94 60 79 FE FF "
                  "40 0D 03 00 00 00 00 00 00 00 00 00 "
                  "3C D7",
                  zedtest::kPollTimingMode});
}

TEST_F(LegacyTiming, SurveyAuto)
{
    EXPECT_EQ(controller.setSurveyAuto(10800, 1.0F), 0);
    EXPECT_EQ(controller.setSurveyAuto(1, 0.01F), 0);
    EXPECT_EQ(controller.setSurveyAuto(30000000, 50.0F), 0);
    EXPECT_EQ(controller.setSurveyAuto(), 0);

    constexpr const char* kDefault = "B5 62 06 3D 1C 00 "
                                     "01 00 00 00 "
                                     "00 00 00 00 00 00 00 00 00 00 00 00 "
                                     "00 00 00 00 30 2A 00 00 E8 03 00 00 "
                                     "A5 D6";
    expectFrames({kDefault, zedtest::kPollTimingMode,
                  "B5 62 06 3D 1C 00 "
                  "01 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 01 00 00 00 09 00 00 00 "
                  "6A B3",
                  zedtest::kPollTimingMode,
                  "B5 62 06 3D 1C 00 "
                  "01 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 80 C3 C9 01 50 C3 00 00 "
                  "80 20",
                  zedtest::kPollTimingMode, kDefault, zedtest::kPollTimingMode});
}

TEST_F(LegacyTiming, SurveyDynamic)
{
    EXPECT_EQ(controller.setSurveyDynamic(), 0);

    expectFrames({"B5 62 06 3D 1C 00 "
                  "00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 "
                  "5F 6B",
                  zedtest::kPollTimingMode});
}

TEST_F(LegacyTiming, SurveyModeIsReadFromItsFirstByte)
{
    const struct
    {
        const char* reply;
        const char* mode;
    } rows[] = {{"00", "DYNAMIC"}, {"01", "AUTO"}, {"02", "STATIC"}, {"03", "before"}, {"FF", "before"}};
    for (const auto& row : rows) {
        answer(0x063D, payload(28, {{0, row.reply}}), 1);
        std::string mode = "before";

        EXPECT_EQ(controller.getSurveyMode(mode), 0);

        EXPECT_EQ(mode, row.mode);
        expectFrames({zedtest::kPollTimingMode});
    }
}

TEST_F(LegacyTiming, IsOnWhenTheSecondPulseIsActive)
{
    answer(0x0631, payload(32, {{0, "01 01"}, {28, "01"}}), 1);
    answer(0x0631, payload(32, {{0, "01 01"}, {28, "FE FF FF FF"}}), 1);
    bool on = false;

    EXPECT_EQ(controller.isOn(on), 0);
    EXPECT_TRUE(on);
    EXPECT_EQ(controller.isOn(on), 0);
    EXPECT_FALSE(on);

    expectFrames({zedtest::kPollSecondPulse, zedtest::kPollSecondPulse});
}

} // namespace
