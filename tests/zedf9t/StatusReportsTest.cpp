// The reports of a ZED-F9T's controller: the same messages in both modes, and its own error log.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Frames.h"
#include "WireFrames.h"
#include "ZedF9tTest.h"

using testsupport::payload;
using zedtest::kByKey;
using zedtest::kLegacy;
using zedtest::ZedF9tTest;
using Lines = std::vector<std::string>;

namespace
{

class StatusReports : public ZedF9tTest, public testing::WithParamInterface<bool>
{
protected:
    StatusReports()
    {
        receiver();
        controller.setZedf9tConfigurationInterfaceMode(GetParam());
    }
};

INSTANTIATE_TEST_SUITE_P(InEitherMode, StatusReports, testing::Values(kByKey, kLegacy),
                         [](const auto& mode) { return std::string(mode.param ? "ByKey" : "Legacy"); });

TEST_P(StatusReports, NavigationSolution)
{
    // 2024-03-07 09:05:42, 3D fix, 23 satellites, 8.5416912, 47.3769321, 455123 mm
    answer(0x0107, payload(92, {{4, "E8 07 03 07 09 05 2A"},
                                {20, "03"},
                                {23, "17"},
                                {24, "D0 5B 17 05"},
                                {32, "D3 F1 06 00"},
                                {28, "69 25 3D 1C"}}));
    std::string solution;
    unsigned char satellites = 0;

    EXPECT_EQ(controller.getNavsolution("ALL", solution), 0);
    EXPECT_EQ(solution, "2024-03-07T09:05+42:00,3D-FIX,47.3769,8.54169,455.123");
    EXPECT_EQ(controller.getNofSatellitesInNavSol(satellites), 0);
    EXPECT_EQ(satellites, 23);

    expectFrames({zedtest::kPollSolution, zedtest::kPollSolution});
}

TEST_P(StatusReports, NavigationSolutionOfAnUnknownPartIsLogged)
{
    std::string solution = "before";

    EXPECT_EQ(controller.getNavsolution("all", solution), 1);

    EXPECT_EQ(solution, "before");
    EXPECT_EQ(log(), Lines{"Parameter invalid: all"});
    expectNoFrames();
}

TEST_P(StatusReports, Satellites)
{
    answer(0x0135, "00 00 00 00 01 02 00 00"
                   " 00 0C 2C 20 30 00 00 00 0F 00 00 00"
                   " 06 07 15 20 30 00 00 00 07 00 00 00");
    std::string satellites;

    EXPECT_EQ(controller.getSatelliteInfo(satellites), 0);

    EXPECT_EQ(satellites, "12\tGPS\tUsed    \t7\t44\n7\tGLONASS\tNot Used\t7\t21\n");
    expectFrames({zedtest::kPollSatellites});
}

TEST_P(StatusReports, Versions)
{
    answer(0x0A04, payload(70, {{0, "45 58 54 20 43 4F 52 45"},
                                {30, "30 30 31 39 30 30 30 30"},
                                {40, "46 57 56 45 52 3D 54 49 4D 20 32 2E 32 30"}}));
    std::string info = "before";

    EXPECT_EQ(controller.getInfo(info), 0);

    EXPECT_EQ(info, "EXT CORE: 00190000: FWVER=TIM 2.20");
    expectFrames({zedtest::kPollVersion});
}

TEST_P(StatusReports, SurveyInfoComesFromTheLegacyTimingModeInBothModes)
{
    answer(0x063D, payload(28, {{0, "01"}, {16, "DC 05 00 00"}, {20, "30 2A 00 00"}, {24, "E8 03 00 00"}}));
    answer(0x0102, payload(28, {{4, "40 FF 10 05"}, {8, "40 68 31 1C"}, {12, "D3 F1 06 00"}}));
    unsigned char mode = 9;
    double latitude = 0;
    double longitude = 0;
    double height = 0;
    double accuracy = 0;
    unsigned int duration = 0;
    float limit = 0;

    EXPECT_EQ(controller.getSurveyInfo(mode, latitude, longitude, height, accuracy, duration, limit), 0);

    EXPECT_EQ(mode, 1);
    EXPECT_DOUBLE_EQ(longitude, 8.5);
    EXPECT_DOUBLE_EQ(latitude, 47.3);
    EXPECT_DOUBLE_EQ(height, 455.123);
    EXPECT_DOUBLE_EQ(accuracy, 1.5);
    EXPECT_EQ(duration, 10800U);
    EXPECT_EQ(limit, 1.0F);
    expectFrames({zedtest::kPollTimingMode, zedtest::kPollPosition});
}

// What the receiver takes for the latitude is the longitude and the other way about: meant so.
TEST_P(StatusReports, SurveyModeTakesThePositionAndTheEarlierParametersOver)
{
    answer(0x0107, payload(92, {{24, "40 FF 10 05"}, {28, "40 68 31 1C"}, {32, "F1 FF FF FF"}}));
    answer(0x063D, payload(28, {{0, "01"}, {16, "01 02 03 04"}, {20, "05 06 07 08"}, {24, "09 0A 0B 0C"}}));

    EXPECT_EQ(controller.setSurveyMode("STATIC"), 0);

    expectFrames({zedtest::kPollSolution, zedtest::kPollTimingMode,
                  "B5 62 06 3D 1C 00 "
                  "02 00 01 00 "
                  "40 FF 10 05 40 68 31 1C FF FF FF FF "
                  "01 02 03 04 05 06 07 08 09 0A 0B 0C "
                  "F5 A7"});
}

TEST_P(StatusReports, SurveyModeThatIsNoWordIsLoggedAndSendsNothing)
{
    EXPECT_EQ(controller.setSurveyMode("static"), 1);

    EXPECT_EQ(log(), Lines{"Parameter invalid: static"});
    expectNoFrames();
}

} // namespace
