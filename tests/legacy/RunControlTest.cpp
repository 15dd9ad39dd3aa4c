#include "NeoM8tTest.h"

namespace
{

using testsupport::bytes;
using testsupport::frameOf;
using testsupport::Lines;

constexpr const char* kStopCold = "B5 62 06 04 04 00 FF FF 08 00 14 6D";
constexpr const char* kStopHot = "B5 62 06 04 04 00 00 00 08 00 16 74";
constexpr const char* kStart = "B5 62 06 04 04 00 00 00 09 00 17 76";

constexpr const char* kSecondPulseOn = "01 01 00 00 32 00 00 00 40 42 0F 00 40 42 0F 00 "
                                       "00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00";
constexpr const char* kSecondPulseOff = "01 01 00 00 32 00 00 00 40 42 0F 00 40 42 0F 00 "
                                        "00 00 00 00 A0 86 01 00 00 00 00 00 F6 00 00 00";

class RunControl : public testsupport::NeoM8tTest
{
protected:
    void answerSecondPulse(const char* payload) { receiver().answerWith(0x0631, bytes(payload)); }
};

TEST_F(RunControl, OffMessageIsAControlledStopColdOrHot)
{
    EXPECT_EQ(frameOf(controller.constructGNSSOffMessage(false)), kStopCold);
    EXPECT_EQ(frameOf(controller.constructGNSSOffMessage(true)), kStopHot);
}

TEST_F(RunControl, OnMessageIsAControlledStart)
{
    EXPECT_EQ(frameOf(controller.constructGNSSOnMessage()), kStart);
}

TEST_F(RunControl, HotRestartKeepsTheNavigationData)
{
    EXPECT_EQ(controller.restart(true), 0);

    expectFrames({kStopHot, kStart});
}

TEST_F(RunControl, ColdRestartDropsTheNavigationData)
{
    EXPECT_EQ(controller.restart(false), 0);

    expectFrames({kStopCold, kStart});
}

TEST_F(RunControl, RestartWithoutADeviceReturnsSuccessAndLogsBothSteps)
{
    takeDeviceAway();

    EXPECT_EQ(controller.restart(false), 0);

    EXPECT_EQ(errors(), (Lines{"Could not send : 06 04: Reset Receiver / Clear Backup Data Structures",
                               "Could not send : 06 04: Reset Receiver / Clear Backup Data Structures"}));
}

TEST_F(RunControl, TurnOffLeavesTheSecondPulseAloneWhenTheConstellationsAreRead)
{
    answerSecondPulse(kSecondPulseOff);

    EXPECT_EQ(controller.turnOff(), 0);

    expectFrames({testsupport::kPollConstellations, kStopCold, testsupport::kPollSecondTimePulse});
}

TEST_F(RunControl, TurnOffReportsAReceiverThatIsStillOn)
{
    answerSecondPulse(kSecondPulseOn);

    EXPECT_EQ(controller.turnOff(), 1);
}

TEST_F(RunControl, TurnOffSwitchesTheSecondPulseOffWhenTheConstellationsAreNotRead)
{
    receiver().ignore(0x063E);
    answerSecondPulse(kSecondPulseOff);

    EXPECT_EQ(withFastClock([&] { return controller.turnOff(); }), 4);

    expectFrames({testsupport::kPollConstellations,
                  "B5 62 06 31 20 00 01 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 00 00 00 00 F6 00 00 00 98 5A",
                  kStopCold, testsupport::kPollSecondTimePulse});
}

TEST_F(RunControl, TurnOffCombinesTheFailedReadAndTheReceiverThatIsStillOn)
{
    receiver().ignore(0x063E);
    answerSecondPulse(kSecondPulseOn);

    EXPECT_EQ(withFastClock([&] { return controller.turnOff(); }), 5);
}

TEST_F(RunControl, TurnOffOfASilentReceiverCountsAsOff)
{
    EXPECT_EQ(whenSilent([&] { return controller.turnOff(); }), 4);

    EXPECT_EQ(errors(), (Lines{"Did not receive : 06 3E: GNSS system configuration",
                               "Did not receive : 06 31: Poll Time Pulse Parameters"}));
}

TEST_F(RunControl, TurnOffWithoutADeviceReportsThePollsAndLogsEveryMessage)
{
    takeDeviceAway();

    EXPECT_EQ(controller.turnOff(), 8);

    EXPECT_EQ(errors(), (Lines{"Could not send : 06 3E: GNSS system configuration",
                               "Could not send : 06 31: Time Pulse Parameters",
                               "Could not send : 06 04: Reset Receiver / Clear Backup Data Structures",
                               "Could not send : 06 31: Poll Time Pulse Parameters"}));
}

TEST_F(RunControl, TurnOnStartsAndLeavesTheSecondPulseAloneWhenTheConstellationsAreRead)
{
    answerSecondPulse(kSecondPulseOn);

    EXPECT_EQ(controller.turnOn(), 0);

    expectFrames({kStart, testsupport::kPollConstellations, testsupport::kPollSecondTimePulse});
}

TEST_F(RunControl, TurnOnReportsAReceiverThatIsStillOff)
{
    answerSecondPulse(kSecondPulseOff);

    EXPECT_EQ(controller.turnOn(), 1);
}

TEST_F(RunControl, TurnOnSwitchesTheSecondPulseOnWhenTheConstellationsAreNotRead)
{
    receiver().ignore(0x063E);
    answerSecondPulse(kSecondPulseOn);

    EXPECT_EQ(withFastClock([&] { return controller.turnOn(); }), 4);

    expectFrames({kStart, testsupport::kPollConstellations,
                  "B5 62 06 31 20 00 01 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 99 5E",
                  testsupport::kPollSecondTimePulse});
}

TEST_F(RunControl, TurnOnOfASilentReceiverCountsAsOff)
{
    EXPECT_EQ(whenSilent([&] { return controller.turnOn(); }), 5);

    EXPECT_EQ(errors(), (Lines{"Did not receive : 06 3E: GNSS system configuration",
                               "Did not receive : 06 31: Poll Time Pulse Parameters"}));
}

TEST_F(RunControl, TurnOnWithoutADeviceReportsThePollAndTheReceiverThatIsOff)
{
    takeDeviceAway();

    EXPECT_EQ(controller.turnOn(), 9);

    EXPECT_EQ(errors(), (Lines{"Could not send : 06 04: Reset Receiver / Clear Backup Data Structures",
                               "Could not send : 06 3E: GNSS system configuration",
                               "Could not send : 06 31: Time Pulse Parameters",
                               "Could not send : 06 31: Poll Time Pulse Parameters"}));
}

} // namespace
