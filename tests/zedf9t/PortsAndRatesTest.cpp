// What a ZED-F9T puts out and how it runs: port protocols, message rates, SBAS, power, and two diagnostics.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "Files.h"
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

// None of these operations looks at the mode.
class PortsAndRates : public ZedF9tTest, public testing::WithParamInterface<bool>
{
protected:
    PortsAndRates()
    {
        receiver();
        controller.setZedf9tConfigurationInterfaceMode(GetParam());
    }

    ubxController_ZEDF9T older{zedtest::kVersion2_13, GetParam()};
};

INSTANTIATE_TEST_SUITE_P(InEitherMode, PortsAndRates, testing::Values(kByKey, kLegacy),
                         [](const auto& mode) { return std::string(mode.param ? "ByKey" : "Legacy"); });

// UART 1 at 38400, every protocol in, UBX, NMEA and RTCM3 out; the last bytes are there to be seen again.
constexpr const char* kPort = "01 00 00 00 C0 08 00 00 00 96 00 00 27 01 23 02 03 04 05 06";

TEST_P(PortsAndRates, ConfigureProtocolsWritesTheReplyBackForUsbWhenThereIsNoUsbNode)
{
    answer(0x0600, kPort);

    EXPECT_EQ(controller.configureProtocols(), 0);

    expectFrames(
        {zedtest::kPollPort, "B5 62 06 00 14 00 03 00 00 00 C0 08 00 00 00 96 00 00 03 01 03 02 03 04 05 06 96 D1"});
    EXPECT_EQ(log(), Lines{});
}

TEST_P(PortsAndRates, ConfigureProtocolsKeepsThePortWhenThereIsAUsbNode)
{
    plugIntoUsb();
    answer(0x0600, kPort);

    EXPECT_EQ(controller.configureProtocols(), 0);

    expectFrames(
        {zedtest::kPollPort, "B5 62 06 00 14 00 01 00 00 00 C0 08 00 00 00 96 00 00 03 01 03 02 03 04 05 06 94 A9"});
}

TEST_P(PortsAndRates, ConfigureProtocolsWritesAShortReplyBackAtItsOwnLength)
{
    const struct
    {
        const char* reply;
        const char* writtenBack;
    } rows[] = {
        {"", zedtest::kPollPort}, // which is a poll again
        {"01", "B5 62 06 00 01 00 03 0A 24"},
        {"01 00 00 00 C0 08 00 00 00 96 00 00", "B5 62 06 00 0C 00 03 00 00 00 C0 08 00 00 00 96 00 00 73 26"},
        {"01 00 00 00 C0 08 00 00 00 96 00 00 27", "B5 62 06 00 0D 00 03 00 00 00 C0 08 00 00 00 96 00 00 03 77 AB"},
        {"01 00 00 00 C0 08 00 00 00 96 00 00 27 01 23",
         "B5 62 06 00 0F 00 03 00 00 00 C0 08 00 00 00 96 00 00 03 01 03 7D C0"},
    };
    for (const auto& row : rows) {
        receiver().clearFaults();
        answer(0x0600, row.reply);

        EXPECT_EQ(controller.configureProtocols(), 0);

        expectFrames({zedtest::kPollPort, row.writtenBack});
    }
    EXPECT_EQ(log(), Lines{});
}

TEST_P(PortsAndRates, ConfigureProtocolsReports4AndLogsWhenNoReplyComes)
{
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(whenSilent([&] { return controller.configureProtocols(); }), 4);

    expectFrames({zedtest::kPollPort});
    EXPECT_EQ(log(), Lines{"Did not receive : 06 00: Port Configuration for UART/USB/SPI/DCC Port"});
}

TEST_P(PortsAndRates, ConfigureProtocolsReports8AndLogsWhenThePollIsNotWritten)
{
    const writecalls::Failure failure(zedtest::kPollPort);

    EXPECT_EQ(controller.configureProtocols(), 8);

    expectNoFrames();
    EXPECT_EQ(log(), Lines{"Could not send : 06 00: Port Configuration for UART/USB/SPI/DCC Port"});
}

