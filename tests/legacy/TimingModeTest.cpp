#include <cmath>
#include <limits>

#include "NeoM8tTest.h"

namespace
{

using testsupport::frame;
using testsupport::kPollTimeMode;
using testsupport::Lines;
using testsupport::payload;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class FixedPosition : public testsupport::NeoM8tTest
{
protected:
    /// The only command that was sent, whose payload is this, and the poll that verifies it.
    void expectSent(const std::string& payload) { expectFrames({frame("06 3D", payload), kPollTimeMode}); }
};
class SurveyIn : public FixedPosition
{};
class TimingOff : public FixedPosition
{};

TEST_F(FixedPosition, IsSentInDegreesCentimetresAndMillimetresAndTheModeIsReadBack)
{
    EXPECT_EQ(controller.setSurveyStatic(45.0, 7.0, 300.0, 200.0), 0);

    expectFrames({"B5 62 06 3D 1C 00 02 00 01 00 80 74 D2 1A 80 1D 2C 04 30 75 00 00 40 0D 03 00 "
                  "00 00 00 00 00 00 00 00 04 62",
                  kPollTimeMode});
}

TEST_F(FixedPosition, SouthWestAndBelowTheEllipsoidIsSentAsNegativeNumbers)
{
    EXPECT_EQ(controller.setSurveyStatic(-33.5, -70.25, -12.5, 1.5), 0);

    // -335000000, -702500000, -1250 and 1500
    expectSent("02 00 01 00 40 4E 08 EC 60 B3 20 D6 1E FB FF FF DC 05 00 00 00 00 00 00 00 00 00 00");
}

TEST_F(FixedPosition, IsTruncatedTowardZero)
{
    EXPECT_EQ(controller.setSurveyStatic(1.00000019, 2.00000019, 3.019, 0.0199), 0);

    // 10000001, 20000001, 301 and 19
    expectSent("02 00 01 00 81 96 98 00 01 2D 31 01 2D 01 00 00 13 00 00 00 00 00 00 00 00 00 00 00");
}

TEST_F(FixedPosition, IsTruncatedTowardZeroBelowZeroToo)
{
    EXPECT_EQ(controller.setSurveyStatic(-1.00000019, -2.00000019, -3.019, 0.0199), 0);

    // -10000001, -20000001, -301 and 19
    expectSent("02 00 01 00 7F 69 67 FF FF D2 CE FE D3 FE FF FF 13 00 00 00 00 00 00 00 00 00 00 00");
}

TEST_F(FixedPosition, AtTheUpperBoundsIsSent)
{
    EXPECT_EQ(controller.setSurveyStatic(90.0, 180.0, 10000.0, 200.0), 0);

    expectSent("02 00 01 00 00 E9 A4 35 00 D2 49 6B 40 42 0F 00 40 0D 03 00 00 00 00 00 00 00 00 00");
}

TEST_F(FixedPosition, AtTheLowerBoundsIsSent)
{
    EXPECT_EQ(controller.setSurveyStatic(-90.0, -180.0, -1000.0, 0.01), 0);

    expectSent("02 00 01 00 00 17 5B CA 00 2E B6 94 60 79 FE FF 0A 00 00 00 00 00 00 00 00 00 00 00");
}

TEST_F(FixedPosition, OutsideTheBoundsIsRefusedAndNothingIsSent)
{
    const auto above = [](double bound) { return std::nextafter(bound, kInfinity); };
    const auto below = [](double bound) { return std::nextafter(bound, -kInfinity); };

    EXPECT_EQ(controller.setSurveyStatic(above(90.0), 0, 0, 1), 1);
    EXPECT_EQ(controller.setSurveyStatic(below(-90.0), 0, 0, 1), 1);
    EXPECT_EQ(controller.setSurveyStatic(0, above(180.0), 0, 1), 1);
    EXPECT_EQ(controller.setSurveyStatic(0, below(-180.0), 0, 1), 1);
    EXPECT_EQ(controller.setSurveyStatic(0, 0, above(10000.0), 1), 1);
    EXPECT_EQ(controller.setSurveyStatic(0, 0, below(-1000.0), 1), 1);
    EXPECT_EQ(controller.setSurveyStatic(0, 0, 0, above(200.0)), 1);
    EXPECT_EQ(controller.setSurveyStatic(0, 0, 0, below(0.01)), 1);
    EXPECT_EQ(controller.setSurveyStatic(0, 0, 0, -1), 1);

    expectNoFrames();
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(FixedPosition, WithAnAccuracyOfHalfACentimetreIsRefused)
{
    EXPECT_EQ(controller.setSurveyStatic(45.0, 7.0, 300.0, 0.005), 1);

    expectNoFrames();
}

TEST_F(FixedPosition, ThatIsNoNumberIsRefused)
{
    EXPECT_EQ(controller.setSurveyStatic(kNaN, 0, 0, 1), 1);
    EXPECT_EQ(controller.setSurveyStatic(0, kNaN, 0, 1), 1);
    EXPECT_EQ(controller.setSurveyStatic(0, 0, kNaN, 1), 1);
    EXPECT_EQ(controller.setSurveyStatic(0, 0, 0, kNaN), 1);

    expectNoFrames();
}

TEST_F(FixedPosition, ThatIsInfiniteIsRefused)
{
    for (const double infinite : {kInfinity, -kInfinity}) {
        EXPECT_EQ(controller.setSurveyStatic(infinite, 0, 0, 1), 1);
        EXPECT_EQ(controller.setSurveyStatic(0, infinite, 0, 1), 1);
        EXPECT_EQ(controller.setSurveyStatic(0, 0, infinite, 1), 1);
        EXPECT_EQ(controller.setSurveyStatic(0, 0, 0, infinite), 1);
    }

    expectNoFrames();
}

TEST_F(FixedPosition, ReportsAMismatchWhenTheReceiverKeepsItsMode)
{
    receiver().keepValue(0x063D);

    EXPECT_EQ(controller.setSurveyStatic(45.0, 7.0, 300.0, 1.0), 1);
}

TEST_F(FixedPosition, OnASilentReceiverReportsNoReplyAndAMismatch)
{
    EXPECT_EQ(whenSilent([&] { return controller.setSurveyStatic(45.0, 7.0, 300.0, 1.0); }), 5);

    EXPECT_EQ(errors(), Lines{"Did not receive : 06 3D: Time Mode Settings 2"});
}

TEST_F(FixedPosition, WithoutADeviceLogsBothMessages)
{
    takeDeviceAway();

    EXPECT_EQ(controller.setSurveyStatic(45.0, 7.0, 300.0, 1.0), 9);

    EXPECT_EQ(errors(),
              (Lines{"Could not send : 06 3D: Time Mode Settings 2", "Could not send : 06 3D: Time Mode Settings 2"}));
}

TEST_F(SurveyIn, OfThreeHoursAndAMetreIsTheDefault)
{
    EXPECT_EQ(controller.setSurveyAuto(), 0);

    expectFrames({"B5 62 06 3D 1C 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "30 2A 00 00 E8 03 00 00 A5 D6",
                  kPollTimeMode});
}

TEST_F(SurveyIn, AtTheUpperBoundsIsSent)
{
    EXPECT_EQ(controller.setSurveyAuto(30000000, 50.0F), 0);

    expectSent(payload(28, {{0, "01"}, {20, "80 C3 C9 01"}, {24, "50 C3 00 00"}}));
}

TEST_F(SurveyIn, AtTheLowerBoundsIsSentWithNineMillimetres)
{
    EXPECT_EQ(controller.setSurveyAuto(1, 0.01F), 0); // the float is a little less than 0.01

    expectSent(payload(28, {{0, "01"}, {20, "01 00 00 00"}, {24, "09 00 00 00"}}));
}

TEST_F(SurveyIn, AccuracyIsTruncatedToMillimetres)
{
    EXPECT_EQ(controller.setSurveyAuto(60, 2.3459F), 0);

    expectSent(payload(28, {{0, "01"}, {20, "3C 00 00 00"}, {24, "29 09 00 00"}}));
}

TEST_F(SurveyIn, AccuracyIsComputedInDoublePrecision)
{
    EXPECT_EQ(controller.setSurveyAuto(60, 0.015F), 0); // 14.9999996...; in single precision it would be 15

    expectSent(payload(28, {{0, "01"}, {20, "3C 00 00 00"}, {24, "0E 00 00 00"}}));
}

TEST_F(SurveyIn, DurationOutsideItsBoundsIsRefused)
{
    EXPECT_EQ(controller.setSurveyAuto(0, 1.0F), 1);
    EXPECT_EQ(controller.setSurveyAuto(30000001, 1.0F), 1);
    EXPECT_EQ(controller.setSurveyAuto(std::numeric_limits<unsigned>::max(), 1.0F), 1);

    expectNoFrames();
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(SurveyIn, AccuracyOutsideItsBoundsIsRefused)
{
    EXPECT_EQ(controller.setSurveyAuto(60, 0.009F), 1);
    EXPECT_EQ(controller.setSurveyAuto(60, 50.1F), 1);
    EXPECT_EQ(controller.setSurveyAuto(60, std::nextafter(0.01F, 0.0F)), 1);
    EXPECT_EQ(controller.setSurveyAuto(60, std::nextafter(50.0F, 100.0F)), 1);
    EXPECT_EQ(controller.setSurveyAuto(60, 0.0F), 1);
    EXPECT_EQ(controller.setSurveyAuto(60, -1.0F), 1);

    expectNoFrames();
}

TEST_F(SurveyIn, AccuracyThatIsNoFiniteNumberIsRefused)
{
    EXPECT_EQ(controller.setSurveyAuto(60, std::numeric_limits<float>::quiet_NaN()), 1);
    EXPECT_EQ(controller.setSurveyAuto(60, std::numeric_limits<float>::infinity()), 1);
    EXPECT_EQ(controller.setSurveyAuto(60, -std::numeric_limits<float>::infinity()), 1);

    expectNoFrames();
}

TEST_F(SurveyIn, ReportsAMismatchWhenTheReceiverKeepsItsMode)
{
    receiver().keepValue(0x063D);

    EXPECT_EQ(controller.setSurveyAuto(60, 1.0F), 1);
}

TEST_F(SurveyIn, OnASilentReceiverReportsNoReplyAndAMismatch)
{
    EXPECT_EQ(whenSilent([&] { return controller.setSurveyAuto(); }), 5);

    EXPECT_EQ(errors(), Lines{"Did not receive : 06 3D: Time Mode Settings 2"});
}

TEST_F(TimingOff, IsSentAsZerosAndReadBack)
{
    controller.setSurveyAuto();
    takeFrames();

    EXPECT_EQ(controller.setSurveyDynamic(), 0);

    expectFrames({"B5 62 06 3D 1C 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 5F 6B",
                  kPollTimeMode});
}

TEST_F(TimingOff, ReportsAMismatchWhenTheReceiverKeepsItsMode)
{
    controller.setSurveyAuto();
    receiver().keepValue(0x063D);

    EXPECT_EQ(controller.setSurveyDynamic(), 1);
}

TEST_F(TimingOff, OnASilentReceiverReportsNoReplyAndAMismatch)
{
    EXPECT_EQ(whenSilent([&] { return controller.setSurveyDynamic(); }), 5);
}

TEST_F(TimingOff, ReportsAMismatchForATimeModeWithoutAName)
{
    receiver().answerWith(0x063D, testsupport::bytes(payload(28, {{0, "03"}})));

    EXPECT_EQ(controller.setSurveyDynamic(), 1);
}

} // namespace
