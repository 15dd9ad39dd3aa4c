#include <limits>
#include <set>

#include "NeoM8tTest.h"

namespace
{

using testsupport::kPollFirstTimePulse;
using testsupport::Lines;

constexpr const char* kPulse0 = "B5 62 06 31 20 00 00 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                                "00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 98 3E";
constexpr const char* kPulse0With50Ns = "B5 62 06 31 20 00 00 01 00 00 32 00 00 00 40 42 0F 00 40 42 0F 00 "
                                        "00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 CA B6";
constexpr const char* kPulse1 = "B5 62 06 31 20 00 01 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                                "00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 99 5E";
constexpr const char* kPulse1OnUtc = "B5 62 06 31 20 00 01 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                                     "00 00 00 00 A0 86 01 00 00 00 00 00 77 00 00 00 19 5E";
constexpr const char* kPulse1Inactive = "B5 62 06 31 20 00 01 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                                        "00 00 00 00 A0 86 01 00 00 00 00 00 F6 00 00 00 98 5A";
constexpr const char* kPulse1InactiveOnUtc = "B5 62 06 31 20 00 01 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                                             "00 00 00 00 A0 86 01 00 00 00 00 00 76 00 00 00 18 5A";

class AntennaDelay : public testsupport::NeoM8tTest
{};
class TimePulse : public testsupport::NeoM8tTest
{};

TEST_F(AntennaDelay, IsSentInTheTimePulseMessageAndReadBack)
{
    EXPECT_EQ(controller.setAntennaDelay(50), 0);

    expectFrames({kPulse0With50Ns, kPollFirstTimePulse});
}

TEST_F(AntennaDelay, OfMinus32768IsSent)
{
    EXPECT_EQ(controller.setAntennaDelay(-32768), 0);

    expectFrames({"B5 62 06 31 20 00 00 01 00 00 00 80 00 00 40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 18 BE",
                  kPollFirstTimePulse});
}

TEST_F(AntennaDelay, Of32767IsSent)
{
    EXPECT_EQ(controller.setAntennaDelay(32767), 0);

    expectFrames({"B5 62 06 31 20 00 00 01 00 00 FF 7F 00 00 40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 16 87",
                  kPollFirstTimePulse});
}

TEST_F(AntennaDelay, OfMinus1IsSentAndReadBackWithItsSign)
{
    EXPECT_EQ(controller.setAntennaDelay(-1), 0);

    expectFrames({"B5 62 06 31 20 00 00 01 00 00 FF FF 00 00 40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 96 07",
                  kPollFirstTimePulse});
}

TEST_F(AntennaDelay, Of32768OrMinus32769IsRefusedAndNothingIsSent)
{
    for (const int delay :
         {32768, -32769, 65536 + 50, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_EQ(controller.setAntennaDelay(delay), 1) << delay;
    }

    expectNoFrames();
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(AntennaDelay, ThatIsRefusedLeavesLaterTimePulseMessagesAsTheyWere)
{
    controller.setAntennaDelay(50);
    takeFrames();

    controller.setAntennaDelay(40000);
    controller.configTimePulse(1, 0, true);

    expectFrames({kPulse0With50Ns});
}

TEST_F(AntennaDelay, StaysInLaterTimePulseMessages)
{
    controller.setAntennaDelay(50);
    takeFrames();

    EXPECT_EQ(controller.configTimePulse(1, 0, true), 0);

    expectFrames({kPulse0With50Ns});
}

TEST_F(AntennaDelay, IsSharedByAllControllersOfTheModel)
{
    {
        ubxController_NEOM8T other;
        other.setAntennaDelay(50);
    }
    takeFrames();

    controller.configTimePulse(1, 0, true);

    expectFrames({kPulse0With50Ns});
}

TEST_F(AntennaDelay, GoesOutWithThePulseAndFlagsThatWereConfiguredLast)
{
    controller.configTimePulse(72, 1, false);
    takeFrames();

    EXPECT_EQ(controller.setAntennaDelay(0), 0);

    expectFrames({kPulse1InactiveOnUtc, kPollFirstTimePulse});
}

TEST_F(AntennaDelay, ReportsAMismatchWhenTheReceiverKeepsItsValue)
{
    receiver().keepValue(0x0631);

    EXPECT_EQ(controller.setAntennaDelay(77), 1);
}

TEST_F(AntennaDelay, OnASilentReceiverReportsNoReplyAndAMismatch)
{
    EXPECT_EQ(whenSilent([&] { return controller.setAntennaDelay(28); }), 5);

    EXPECT_EQ(errors(), Lines{"Did not receive : 06 31: Poll Time Pulse Parameters for Time Pulse 0"});
}

TEST_F(AntennaDelay, OfZeroOnASilentReceiverMatchesWhatWasPreset)
{
    EXPECT_EQ(whenSilent([&] { return controller.setAntennaDelay(0); }), 4);
}

TEST_F(AntennaDelay, WithoutADeviceReportsThePollAndLogsBothMessages)
{
    takeDeviceAway();

    EXPECT_EQ(controller.setAntennaDelay(28), 9);

    EXPECT_EQ(errors(), (Lines{"Could not send : 06 31: Time Pulse Parameters",
                               "Could not send : 06 31: Poll Time Pulse Parameters for Time Pulse 0"}));
}

TEST_F(TimePulse, OnTheTimeOfGpsIsSent)
{
    EXPECT_EQ(controller.configTimePulse(1, 1, true), 0);
    EXPECT_EQ(controller.configTimePulse(1, 1, false), 0);

    expectFrames({kPulse1, kPulse1Inactive});
}

TEST_F(TimePulse, OnUtcIsSent)
{
    EXPECT_EQ(controller.configTimePulse(8, 1, true), 0);
    EXPECT_EQ(controller.configTimePulse(72, 1, false), 0);

    expectFrames({kPulse1OnUtc, kPulse1InactiveOnUtc});
}

TEST_F(TimePulse, TakesAnyIndex)
{
    EXPECT_EQ(controller.configTimePulse(1, 255, true), 0);

    expectFrames({"B5 62 06 31 20 00 FF 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 97 1E"});
}

TEST_F(TimePulse, FlagsOfAnEarlierMessageDoNotStay)
{
    controller.configTimePulse(8, 1, false);
    takeFrames();

    controller.configTimePulse(1, 0, true);

    expectFrames({kPulse0});
}

TEST_F(TimePulse, WithoutADeviceIsLoggedAndReturnsSuccess)
{
    takeDeviceAway();

    EXPECT_EQ(controller.configTimePulse(1, 1, true), 0);

    EXPECT_EQ(errors(), Lines{"Could not send : 06 31: Time Pulse Parameters"});
}

TEST_F(TimePulse, GridIsUtcForSelectionsWithoutAGpsFamilyTimeAndGpsForAllOthers)
{
    const std::set<int> onUtc{8, 10, 64, 66, 72};

    for (int mask = 0; mask <= 65535; ++mask) {
        const int expected = onUtc.count(mask) != 0 ? 0x76 : 0xF6;
        ASSERT_EQ(controller.getUtcGrid(static_cast<unsigned short>(mask)), expected) << mask;
    }
    expectNoFrames();
}

} // namespace