TEST_P(PortsAndRates, ConfigureProtocolsReports8AndLogsWhenTheSettingsAreNotWrittenBack)
{
    answer(0x0600, kPort);
    const writecalls::Failure failure(
        "B5 62 06 00 14 00 03 00 00 00 C0 08 00 00 00 96 00 00 03 01 03 02 03 04 05 06 96 D1");

    EXPECT_EQ(controller.configureProtocols(), 8);

    expectFrames({zedtest::kPollPort});
    EXPECT_EQ(log(), Lines{"Could not send : 06 00: Port Configuration for UART/USB/SPI/DCC Port"});
}

TEST_P(PortsAndRates, ConfigureUbxPollingSetsItemsWhenThereIsNoUsbNode)
{
    EXPECT_EQ(controller.configureUbxPolling(1), 0);
    EXPECT_EQ(controller.configureUbxPolling(255), 0);

    expectFrames({"B5 62 06 8A 2C 00 "
                  "00 01 00 00 "
                  "47 00 91 20 01 5B 00 91 20 01 15 00 91 20 01 45 03 91 20 01 "
                  "06 00 91 20 01 1A 00 91 20 01 B4 01 91 20 01 97 00 91 20 01 "
                  "B8 87",
                  "B5 62 06 8A 2C 00 "
                  "00 01 00 00 "
                  "47 00 91 20 FF 5B 00 91 20 FF 15 00 91 20 FF 45 03 91 20 FF "
                  "06 00 91 20 FF 1A 00 91 20 FF B4 01 91 20 FF 97 00 91 20 FF "
                  "A8 5F"});
}

TEST_P(PortsAndRates, ConfigureUbxPollingSendsSixRatesWhenThereIsAUsbNode)
{
    plugIntoUsb();

    EXPECT_EQ(controller.configureUbxPolling(5), 0);

    expectFrames({"B5 62 06 01 03 00 01 20 00 2B 82", "B5 62 06 01 03 00 01 07 00 12 50",
                  "B5 62 06 01 03 00 01 06 00 11 4E", "B5 62 06 01 03 00 0D 04 00 1B 6E",
                  "B5 62 06 01 03 00 01 35 05 45 B1", "B5 62 06 01 03 00 01 43 05 53 CD"});
}

TEST_P(PortsAndRates, ConfigureUbxPollingGoesByTheOtherUsbNodeToo)
{
    testsupport::write("/dev/usb-ublox-m8t", "");

    EXPECT_EQ(controller.configureUbxPolling(1), 0);

    EXPECT_EQ(takeFrames().size(), 6U);
}

TEST_P(PortsAndRates, ConfigureNmeaPollingOf0TurnsSevenSentencesOff)
{
    EXPECT_EQ(controller.configureNmeaPolling(0), 0);

    expectFrames({"B5 62 06 01 03 00 F0 00 00 FA 0F", "B5 62 06 01 03 00 F0 01 00 FB 11",
                  "B5 62 06 01 03 00 F0 02 00 FC 13", "B5 62 06 01 03 00 F0 03 00 FD 15",
                  "B5 62 06 01 03 00 F0 04 00 FE 17", "B5 62 06 01 03 00 F0 05 00 FF 19",
                  "B5 62 06 01 03 00 F0 08 00 02 1F"});
}

TEST_P(PortsAndRates, ConfigureNmeaPollingSendsItsRate)
{
    EXPECT_EQ(controller.configureNmeaPolling(2), 0);

    expectFrames({"B5 62 06 01 03 00 F0 00 02 FC 11", "B5 62 06 01 03 00 F0 01 02 FD 13",
                  "B5 62 06 01 03 00 F0 02 02 FE 15", "B5 62 06 01 03 00 F0 03 02 FF 17",
                  "B5 62 06 01 03 00 F0 04 02 00 19", "B5 62 06 01 03 00 F0 05 02 01 1B",
                  "B5 62 06 01 03 00 F0 08 02 04 21"});
}

