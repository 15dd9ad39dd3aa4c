// Arguments that a ZED-F9T's controller refuses, in both modes: nothing is sent then.

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "WireFrames.h"
#include "ZedF9tTest.h"

using zedtest::ZedF9tTest;
using Lines = std::vector<std::string>;

namespace
{

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr float kNanF = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinityF = std::numeric_limits<float>::infinity();

class RefusedArgumentsTest : public ZedF9tTest, public testing::WithParamInterface<bool>
{
protected:
    RefusedArgumentsTest()
    {
        receiver();
        controller.setZedf9tConfigurationInterfaceMode(GetParam());
    }
};

INSTANTIATE_TEST_SUITE_P(InEitherMode, RefusedArgumentsTest, testing::Values(zedtest::kByKey, zedtest::kLegacy),
                         [](const auto& mode) { return std::string(mode.param ? "ByKey" : "Legacy"); });

TEST_P(RefusedArgumentsTest, ElevationLimitBelow5OrAbove60)
{
    for (const int degrees : {0, 4, 61, 90, 128, 255})
        EXPECT_EQ(controller.setElevationLimit(static_cast<unsigned char>(degrees)), 1) << degrees;

    expectNoFrames();
    EXPECT_EQ(log(), Lines{});
}

TEST_P(RefusedArgumentsTest, MinCNoBelow0OrAbove50)
{
    for (const int minCNo : {-128, -1, 51, 127})
        EXPECT_EQ(controller.setMinCNo(static_cast<signed char>(minCNo)), 1) << minCNo;

    expectNoFrames();
}

TEST_P(RefusedArgumentsTest, AntennaDelayOutside16Bits)
{
    for (const int delay : {-32769, 32768, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(controller.setAntennaDelay(delay), 1) << delay;

    expectNoFrames();
}

TEST_P(RefusedArgumentsTest, SurveyAutoDurationOf0OrAbove30000000)
{
    EXPECT_EQ(controller.setSurveyAuto(0, 1.0F), 1);
    EXPECT_EQ(controller.setSurveyAuto(30000001, 1.0F), 1);
    EXPECT_EQ(controller.setSurveyAuto(std::numeric_limits<unsigned int>::max(), 1.0F), 1);

    expectNoFrames();
}

TEST_P(RefusedArgumentsTest, SurveyAutoAccuracyOutsideItsLimits)
{
    for (const float accuracy : {0.0F, 0.009F, 0.00999F, 50.01F, 50.1F, -1.0F, kNanF, kInfinityF, -kInfinityF})
        EXPECT_EQ(controller.setSurveyAuto(10800, accuracy), 1) << accuracy;

    expectNoFrames();
}

TEST_P(RefusedArgumentsTest, SurveyStaticLatitudeBeyondThePoles)
{
    for (const double latitude : {-90.0000001, 90.0000001, 1000.0, kNan, kInfinity, -kInfinity})
        EXPECT_EQ(controller.setSurveyStatic(latitude, 7, 300, 1), 1) << latitude;

    expectNoFrames();
}

TEST_P(RefusedArgumentsTest, SurveyStaticLongitudeBeyond180Degrees)
{
    for (const double longitude : {-180.0000001, 180.0000001, 360.0, kNan, kInfinity, -kInfinity})
        EXPECT_EQ(controller.setSurveyStatic(45, longitude, 300, 1), 1) << longitude;

    expectNoFrames();
}

TEST_P(RefusedArgumentsTest, SurveyStaticHeightOutsideItsLimits)
{
    for (const double height : {-1000.01, 10000.01, kNan, kInfinity, -kInfinity})
        EXPECT_EQ(controller.setSurveyStatic(45, 7, height, 1), 1) << height;

    expectNoFrames();
}

TEST_P(RefusedArgumentsTest, SurveyStaticAccuracyOutsideItsLimits)
{
    for (const double accuracy : {0.0, 0.005, 0.0099, 200.01, 200.5, -1.0, kNan, kInfinity, -kInfinity})
        EXPECT_EQ(controller.setSurveyStatic(45, 7, 300, accuracy), 1) << accuracy;

    expectNoFrames();
}

TEST_P(RefusedArgumentsTest, AntennaTypesThatAreNoWord)
{
    for (const char* const type : {"Active", "ACTIVE", "", " unknown", "active ", "none", "STATIC"})
        EXPECT_EQ(controller.setAntennaType(type), 1) << type;
    EXPECT_EQ(controller.setAntennaType(std::string("active\0", 7)), 1);

    expectNoFrames();
}

TEST_P(RefusedArgumentsTest, TimeReferencesThatAreNoWord)
{
    for (const char* const reference : {"utc", "gps", "", "GALILEO", "GLONASS", " GPS", "BeiDou", "AUTO"})
        EXPECT_EQ(controller.setTimeReference(reference), 1) << reference;
    EXPECT_EQ(controller.setTimeReference(std::string("GPS\0", 4)), 1);

    expectNoFrames();
}

TEST_P(RefusedArgumentsTest, LeaveTheTimePulseAsItWas)
{
    renewTimePulse();

    EXPECT_EQ(controller.setAntennaDelay(32768), 1);

    EXPECT_EQ(controller.configTimePulseForLegacy(1, 0, true), 0);
    expectFrames({zedtest::kFirstPulseGps});
}

} // namespace
