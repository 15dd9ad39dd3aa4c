#include "FlushLog.h"
#include "NeoM8tTest.h"

namespace
{

using testsupport::frame;
using testsupport::kPollExpertNavigation;
using testsupport::Lines;
using testsupport::payload;

class MinimumSignal : public testsupport::NeoM8tTest
{};
class ElevationLimit : public testsupport::NeoM8tTest
{};
class DynamicModel : public testsupport::NeoM8tTest
{};
class UtcStandard : public testsupport::NeoM8tTest
{};

TEST_F(MinimumSignal, IsSentAndReadBack)
{
    EXPECT_EQ(controller.setMinCNo(40), 0);

    expectFrames({"B5 62 06 23 28 00 02 00 08 00 00 00 00 00 00 00 00 00 28 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 83 59",
                  kPollExpertNavigation});
}

TEST_F(MinimumSignal, AtItsBoundsIsSent)
{
    EXPECT_EQ(controller.setMinCNo(0), 0);
    EXPECT_EQ(controller.setMinCNo(50), 0);

    expectFrames({frame("06 23", payload(40, {{0, "02 00 08 00"}})), kPollExpertNavigation,
                  frame("06 23", payload(40, {{0, "02 00 08 00"}, {12, "32"}})), kPollExpertNavigation});
}

TEST_F(MinimumSignal, OutsideItsBoundsIsRefusedAndNothingIsSent)
{
    for (const int value : {-1, 51, -128, 127}) {
        EXPECT_EQ(controller.setMinCNo(static_cast<signed char>(value)), 1) << value;
    }

    expectNoFrames();
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(MinimumSignal, ReportsAMismatchWhenTheReceiverKeepsItsValue)
{
    controller.setMinCNo(7);
    receiver().keepValue(0x0623);

    EXPECT_EQ(controller.setMinCNo(40), 1);
}

TEST_F(MinimumSignal, OnASilentReceiverReportsNoReplyAndAMismatch)
{
    EXPECT_EQ(whenSilent([&] { return controller.setMinCNo(40); }), 5);

    EXPECT_EQ(errors(), Lines{"Did not receive : 06 23: Navigation Engine Expert Settings"});
}

TEST_F(MinimumSignal, OfZeroOnASilentReceiverMatchesWhatWasPreset)
{
    EXPECT_EQ(whenSilent([&] { return controller.setMinCNo(0); }), 4);
}

TEST_F(MinimumSignal, WithoutADeviceReportsThePollAndLogsBothMessages)
{
    takeDeviceAway();

    EXPECT_EQ(controller.setMinCNo(40), 9);

    EXPECT_EQ(errors(), (Lines{"Could not send : 06 23: Navigation Engine Expert Settings",
                               "Could not send : 06 23: Navigation Engine Expert Settings"}));
}

TEST_F(MinimumSignal, IsVerifiedThroughTheObjectsOwnVirtualGetter)
{
    struct Counting : ubxController_NEOM8T
    {
        int getMinCNo(signed char& minCNo) override
        {
            ++asked;
            minCNo = 12;
            return 0;
        }
        int asked = 0;
    };
    Counting derived;

    EXPECT_EQ(derived.setMinCNo(12), 0);
    EXPECT_EQ(derived.setMinCNo(13), 1);

    EXPECT_EQ(derived.asked, 2);
    expectFrames({frame("06 23", payload(40, {{0, "02 00 08 00"}, {12, "0C"}})),
                  frame("06 23", payload(40, {{0, "02 00 08 00"}, {12, "0D"}}))});
}

TEST_F(ElevationLimit, IsSentAndNotReadBack)
{
    EXPECT_EQ(controller.setElevationLimit(10), 0);

    expectFrames({"B5 62 06 24 24 00 02 00 00 00 00 00 00 00 00 00 00 00 0A 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 5A FC"});
}

TEST_F(ElevationLimit, Of5And60IsSent)
{
    EXPECT_EQ(controller.setElevationLimit(5), 0);
    EXPECT_EQ(controller.setElevationLimit(60), 0);

    expectFrames({frame("06 24", payload(36, {{0, "02 00"}, {12, "05"}})),
                  frame("06 24", payload(36, {{0, "02 00"}, {12, "3C"}}))});
}

TEST_F(ElevationLimit, Of4Or61IsRefusedAndNothingIsSent)
{
    for (const int degrees : {0, 4, 61, 128, 255}) {
        EXPECT_EQ(controller.setElevationLimit(static_cast<unsigned char>(degrees)), 1) << degrees;
    }

    expectNoFrames();
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(DynamicModel, AloneLeavesTheFixModeOut)
{
    EXPECT_EQ(controller.setDynamicModel(4), 0);

    expectFrames({"B5 62 06 24 24 00 01 00 04 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 53 70"});
}

TEST_F(DynamicModel, GoesWithTheFixModeInOneMessage)
{
    EXPECT_EQ(controller.setDynamicModel(2, 2), 0);

    expectFrames({"B5 62 06 24 24 00 05 00 02 02 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 57 FE"});
}

TEST_F(DynamicModel, IsLeftOutWhenTheFixModeIsSetAlone)
{
    EXPECT_EQ(controller.setFixMode(3), 0);

    expectFrames({"B5 62 06 24 24 00 04 00 00 03 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 55 B7"});
}

TEST_F(DynamicModel, AndFixModeHaveNoRange)
{
    EXPECT_EQ(controller.setDynamicModel(255), 0);
    EXPECT_EQ(controller.setDynamicModel(254, 253), 0);
    EXPECT_EQ(controller.setFixMode(252), 0);

    expectFrames({frame("06 24", payload(36, {{0, "01 00 FF"}})), frame("06 24", payload(36, {{0, "05 00 FE FD"}})),
                  frame("06 24", payload(36, {{0, "04 00 00 FC"}}))});
}

TEST_F(DynamicModel, AndFixModeOpenThePortOnceMoreThanTheyUseIt)
{
    const auto opened = [](auto operation) {
        flushlog::clear();
        operation();
        return flushlog::asked().size();
    };

    EXPECT_EQ(opened([&] { controller.setDynamicModel(2); }), 2U);
    EXPECT_EQ(opened([&] { controller.setDynamicModel(2, 3); }), 2U);
    EXPECT_EQ(opened([&] { controller.setFixMode(3); }), 2U);
    EXPECT_EQ(opened([&] { controller.setElevationLimit(10); }), 1U);
    EXPECT_EQ(opened([&] { controller.setUtcStandardAuto(); }), 1U);
}

TEST_F(UtcStandard, AutomaticIsSent)
{
    EXPECT_EQ(controller.setUtcStandardAuto(), 0);

    expectFrames({"B5 62 06 24 24 00 00 04 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                  "00 00 00 00 00 00 00 00 00 00 00 00 52 50"});
}

TEST_F(UtcStandard, AndAllOtherNavigationSettingsWithoutADeviceAreLogged)
{
    takeDeviceAway();

    EXPECT_EQ(controller.setUtcStandardAuto(), 0);
    EXPECT_EQ(controller.setElevationLimit(10), 0);
    EXPECT_EQ(controller.setDynamicModel(2), 0);
    EXPECT_EQ(controller.setDynamicModel(2, 2), 0);
    EXPECT_EQ(controller.setFixMode(2), 0);

    EXPECT_EQ(errors(), Lines(5, "Could not send : 06 24: Navigation Engine Settings"));
}

} // namespace