TEST_P(PortsAndRates, ConfigurNmeaPollingPartialSendsTwoRatesWithAndWithoutAUsbNode)
{
    EXPECT_EQ(controller.configurNmeaPollingPartial(3), 0);
    plugIntoUsb();
    EXPECT_EQ(controller.configurNmeaPollingPartial(3), 0);

    expectFrames({"B5 62 06 01 03 00 F0 02 03 FF 16", "B5 62 06 01 03 00 F0 03 03 00 18",
                  "B5 62 06 01 03 00 F0 02 03 FF 16", "B5 62 06 01 03 00 F0 03 03 00 18"});
}

TEST_P(PortsAndRates, RatesCountAsSetWhenTheyCouldNotBeWritten)
{
    const writecalls::Failure failure("B5 62 06 01 03 00 F0 02 03 FF 16");

    EXPECT_EQ(controller.configurNmeaPollingPartial(3), 0);

    expectFrames({"B5 62 06 01 03 00 F0 03 03 00 18"});
    EXPECT_EQ(log(), Lines{"Could not send : 06 01: Set Message Rate"});
}

TEST_P(PortsAndRates, CreateMessageRateByClassIdMessageForNavPvtAndRate1)
{
    const UBXMessage message = controller.createMessageRateByClassIDMessage(0x0107, 1);

    EXPECT_EQ(message.getClassId(), 0x0601);
    ASSERT_EQ(message.getPayloadLength(), 3U);
    EXPECT_EQ(message.getByte(0), 0x01);
    EXPECT_EQ(message.getByte(1), 0x07);
    EXPECT_EQ(message.getByte(2), 0x01);
}

TEST_P(PortsAndRates, ConfigureSbas)
{
    EXPECT_EQ(controller.configureSBAS(), 0);

    expectFrames({zedtest::kSbas});
}

TEST_P(PortsAndRates, ExtendedPowerManagementIsSentToOlderFirmware)
{
    ubxController_ZEDF9T unknown("EXT CORE 1.00", GetParam());

    EXPECT_EQ(older.configExtendedPowerManagment(), 0);
    EXPECT_EQ(unknown.configExtendedPowerManagment(), 0);

    expectFrames({zedtest::kPowerManagement, zedtest::kPowerManagement});
    EXPECT_EQ(log(), Lines{});
}

TEST_P(PortsAndRates, ExtendedPowerManagementFromTim2_20OnSendsNothingAndLogsOneLine)
{
    EXPECT_EQ(controller.configExtendedPowerManagment(), 0);

    expectNoFrames();
    EXPECT_EQ(log(), Lines{"It is not supported by the current firmware."});
}

TEST_P(PortsAndRates, RxModeIsWrittenIntoWhatOlderFirmwareReplies)
{
    answer(0x0611, "48 07");

    EXPECT_EQ(older.setRxMode("CONTINUOUS"), 0);
    EXPECT_EQ(older.setRxMode("POWERSAVE"), 0);
    EXPECT_EQ(older.setRxMode("ECO"), 0);

    expectFrames({zedtest::kPollPowerMode, "B5 62 06 11 02 00 48 00 61 11", zedtest::kPollPowerMode,
                  "B5 62 06 11 02 00 48 01 62 12", zedtest::kPollPowerMode, "B5 62 06 11 02 00 48 04 65 15"});
}

TEST_P(PortsAndRates, RxModeTakesItsWordsExactly)
{
    for (const char* const mode : {"eco", "Continuous", "", "POWERSAVE ", "AUTO"})
        EXPECT_EQ(older.setRxMode(mode), 1) << mode;

    expectNoFrames();
    EXPECT_EQ(log(), Lines{});
}

