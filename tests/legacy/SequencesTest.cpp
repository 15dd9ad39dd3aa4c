#include "Files.h"
#include "NeoM8tTest.h"

namespace
{

using testsupport::Lines;

const Lines kDefaultConfiguration = {
    // protocols
    "B5 62 06 00 00 00 06 18",
    "B5 62 06 00 14 00 01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 00 00 00 00 00 92 B5",
    // cable delay of 28 ns
    "B5 62 06 31 20 00 00 01 00 00 1C 00 00 00 40 42 0F 00 40 42 0F 00 00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 "
    "B4 4E",
    "B5 62 06 31 00 00 37 AB",
    // GPS only, with both time pulses
    "B5 62 06 3E 3C 00 00 20 20 07 "
    "00 10 20 00 01 00 01 00 01 00 00 00 00 00 01 00 02 00 00 00 00 00 01 00 03 00 00 00 00 00 01 00 "
    "04 00 00 00 00 00 01 00 05 00 00 00 00 00 01 00 06 00 00 00 00 00 01 00 14 53",
    "B5 62 06 31 20 00 00 01 00 00 1C 00 00 00 40 42 0F 00 40 42 0F 00 00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 "
    "B4 4E",
    "B5 62 06 31 20 00 01 01 00 00 1C 00 00 00 40 42 0F 00 40 42 0F 00 00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 "
    "B5 6E",
    "B5 62 06 3E 00 00 44 D2",
    // at least 9 dBHz
    "B5 62 06 23 28 00 02 00 08 00 00 00 00 00 00 00 00 00 09 00 00 00 00 00 00 00 00 00 00 00 "
    "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 64 F5",
    "B5 62 06 23 00 00 29 81",
    // at least 10 degrees
    "B5 62 06 24 24 00 02 00 00 00 00 00 00 00 00 00 00 00 0A 00 00 00 00 00 00 00 00 00 00 00 "
    "00 00 00 00 00 00 00 00 00 00 00 00 5A FC",
    // stationary, 3D only
    "B5 62 06 24 24 00 05 00 02 02 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
    "00 00 00 00 00 00 00 00 00 00 00 00 57 FE",
    // survey-in of three hours, 1 m
    "B5 62 06 3D 1C 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 30 2A 00 00 E8 03 00 00 A5 D6",
    "B5 62 06 3D 00 00 43 CF",
    // SBAS
    "B5 62 06 16 08 00 01 03 03 00 E9 A3 37 00 EE B4",
    // UTC standard chosen by the receiver
    "B5 62 06 24 24 00 00 04 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
    "00 00 00 00 00 00 00 00 00 00 00 00 52 50",
};

const Lines kClearPowerAndSatellites = {
    "B5 62 06 09 0D 00 1F 1E 00 00 00 00 00 00 00 00 00 00 13 6C C7",
    "B5 62 06 3B 2C 00 01 06 00 00 00 94 03 00 E8 03 00 00 10 27 00 00 00 00 00 00 00 00 00 00 "
    "2C 01 00 00 4F C1 03 00 86 02 00 00 FE 00 00 00 64 40 01 00 98 57",
    "B5 62 06 01 03 00 01 35 01 41 AD",
};

const Lines kNmeaOff = {
    "B5 62 06 01 03 00 F0 00 00 FA 0F", "B5 62 06 01 03 00 F0 01 00 FB 11", "B5 62 06 01 03 00 F0 02 00 FC 13",
    "B5 62 06 01 03 00 F0 03 00 FD 15", "B5 62 06 01 03 00 F0 04 00 FE 17", "B5 62 06 01 03 00 F0 05 00 FF 19",
    "B5 62 06 01 03 00 F0 08 00 02 1F",
};

const Lines kSave = {"B5 62 06 09 0D 00 00 00 00 00 1F 1E 00 00 00 00 00 00 13 6C D3"};

Lines joined(std::initializer_list<Lines> parts)
{
    Lines all;
    for (const Lines& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

class DefaultConfiguration : public testsupport::NeoM8tTest
{
protected:
    DefaultConfiguration()
    {
        receiver().answerWith(0x0600,
                              testsupport::bytes("01 00 00 00 C0 08 00 00 80 25 00 00 07 00 01 00 00 00 00 00"));
    }
};
class FactoryDefaults : public DefaultConfiguration
{};
class ApplicationDefaults : public testsupport::NeoM8tTest
{};

TEST_F(DefaultConfiguration, IsNineStepsInOrder)
{
    EXPECT_EQ(controller.setDefaultConfiguration(), 0);

    expectFrames(kDefaultConfiguration);
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(DefaultConfiguration, RunsAllStepsAfterOneThatFailed)
{
    receiver().keepValue(0x0631);

    EXPECT_EQ(controller.setDefaultConfiguration(), 1);

    expectFrames(kDefaultConfiguration);
}

TEST_F(DefaultConfiguration, ReportsAnyOfItsReadBacks)
{
    for (const int step : {0x0631, 0x063E, 0x0623, 0x063D}) {
        ubxsim::ReceiverSimulator other(testsupport::quietReceiver(ubxsim::Model::neoM8t));
        other.linkAt("/dev/tty_gps");
        other.keepValue(static_cast<std::uint16_t>(step));

        EXPECT_EQ(controller.setDefaultConfiguration(), 1) << std::hex << step;
    }
}

TEST_F(DefaultConfiguration, OnASilentReceiverSendsAllButTheProtocolsWrittenBack)
{
    receiver().clearFaults();
    Lines expected = kDefaultConfiguration;
    expected.erase(expected.begin() + 1);

    EXPECT_EQ(whenSilent([&] { return controller.setDefaultConfiguration(); }), 5);

    expectFrames(expected);
    EXPECT_EQ(errors(), (Lines{"Did not receive : 06 00: Port Configuration for UART/USB/SPI/DCC Port",
                               "Did not receive : 06 31: Poll Time Pulse Parameters for Time Pulse 0",
                               "Did not receive : 06 3E: GNSS system configuration",
                               "Did not receive : 06 23: Navigation Engine Expert Settings",
                               "Did not receive : 06 3D: Time Mode Settings 2"}));
}

TEST_F(DefaultConfiguration, WithoutADeviceReportsPollsAndMismatchesAndLogsEveryMessage)
{
    takeDeviceAway();

    EXPECT_EQ(controller.setDefaultConfiguration(), 9);

    EXPECT_EQ(
        errors(),
        (Lines{"Could not send : 06 00: Port Configuration for UART/USB/SPI/DCC Port",
               "Could not send : 06 31: Time Pulse Parameters",
               "Could not send : 06 31: Poll Time Pulse Parameters for Time Pulse 0",
               "Could not send : 06 3E: GNSS system configuration", "Could not send : 06 31: Time Pulse Parameters",
               "Could not send : 06 31: Time Pulse Parameters", "Could not send : 06 3E: GNSS system configuration",
               "Could not send : 06 23: Navigation Engine Expert Settings",
               "Could not send : 06 23: Navigation Engine Expert Settings",
               "Could not send : 06 24: Navigation Engine Settings",
               "Could not send : 06 24: Navigation Engine Settings", "Could not send : 06 3D: Time Mode Settings 2",
               "Could not send : 06 3D: Time Mode Settings 2", "Could not send : 06 16: SBAS Configuration",
               "Could not send : 06 24: Navigation Engine Settings"}));
}

TEST_F(FactoryDefaults, WithoutAUsbNodeSwitchNmeaOff)
{
    EXPECT_EQ(controller.resetFactoryDefaults(), 0);

    expectFrames(joined({kClearPowerAndSatellites, kNmeaOff, kDefaultConfiguration, kSave}));
}

TEST_F(FactoryDefaults, WithTheUsbNodeOfANeoM8tLeaveNmeaAlone)
{
    testsupport::write("/dev/usb-ublox-m8t", "");

    EXPECT_EQ(controller.resetFactoryDefaults(), 0);

    expectFrames(joined({kClearPowerAndSatellites, kDefaultConfiguration, kSave}));
}

TEST_F(FactoryDefaults, WithTheUsbNodeOfAZedF9tLeaveNmeaAlone)
{
    testsupport::write("/dev/usb-ublox-f9t", "");

    EXPECT_EQ(controller.resetFactoryDefaults(), 0);

    expectFrames(joined({kClearPowerAndSatellites, kDefaultConfiguration, kSave}));
}

TEST_F(FactoryDefaults, RunAllStepsAfterOneThatFailed)
{
    receiver().keepValue(0x0623);
    receiver().keepValue(0x063D);

    EXPECT_EQ(controller.resetFactoryDefaults(), 1);

    expectFrames(joined({kClearPowerAndSatellites, kNmeaOff, kDefaultConfiguration, kSave}));
}

TEST_F(FactoryDefaults, OnASilentReceiverCombineNoReplyAndMismatch)
{
    EXPECT_EQ(whenSilent([&] { return controller.resetFactoryDefaults(); }), 5);
}

TEST_F(ApplicationDefaults, AreThreeStepsInOrder)
{
    EXPECT_EQ(controller.setApplicationDefaults(), 0);

    expectFrames({
        "B5 62 06 16 08 00 01 03 03 00 E9 A3 37 00 EE B4",
        "B5 62 06 24 24 00 05 00 00 03 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
        "00 00 00 00 00 00 00 00 00 00 00 00 56 DB",
        "B5 62 06 24 24 00 00 04 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
        "00 00 00 00 00 00 00 00 00 00 00 00 52 50",
    });
}

TEST_F(ApplicationDefaults, WithoutADeviceReturnSuccessAndLogEachStep)
{
    takeDeviceAway();

    EXPECT_EQ(controller.setApplicationDefaults(), 0);

    EXPECT_EQ(errors(),
              (Lines{"Could not send : 06 16: SBAS Configuration", "Could not send : 06 24: Navigation Engine Settings",
                     "Could not send : 06 24: Navigation Engine Settings"}));
}

} // namespace
