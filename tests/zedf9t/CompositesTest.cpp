// What a ZED-F9T's controller does in several steps: defaults, storage, stop and start.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "Frames.h"
#include "WireFrames.h"
#include "WriteCalls.h"
#include "ZedF9tTest.h"

using testsupport::CapturedOutput;
using zedtest::kByKey;
using zedtest::kLegacy;
using zedtest::ZedF9tTest;
using Lines = std::vector<std::string>;

namespace
{

// Each of these sends the same in both modes.
class Composites : public ZedF9tTest, public testing::WithParamInterface<bool>
{
protected:
    Composites()
    {
        renewTimePulse();
        answer(0x0600, "01 00 00 00 C0 08 00 00 00 96 00 00 27 00 23 00 00 00 00 00");
        controller.setZedf9tConfigurationInterfaceMode(GetParam());
    }

    /// The controller is still in the mode that it was in before.
    void expectModeKept(ubxController_ZEDF9T& asked)
    {
        bool on = false;
        takeFrames();
        asked.isOn(on);
        expectFrames({GetParam() == kByKey ? zedtest::kPollSecondPulseItem : zedtest::kPollSecondPulse});
    }

    ubxController_ZEDF9T older{zedtest::kVersion2_13, GetParam()};
};

INSTANTIATE_TEST_SUITE_P(InEitherMode, Composites, testing::Values(kByKey, kLegacy),
                         [](const auto& mode) { return std::string(mode.param ? "ByKey" : "Legacy"); });

constexpr const char* kProtocolsForUsb =
    "B5 62 06 00 14 00 03 00 00 00 C0 08 00 00 00 96 00 00 03 00 03 00 00 00 00 00 81 98";
constexpr const char* kProtocolsOfPort =
    "B5 62 06 00 14 00 01 00 00 00 C0 08 00 00 00 96 00 00 03 00 03 00 00 00 00 00 7F 70";

// 28 ns of cable delay, in the pulse that was configured last.
constexpr const char* kFirstPulseDelayed = "B5 62 06 31 20 00 "
                                           "00 01 00 00 1C 00 00 00 "
                                           "40 42 0F 00 40 42 0F 00 "
                                           "00 00 00 00 A0 86 01 00 "
                                           "00 00 00 00 F7 00 00 00 "
                                           "B4 4E";
constexpr const char* kSecondPulseDelayed = "B5 62 06 31 20 00 "
                                            "01 01 00 00 1C 00 00 00 "
                                            "40 42 0F 00 40 42 0F 00 "
                                            "00 00 00 00 A0 86 01 00 "
                                            "00 00 00 00 F7 00 00 00 "
                                            "B5 6E";

constexpr const char* kGpsOnly = "B5 62 06 3E 3C 00 "
                                 "00 20 20 07 "
                                 "00 10 20 00 01 00 11 01 "
                                 "01 04 05 00 00 00 01 01 "
                                 "02 0A 12 00 00 00 21 01 "
                                 "03 04 05 00 00 00 11 01 "
                                 "04 00 00 00 00 00 01 00 "
                                 "05 00 03 00 00 00 11 01 "
                                 "06 08 0C 00 00 00 11 01 "
                                 "BF 41";
constexpr const char* kMinCNo9 = "B5 62 06 23 28 00 "
                                 "02 00 08 00 00 00 00 00 00 00 00 00 09 00 00 00 00 00 00 00 "
                                 "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                                 "64 F5";
constexpr const char* kElevation10 = "B5 62 06 24 24 00 "
                                     "02 00 00 00 00 00 00 00 00 00 00 00 0A 00 00 00 00 00 "
                                     "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                                     "5A FC";
constexpr const char* kStationary3d = "B5 62 06 24 24 00 "
                                      "05 00 02 02 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                                      "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                                      "57 FE";
constexpr const char* kPortableAutomatic = "B5 62 06 24 24 00 "
                                           "05 00 00 03 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                                           "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                                           "56 DB";
constexpr const char* kSurvey = "B5 62 06 3D 1C 00 "
                                "01 00 00 00 "
                                "00 00 00 00 00 00 00 00 00 00 00 00 "
                                "00 00 00 00 30 2A 00 00 E8 03 00 00 "
                                "A5 D6";

Lines defaultConfiguration(const char* protocols)
{
    return {zedtest::kPollPort,
            protocols,
            kFirstPulseDelayed,
            zedtest::kPollFirstPulse,
            kGpsOnly,
            kFirstPulseDelayed,
            kSecondPulseDelayed,
            zedtest::kPollConstellations,
            kMinCNo9,
            zedtest::kPollNavx5,
            kElevation10,
            kStationary3d,
            kSurvey,
            zedtest::kPollTimingMode,
            zedtest::kSbas,
            zedtest::kUtcStandardAutomatic};
}

Lines operator+(Lines first, const Lines& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

TEST_P(Composites, SetDefaultConfigurationSendsOnlyLegacyFramesInOrder)
{
    EXPECT_EQ(controller.setDefaultConfiguration(), 0);

    expectFrames(defaultConfiguration(kProtocolsForUsb));
    EXPECT_EQ(log(), Lines{});
    expectModeKept(controller);
}

TEST_P(Composites, SetDefaultConfigurationIsTheSameOnOlderFirmware)
{
    EXPECT_EQ(older.setDefaultConfiguration(), 0);

    expectFrames(defaultConfiguration(kProtocolsForUsb));
    expectModeKept(older);
}

TEST_P(Composites, SetDefaultConfigurationGoesOnWhenNothingIsAnswered)
{
    receiver().clearFaults();
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(whenSilent([&] { return controller.setDefaultConfiguration(); }), 5);

    Lines frames = defaultConfiguration(kProtocolsForUsb);
    frames.erase(frames.begin() + 1); // no reply to write back
    expectFrames(frames);
    EXPECT_EQ(log(), (Lines{"Did not receive : 06 00: Port Configuration for UART/USB/SPI/DCC Port",
                            "Did not receive : 06 31: Poll Time Pulse Parameters for Time Pulse 0",
                            "Did not receive : 06 3E: GNSS system configuration",
                            "Did not receive : 06 23: Navigation Engine Expert Settings",
                            "Did not receive : 06 3D: Time Mode Settings 2"}));
    receiver().clearFaults();
    expectModeKept(controller);
}

TEST_P(Composites, SetDefaultConfigurationReports1WhenTheReceiverKeepsOneOldValue)
{
    for (const std::uint16_t classId : std::vector<std::uint16_t>{0x0631, 0x063E, 0x0623, 0x063D}) {
        SCOPED_TRACE(classId);
        receiver().clearFaults();
        receiver().answerWith(classId, testsupport::Bytes(60, 0x77));

        EXPECT_EQ(controller.setDefaultConfiguration(), 1);
    }
}

TEST_P(Composites, SetApplicationDefaultsSendsOnlyLegacyFramesInOrder)
{
    EXPECT_EQ(controller.setApplicationDefaults(), 0);

    expectFrames({zedtest::kPollPort, kProtocolsForUsb, kPortableAutomatic, zedtest::kUtcStandardAutomatic});
    expectModeKept(controller);
}

TEST_P(Composites, SetApplicationDefaultsReportsTheStatusOfTheProtocolsAndGoesOn)
{
    receiver().clearFaults();
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(whenSilent([&] { return controller.setApplicationDefaults(); }), 4);

    expectFrames({zedtest::kPollPort, kPortableAutomatic, zedtest::kUtcStandardAutomatic});
    EXPECT_EQ(log(), Lines{"Did not receive : 06 00: Port Configuration for UART/USB/SPI/DCC Port"});
}

constexpr const char* kUbxRatesByItems = "B5 62 06 8A 2C 00 "
                                         "00 01 00 00 "
                                         "47 00 91 20 01 5B 00 91 20 01 15 00 91 20 01 45 03 91 20 01 "
                                         "06 00 91 20 01 1A 00 91 20 01 B4 01 91 20 01 97 00 91 20 01 "
                                         "B8 87";

const Lines kNmeaOff = {"B5 62 06 01 03 00 F0 00 00 FA 0F", "B5 62 06 01 03 00 F0 01 00 FB 11",
                        "B5 62 06 01 03 00 F0 02 00 FC 13", "B5 62 06 01 03 00 F0 03 00 FD 15",
                        "B5 62 06 01 03 00 F0 04 00 FE 17", "B5 62 06 01 03 00 F0 05 00 FF 19",
                        "B5 62 06 01 03 00 F0 08 00 02 1F"};

// The rates go out as items although everything else is legacy.
TEST_P(Composites, ResetFactoryDefaultsWithoutAUsbNodeOnOlderFirmware)
{
    EXPECT_EQ(older.resetFactoryDefaults(), 0);

    expectFrames(Lines{zedtest::kClear, zedtest::kPowerManagement, kUbxRatesByItems} + kNmeaOff +
                 defaultConfiguration(kProtocolsForUsb) + Lines{zedtest::kSave});
    EXPECT_EQ(log(), Lines{});
    expectModeKept(older);
}

TEST_P(Composites, ResetFactoryDefaultsWithoutAUsbNodeFromTim2_20On)
{
    EXPECT_EQ(controller.resetFactoryDefaults(), 0);

    expectFrames(Lines{zedtest::kClear, kUbxRatesByItems} + kNmeaOff + defaultConfiguration(kProtocolsForUsb) +
                 Lines{zedtest::kSave});
    EXPECT_EQ(log(), Lines{"It is not supported by the current firmware."});
    expectModeKept(controller);
}

TEST_P(Composites, ResetFactoryDefaultsWithAUsbNode)
{
    plugIntoUsb();

    EXPECT_EQ(older.resetFactoryDefaults(), 0);

    expectFrames(Lines{zedtest::kClear, zedtest::kPowerManagement, "B5 62 06 01 03 00 01 20 00 2B 82",
                       "B5 62 06 01 03 00 01 07 00 12 50", "B5 62 06 01 03 00 01 06 00 11 4E",
                       "B5 62 06 01 03 00 0D 04 00 1B 6E", "B5 62 06 01 03 00 01 35 01 41 AD",
                       "B5 62 06 01 03 00 01 43 01 4F C9"} +
                 defaultConfiguration(kProtocolsOfPort) + Lines{zedtest::kSave});
    expectModeKept(older);
}

TEST_P(Composites, ResetFactoryDefaultsReportsWhatItsStepsReport)
{
    receiver().clearFaults();
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(whenSilent([&] { return controller.resetFactoryDefaults(); }), 5);

    EXPECT_EQ(takeFrames().back(), zedtest::kSave);
    receiver().clearFaults();
    expectModeKept(controller);
}

TEST_P(Composites, SaveAndLoad)
{
    EXPECT_EQ(controller.save(), 0);
    EXPECT_EQ(controller.load(), 0);

    expectFrames({zedtest::kSave, zedtest::kLoad});
}

TEST_P(Composites, SaveReturns0EvenWhenItCouldNotBeWritten)
{
    const writecalls::Failure failure(zedtest::kSave);

    EXPECT_EQ(controller.save(), 0);

    expectNoFrames();
    EXPECT_EQ(log(), Lines{"Could not send : 06 09: Clear, Save and Load configurations"});
}

TEST_P(Composites, ResetUbloxDefaultsClearsAndSaves)
{
    EXPECT_EQ(controller.resetUbloxDefaults(), 0);

    expectFrames({zedtest::kClear, zedtest::kSave});
}

TEST_P(Composites, RestartKeepsOrDropsTheNavigationData)
{
    EXPECT_EQ(controller.restart(true), 0);
    expectFrames({zedtest::kStop, zedtest::kStart});

    EXPECT_EQ(controller.restart(false), 0);
    expectFrames({zedtest::kStopAndForget, zedtest::kStart});
}

class StopAndStartByKey : public ZedF9tTest
{
protected:
    // Replies to the poll of the constellations, then to that of the second pulse.
    void answers(const char* secondPulse)
    {
        answerItems("1F 00 31 10 01 20 00 31 10 00 21 00 31 10 00 22 00 31 10 00 24 00 31 10 00 25 00 31 10 00", 1);
        answerItems(std::string("12 00 05 10 ") + secondPulse, 1);
    }

    /// As long as the constellations can't be read.
    int withoutConstellations(int (ubxController_ZEDF9T::*operation)(), const char* secondPulse)
    {
        answerWrongly(0x068B);
        answerItems(std::string("12 00 05 10 ") + secondPulse, 1);
        return whileOneWaitIsInVain([&] { return (controller.*operation)(); });
    }
};

TEST_F(StopAndStartByKey, TurnOffLeavesThePulseAloneWhenTheConstellationsAreRead)
{
    answers("00");
    EXPECT_EQ(controller.turnOff(), 0);
    answers("01");
    EXPECT_EQ(controller.turnOff(), 1);

    const Lines frames = {zedtest::kPollSignalItemsTim2_20, zedtest::kStopAndForget, zedtest::kPollSecondPulseItem};
    expectFrames(frames + frames);
}

TEST_F(StopAndStartByKey, TurnOnLeavesThePulseAloneWhenTheConstellationsAreRead)
{
    answers("01");
    EXPECT_EQ(controller.turnOn(), 0);
    answers("00");
    EXPECT_EQ(controller.turnOn(), 1);

    const Lines frames = {zedtest::kStart, zedtest::kPollSignalItemsTim2_20, zedtest::kPollSecondPulseItem};
    expectFrames(frames + frames);
}

TEST_F(StopAndStartByKey, TurnOffStopsThePulseWhenTheConstellationsAreNotRead)
{
    EXPECT_EQ(withoutConstellations(&ubxController_ZEDF9T::turnOff, "00"), 4);
    EXPECT_EQ(withoutConstellations(&ubxController_ZEDF9T::turnOff, "01"), 5);

    const Lines frames = {zedtest::kPollSignalItemsTim2_20, zedtest::kSecondPulseOffUtcItems, zedtest::kStopAndForget,
                          zedtest::kPollSecondPulseItem};
    expectFrames(frames + frames);
    EXPECT_EQ(log(), Lines(2, "Did not receive : Antenna cable delay"));
}

TEST_F(StopAndStartByKey, TurnOnStartsThePulseWhenTheConstellationsAreNotRead)
{
    EXPECT_EQ(withoutConstellations(&ubxController_ZEDF9T::turnOn, "01"), 4);
    EXPECT_EQ(withoutConstellations(&ubxController_ZEDF9T::turnOn, "00"), 5);

    const Lines frames = {zedtest::kStart, zedtest::kPollSignalItemsTim2_20, zedtest::kSecondPulseUtcItems,
                          zedtest::kPollSecondPulseItem};
    expectFrames(frames + frames);
}

TEST_F(StopAndStartByKey, SilentReceiverCountsAsOff)
{
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(whenSilent([&] { return controller.turnOff(); }), 4);
    EXPECT_EQ(whenSilent([&] { return controller.turnOn(); }), 5);

    EXPECT_EQ(log(), (Lines{"Did not receive : Antenna cable delay",
                            "Did not receive : Minimum elevation for a GNSS satellite to be used in navigation",
                            "Did not receive : Antenna cable delay",
                            "Did not receive : Minimum elevation for a GNSS satellite to be used in navigation"}));
}

class StopAndStartLegacy : public ZedF9tTest
{
protected:
    StopAndStartLegacy()
    {
        renewTimePulse();
        controller.setZedf9tConfigurationInterfaceMode(kLegacy);
    }
};

TEST_F(StopAndStartLegacy, TurnOffAndOnLeaveThePulseAloneWhenTheConstellationsAreRead)
{
    answer(0x0631, testsupport::payload(32, {{28, "F7"}}));

    EXPECT_EQ(controller.turnOff(), 1);
    EXPECT_EQ(controller.turnOn(), 0);

    expectFrames({zedtest::kPollConstellations, zedtest::kStopAndForget, zedtest::kPollSecondPulse, zedtest::kStart,
                  zedtest::kPollConstellations, zedtest::kPollSecondPulse});
}

TEST_F(StopAndStartLegacy, TurnOffAndOnSwitchThePulseWhenTheConstellationsAreNotRead)
{
    answerWrongly(0x063E);
    EXPECT_EQ(whileOneWaitIsInVain([&] { return controller.turnOff(); }), 4);
    answerWrongly(0x063E);
    EXPECT_EQ(whileOneWaitIsInVain([&] { return controller.turnOn(); }), 4);

    expectFrames({zedtest::kPollConstellations, zedtest::kSecondPulseOffGps, zedtest::kStopAndForget,
                  zedtest::kPollSecondPulse, zedtest::kStart, zedtest::kPollConstellations, zedtest::kSecondPulseGps,
                  zedtest::kPollSecondPulse});
}

} // namespace