TEST_P(PortsAndRates, RxModeOfOlderFirmwareIsReadFromItsSecondByte)
{
    const struct
    {
        const char* reply;
        const char* mode;
    } rows[] = {{"48 00", "CONTINUOUS"}, {"48 01", "POWERSAVE"}, {"48 04", "ECO"},  {"00 02", "before"},
                {"01 FF", "before"},     {"01", "CONTINUOUS"},   {"", "CONTINUOUS"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.reply);
        answer(0x0611, row.reply, 1);
        std::string mode = "before";

        EXPECT_EQ(older.getRxMode(mode), 0);

        EXPECT_EQ(mode, row.mode);
        expectFrames({zedtest::kPollPowerMode});
    }
}

TEST_P(PortsAndRates, RxModeThatNoReplyTellsReports4AndLogs)
{
    std::string mode = "before";
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(whenSilent([&] { return older.setRxMode("ECO"); }), 4);
    EXPECT_EQ(whenSilent([&] { return older.getRxMode(mode); }), 4);

    EXPECT_EQ(mode, "before");
    expectFrames({zedtest::kPollPowerMode, zedtest::kPollPowerMode});
    EXPECT_EQ(log(), Lines(2, "Did not receive : 06 11: RXM Configuration"));
}

TEST_P(PortsAndRates, RxModeWhosePollIsNotWrittenReports8AndLogs)
{
    std::string mode = "before";
    {
        const writecalls::Failure failure(zedtest::kPollPowerMode);
        EXPECT_EQ(older.setRxMode("ECO"), 8);
    }
    {
        const writecalls::Failure failure(zedtest::kPollPowerMode);
        EXPECT_EQ(older.getRxMode(mode), 8);
    }

    EXPECT_EQ(mode, "before");
    expectNoFrames();
    EXPECT_EQ(log(), Lines(2, "Could not send : 06 11: RXM Configuration"));
}

TEST_P(PortsAndRates, RxModeFromTim2_20OnSendsNothingAndLogsOneLine)
{
    std::string mode = "before";

    EXPECT_EQ(controller.setRxMode("ECO"), 0);
    EXPECT_EQ(log(), Lines{"It is not supported by the current firmware."});
    EXPECT_EQ(controller.setRxMode("no word"), 0); // the firmware is looked at first
    EXPECT_EQ(controller.getRxMode(mode), 0);

    EXPECT_EQ(mode, "before");
    EXPECT_EQ(log(), Lines(3, "It is not supported by the current firmware."));
    expectNoFrames();
}

TEST_P(PortsAndRates, ProgramGroupDelayCalSendsASettingUnderTheClassAndIdOfAPoll)
{
    EXPECT_EQ(controller.programGroupDelayCal(1234), 0);
    EXPECT_EQ(controller.programGroupDelayCal(-2), 0);

    expectFrames({"B5 62 06 8B 0C 00 00 01 00 00 06 00 05 40 D2 04 00 00 BF 1A",
                  "B5 62 06 8B 0C 00 00 01 00 00 06 00 05 40 FE FF FF FF E4 B8"});
}

TEST_P(PortsAndRates, ProgramGroupDelayCalCountsAsDoneWhenItCouldNotBeWritten)
{
    const writecalls::Failure failure("B5 62 06 8B 0C 00 00 01 00 00 06 00 05 40 D2 04 00 00 BF 1A");

    EXPECT_EQ(controller.programGroupDelayCal(1234), 0);

    EXPECT_EQ(log(), Lines{"Could not send : 06 8B: Configuration Items"});
}

TEST_P(PortsAndRates, NothingIsDoneByInitAntennaPowerAndTheModeItself)
{
    EXPECT_EQ(controller.Init(), 0);
    EXPECT_EQ(controller.setAntennaPower("ON"), 0);
    EXPECT_EQ(controller.setAntennaPower("no word"), 0);
    EXPECT_EQ(controller.setZedf9tConfigurationInterfaceMode(true), 0);

    expectNoFrames();
    EXPECT_EQ(log(), Lines{});
}

} // namespace
