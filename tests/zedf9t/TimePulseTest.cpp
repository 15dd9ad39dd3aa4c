// The ZED-F9T's time pulses in both modes, and the settings of the legacy one that outlive a call.

#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <ubxController_NEOM8T.h>

#include "ChildProcess.h"
#include "WireFrames.h"
#include "WriteCalls.h"
#include "ZedF9tTest.h"

using zedtest::kByKey;
using zedtest::kLegacy;
using zedtest::ZedF9tTest;
using Lines = std::vector<std::string>;

namespace
{

class TimePulseByKey : public ZedF9tTest
{
protected:
    TimePulseByKey() { receiver(); }
};

TEST_F(TimePulseByKey, FirstPulseOnTheGridOfUtcOrGps)
{
    EXPECT_EQ(controller.configTimePulse(3, 0, true), 0);
    EXPECT_EQ(controller.configTimePulse(1, 0, true), 0);

    expectFrames({zedtest::kFirstPulseUtcItems, zedtest::kFirstPulseGpsItems});
}

TEST_F(TimePulseByKey, SecondPulseOnTheGridOfUtcOrGps)
{
    EXPECT_EQ(controller.configTimePulse(64, 1, true), 0);
    EXPECT_EQ(controller.configTimePulse(1, 1, true), 0);

    expectFrames({zedtest::kSecondPulseUtcItems, zedtest::kSecondPulseGpsItems});
}

TEST_F(TimePulseByKey, PulsesThatAreNotActive)
{
    EXPECT_EQ(controller.configTimePulse(1, 0, false), 0);
    EXPECT_EQ(controller.configTimePulse(0, 1, false), 0);

    expectFrames({"B5 62 06 8A 48 00 "
                  "00 01 00 00 "
                  "23 00 05 20 00 "
                  "30 00 05 20 01 "
                  "01 00 05 30 00 00 "
                  "07 00 05 10 00 "
                  "02 00 05 40 40 42 0F 00 "
                  "03 00 05 40 40 42 0F 00 "
                  "04 00 05 40 00 00 00 00 "
                  "05 00 05 40 A0 86 01 00 "
                  "0C 00 05 20 01 "
                  "08 00 05 10 01 "
                  "09 00 05 10 01 "
                  "A3 C3",
                  zedtest::kSecondPulseOffUtcItems});
}

TEST_F(TimePulseByKey, ThirdPulseSetsOnlyWhatAllShare)
{
    EXPECT_EQ(controller.configTimePulse(1, 2, true), 0);
    EXPECT_EQ(controller.configTimePulse(0, 255, false), 0);

    constexpr const char* kShared =
        "B5 62 06 8A 14 00 00 01 00 00 23 00 05 20 00 30 00 05 20 01 01 00 05 30 00 00 79 C5";
    expectFrames({kShared, kShared});
}

TEST_F(TimePulseByKey, PutsTheCableDelayBackTo0)
{
    EXPECT_EQ(controller.setAntennaDelay(50), 0);
    EXPECT_EQ(receiver().keyValue(0x30050001), 50U);

    EXPECT_EQ(controller.configTimePulse(1, 0, true), 0);

    takeFrames(); // it has arrived then
    EXPECT_EQ(receiver().keyValue(0x30050001), 0U);
}

class LegacyTimePulse : public ZedF9tTest
{
protected:
    LegacyTimePulse()
    {
        renewTimePulse();
        controller.setZedf9tConfigurationInterfaceMode(kLegacy);
    }
};

TEST_F(LegacyTimePulse, OnTheGridOfGpsOrUtc)
{
    EXPECT_EQ(controller.configTimePulse(1, 0, true), 0);
    EXPECT_EQ(controller.configTimePulse(1, 1, true), 0);
    EXPECT_EQ(controller.configTimePulse(4, 0, true), 0);
    EXPECT_EQ(controller.configTimePulse(72, 1, true), 0);
    EXPECT_EQ(controller.configTimePulse(0, 1, false), 0);

    expectFrames({zedtest::kFirstPulseGps, zedtest::kSecondPulseGps, zedtest::kFirstPulseUtc, zedtest::kSecondPulseUtc,
                  zedtest::kSecondPulseOffGps});
}

TEST_F(LegacyTimePulse, SendsWhateverIndexItIsGiven)
{
    EXPECT_EQ(controller.configTimePulse(8, 255, false), 0);

    expectFrames({"B5 62 06 31 20 00 "
                  "FF 01 00 00 00 00 00 00 "
                  "40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 "
                  "00 00 00 00 76 00 00 00 "
                  "16 1A"});
}

TEST_F(LegacyTimePulse, CarriesTheDelayThatWasWrittenEarlier)
{
    EXPECT_EQ(controller.setAntennaDelayForLegacy(50), 0);
    EXPECT_EQ(controller.configTimePulse(1, 1, true), 0);

    expectFrames({"B5 62 06 31 20 00 "
                  "00 01 00 00 32 00 00 00 "
                  "40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 "
                  "00 00 00 00 F7 00 00 00 "
                  "CA B6",
                  zedtest::kPollFirstPulse,
                  "B5 62 06 31 20 00 "
                  "01 01 00 00 32 00 00 00 "
                  "40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 "
                  "00 00 00 00 F7 00 00 00 "
                  "CB D6"});
}

TEST_F(LegacyTimePulse, DelayGoesOutWithTheIndexAndFlagsThatWereWrittenEarlier)
{
    EXPECT_EQ(controller.configTimePulse(66, 1, false), 0);
    answer(0x0631, "00 01 00 00 FF FF", 1);
    EXPECT_EQ(controller.setAntennaDelay(-1), 0);

    constexpr const char* kSecondOffUtc = "B5 62 06 31 20 00 "
                                          "01 01 00 00 00 00 00 00 "
                                          "40 42 0F 00 40 42 0F 00 "
                                          "00 00 00 00 A0 86 01 00 "
                                          "00 00 00 00 76 00 00 00 "
                                          "18 5A";
    constexpr const char* kSecondOffUtcDelayed = "B5 62 06 31 20 00 "
                                                 "01 01 00 00 FF FF 00 00 "
                                                 "40 42 0F 00 40 42 0F 00 "
                                                 "00 00 00 00 A0 86 01 00 "
                                                 "00 00 00 00 76 00 00 00 "
                                                 "16 23";
    expectFrames({kSecondOffUtc, kSecondOffUtcDelayed, zedtest::kPollFirstPulse});
}

TEST_F(LegacyTimePulse, IsSharedByTwoControllers)
{
    ubxController_ZEDF9T other(zedtest::kVersion2_13, kLegacy);
    EXPECT_EQ(controller.setAntennaDelay(0x1234), 0);
    EXPECT_EQ(controller.configTimePulse(8, 1, true), 0);
    takeFrames();
    answer(0x0631, "00 01 00 00 35 12", 1);

    EXPECT_EQ(other.setAntennaDelay(0x1235), 0);

    expectFrames({"B5 62 06 31 20 00 "
                  "01 01 00 00 35 12 00 00 "
                  "40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 "
                  "00 00 00 00 77 00 00 00 "
                  "60 10",
                  zedtest::kPollFirstPulse});
}

TEST_F(LegacyTimePulse, IsNotThatOfANeoM8t)
{
    ubxController_NEOM8T otherModel;
    otherModel.setAntennaDelay(0);
    takeFrames();
    EXPECT_EQ(controller.setAntennaDelay(50), 0);
    takeFrames();

    EXPECT_EQ(otherModel.configTimePulse(1, 0, true), 0);
    expectFrames({zedtest::kFirstPulseGps});

    EXPECT_EQ(otherModel.setAntennaDelay(70), 0);
    takeFrames();
    EXPECT_EQ(controller.configTimePulse(1, 0, true), 0);
    expectFrames({"B5 62 06 31 20 00 "
                  "00 01 00 00 32 00 00 00 "
                  "40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 "
                  "00 00 00 00 F7 00 00 00 "
                  "CA B6"});
}

TEST_F(LegacyTimePulse, IsChangedByACommandThatCouldNotBeWritten)
{
    {
        const writecalls::Failure failure(zedtest::kSecondPulseUtc);
        EXPECT_EQ(controller.configTimePulse(72, 1, true), 0);
    }
    expectNoFrames();
    EXPECT_EQ(log(), Lines{"Could not send : 06 31: Time Pulse Parameters"});
    answer(0x0631, "00 01 00 00 00 00", 1);

    EXPECT_EQ(controller.setAntennaDelay(0), 0);

    expectFrames({zedtest::kSecondPulseUtc, zedtest::kPollFirstPulse});
}

TEST_F(LegacyTimePulse, ByItemsLeavesItAlone)
{
    controller.setZedf9tConfigurationInterfaceMode(kByKey);
    EXPECT_EQ(controller.setAntennaDelay(50), 0);
    EXPECT_EQ(controller.configTimePulse(8, 1, false), 0);
    takeFrames();

    EXPECT_EQ(controller.configTimePulseForLegacy(1, 0, true), 0);

    expectFrames({zedtest::kFirstPulseGps});
}

// In a process of its own, where nothing has changed it yet.
TEST(LegacyTimePulseOfANewProcess, BeginsAsTheFirstPulseActiveOnTheGridOfGpsWithoutADelay)
{
    const auto run = [] {
        ubxsim::ReceiverSimulator receiver(testsupport::quietReceiver(ubxsim::Model::zedF9t));
        receiver.linkAt("/dev/tty_gps");
        ubxController_ZEDF9T controller(zedtest::kVersion2_20, kLegacy);
        controller.setAntennaDelay(0);
        receiver.waitForFrames(1);
        return receiver.received(0) == testsupport::bytes(zedtest::kFirstPulseGps) ? 0 : 1;
    };

    EXPECT_EQ(testsupport::runToEnd(run).status, 0);
}

class TimeGrid : public ZedF9tTest
{};

TEST_F(TimeGrid, OfTheLegacyPulseIsUtcForEightMasksAndGpsForAllOthers)
{
    const std::set<unsigned> utc = {4, 6, 8, 10, 64, 66, 68, 72};
    for (unsigned mask = 0; mask <= 0xFFFF; ++mask) {
        ASSERT_EQ(controller.getUtcGrid(static_cast<unsigned short>(mask)), utc.count(mask) != 0 ? 0x76 : 0xF6) << mask;
    }
}

TEST_F(TimeGrid, OfTheLegacyPulseIsGpsForMasks1And3And9And12And65)
{
    for (const int mask : {1, 3, 9, 12, 65})
        EXPECT_EQ(controller.getUtcGrid(static_cast<unsigned short>(mask)), 0xF6) << mask;
    for (const int mask : {4, 6, 8, 10, 64, 66, 68, 72})
        EXPECT_EQ(controller.getUtcGrid(static_cast<unsigned short>(mask)), 0x76) << mask;
}

TEST_F(TimeGrid, ByKeyIsGpsForGpsAlone)
{
    for (unsigned mask = 0; mask <= 0xFFFF; ++mask) {
        ASSERT_EQ(controller.getUtcGridForConfigInterface(static_cast<unsigned short>(mask)), mask == 1 ? 1 : 0)
            << mask;
    }
}

TEST_F(TimeGrid, OfANeoM8tDiffersInMasks4And6And68)
{
    ubxController_NEOM8T otherModel;
    for (unsigned mask = 0; mask <= 0xFFFF; ++mask) {
        const auto gnssMask = static_cast<unsigned short>(mask);
        const bool differs = mask == 4 || mask == 6 || mask == 68;
        ASSERT_EQ(controller.getUtcGrid(gnssMask) != otherModel.getUtcGrid(gnssMask), differs) << mask;
    }
}

} // namespace
