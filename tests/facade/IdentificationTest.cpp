// Which receiver is found, and what that leaves in the process and in the chip-info file.

#include <UBXMessage.h>
#include <ubloxChipInfo.h>

#include <ctime>
#include <regex>

#include <gtest/gtest.h>
#include <unistd.h>

#include "CapturedOutput.h"
#include "FacadeTest.h"

using namespace testsupport;

namespace
{

using Identification = FacadeTest;
using IdentificationOfAZedF9t = FacadeOnZedF9t;
using SilentReceiver = FacadeTest;
using MissingDevice = FacadeTest;

constexpr const char* kMinCNoByKey = "B5 62 06 8B 08 00 00 00 00 00 A3 00 11 20 6D 5F";
constexpr const char* kMinCNoByLegacyMessage = "B5 62 06 23 00 00 29 81";

TEST_F(Identification, FindsANeoM8t)
{
    receiver();

    const auto controller = facade();

    EXPECT_TRUE(controller->isNeoM8t());
    EXPECT_FALSE(controller->isZedF9t());
    EXPECT_EQ(chipInfoFile(), (Lines{"UBLOX_Chip=NEOM8T", "UBLOX_HwVer=00080000", "UBLOX_SwVer=TIM 1.10",
                                     "UBLOX_ProtVer=22.00", "UBLOX_ModName=NEO-M8T-0"}));
}

TEST_F(IdentificationOfAZedF9t, FindsIt)
{
    receiver();

    const auto controller = facade();

    EXPECT_TRUE(controller->isZedF9t());
    EXPECT_FALSE(controller->isNeoM8t());
    EXPECT_EQ(chipInfoFile(), (Lines{"UBLOX_Chip=ZEDF9T", "UBLOX_HwVer=00190000", "UBLOX_SwVer=TIM 2.20",
                                     "UBLOX_ProtVer=29.20", "UBLOX_ModName=ZED-F9T"}));
    EXPECT_EQ(ubloxChipInfo::getUbloxChipName(), "ZEDF9T");
    EXPECT_EQ(ubloxChipInfo::getUbloxHwVer(), "00190000");
    EXPECT_EQ(ubloxChipInfo::getUbloxSwVer(), "TIM 2.20");
    EXPECT_EQ(ubloxChipInfo::getUbloxProtVer(), "29.20");
    EXPECT_EQ(ubloxChipInfo::getUbloxModeName(), "ZED-F9T");
}

TEST_F(Identification, TalksToANeoM8tInLegacyMessages)
{
    receiver();
    const auto controller = facade();
    takeFrames();

    signed char minCNo = 0;
    EXPECT_EQ(controller->getMinCNo(minCNo), 0);

    expectFrames({kMinCNoByLegacyMessage});
}

TEST_F(IdentificationOfAZedF9t, BeginsInConfigurationInterfaceMode)
{
    receiver();
    const auto controller = facade();
    takeFrames();

    signed char minCNo = 0;
    EXPECT_EQ(controller->getMinCNo(minCNo), 0);

    expectFrames({kMinCNoByKey});
}

TEST_F(IdentificationOfAZedF9t, HandsTheFirmwareVersionToTheController)
{
    receiver();
    const auto controller = facade();

    EXPECT_EQ(controller->setRxMode("CONTINUOUS"), 0);

    EXPECT_EQ(log("/var/log/rxtool-zedf9t-errors.log"), (Lines{"It is not supported by the current firmware."}))
        << "2.20 or later has no power modes";
}

TEST_F(Identification, TakesAnyOtherHardwareVersionForANeoM8t)
{
    for (const char* hardware : {"00080000", "00190001", "00070000", "", "0019000", "00190000 "}) {
        std::filesystem::remove(kChipInfoFile);
        receiver().clearFaults();
        receiver().answerWith(0x0A04, versionRecord("EXT CORE", hardware, {"FWVER=TIM 9.99", "MOD=X", "end"}));

        const auto controller = facade();

        EXPECT_FALSE(controller->isZedF9t()) << hardware;
        EXPECT_EQ(chipInfoFile().at(0), "UBLOX_Chip=NEOM8T") << hardware;
        EXPECT_EQ(ubloxChipInfo::getUbloxChipName(), "NEOM8T") << hardware;
        EXPECT_EQ(controller->isNeoM8t(), std::string(hardware) == "00080000") << hardware;
    }
}

TEST_F(Identification, KeepsTheVersionsOfAReceiverThatItDoesNotKnow)
{
    receiver().answerWith(0x0A04, versionRecord("EXT CORE", "00070000", {"FWVER=SPG 1.00", "MOD=NEO-7M", "end"}));

    facade();

    EXPECT_EQ(chipInfoFile(), (Lines{"UBLOX_Chip=NEOM8T", "UBLOX_HwVer=", "UBLOX_SwVer=SPG 1.00",
                                     "UBLOX_ProtVer=", "UBLOX_ModName=NEO-7M"}));
}

TEST_F(Identification, DoesNotSeeTheModuleWhenItsFieldIsTheLast)
{
    receiver().answerWith(0x0A04,
                          versionRecord("EXT CORE", "00080000", {"FWVER=TIM 1.10", "PROTVER=22.00", "MOD=NEO-M8T-0"}));

    facade();

    EXPECT_EQ(chipInfoFile(), (Lines{"UBLOX_Chip=NEOM8T", "UBLOX_HwVer=00080000", "UBLOX_SwVer=TIM 1.10",
                                     "UBLOX_ProtVer=22.00", "UBLOX_ModName="}));
}

TEST_F(Identification, WaitsTheWholeLimitForAGoodRecordAfterADamagedOne)
{
    receiver().corruptChecksum(0x0A04);
    const CapturedOutput errors(STDERR_FILENO);

    const auto controller = withBriskClock(facade);

    EXPECT_TRUE(controller->isNeoM8t());
    EXPECT_NE(errors.text().find("ubxIO::ReceiveMessage Errored messages returned from u-blox.\n"), std::string::npos);
    EXPECT_NE(errors.text().find("ubxIO::ReceiveMessage Timed out waiting for rx from u-blox.\n"), std::string::npos);
}

TEST_F(Identification, FindsAReceiverThatAnswersInSingleBytes)
{
    receiver().answerInPieces(0x0A04, 1, std::chrono::microseconds(0));
    receiver().answerInPieces(0x0600, 1, std::chrono::microseconds(0));

    EXPECT_TRUE(facade()->isNeoM8t());
}

TEST_F(Identification, FindsAReceiverWhoseAnswersDrownInNmea)
{
    std::string sentences;
    while (sentences.size() < 8192)
        sentences += "$GNZDA,031407.00,21,11,2026,00,00*7B\r\n";
    for (const UBXMessageClassIdValues answer : {UBX_CFG_PRT, UBX_MON_VER}) {
        receiver().precedeWith(answer, Bytes(sentences.begin(), sentences.end()));
        receiver().answerInPieces(answer, 256, std::chrono::milliseconds(4)); // as a line does, not all at once
    }

    EXPECT_TRUE(facade()->isNeoM8t());
}

TEST_F(Identification, FindsAReceiverThatMissedTheFirstTwoPolls)
{
    receiver().ignore(0x0A04, 2);

    EXPECT_TRUE(facade()->isNeoM8t());
}

TEST_F(IdentificationOfAZedF9t, WorksWhenThePortCanNotBeSetUp)
{
    receiver().ignore(0x0600);

    EXPECT_TRUE(withBriskClock(facade)->isZedF9t());
}

TEST_F(SilentReceiver, CountsAsANeoM8tWithoutVersions)
{
    const auto controller = whenSilent(facade);

    EXPECT_FALSE(controller->isZedF9t());
    EXPECT_FALSE(controller->isNeoM8t()) << "no hardware version is known";
    EXPECT_EQ(slurp(kChipInfoFile), "UBLOX_Chip=NEOM8T\nUBLOX_HwVer=\nUBLOX_SwVer=\nUBLOX_ProtVer=\nUBLOX_ModName=\n");
    EXPECT_EQ(ubloxChipInfo::getUbloxChipName(), "NEOM8T");
    EXPECT_EQ(ubloxChipInfo::getUbloxHwVer(), "");
    EXPECT_EQ(ubloxChipInfo::getUbloxSwVer(), "");
    EXPECT_EQ(ubloxChipInfo::getUbloxProtVer(), "");
    EXPECT_EQ(ubloxChipInfo::getUbloxModeName(), "");
}

TEST_F(SilentReceiver, IsPolledForThePortOnceAndForTheVersionThreeTimes)
{
    whenSilent(facade);

    expectFrames({kPortPoll, kVersionPoll, kVersionPoll, kVersionPoll});
}

TEST_F(SilentReceiver, IsGivenFiveAndFourSecondsToAnswer)
{
    silence();
    const double seconds = withBriskClock([] {
        const std::time_t begin = std::time(nullptr);
        facade();
        return std::difftime(std::time(nullptr), begin);
    });

    EXPECT_GE(seconds, 8) << "two waits by whole seconds: up to a second less each";
    EXPECT_LE(seconds, 12);
}

TEST_F(SilentReceiver, IsLoggedWithTheTextsAsTheirReadersKnowThem)
{
    whenSilent(facade);

    EXPECT_EQ(facadeErrors(), (Lines{"Could not send : 06 00: Port Configuration for UART/USB/SPI/DCC Port",
                                     "Did not receive : 0A 04: Poll Receiver/Software Version"}));
}

TEST_F(SilentReceiver, IsLoggedWithATimeStampAlthoughThereIsNoModelYet)
{
    whenSilent(facade);

    const Lines all = lines("/var/log/rxtool-errors.log");
    ASSERT_EQ(all.size(), 2U);
    for (const std::string& line : all) {
        EXPECT_TRUE(std::regex_match(line, std::regex("([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9]_[0-9]{3}:  [CD].*")))
            << line;
    }
}

TEST_F(SilentReceiver, MakesEveryQueryReportThatNoReplyCame)
{
    const auto controller = whenSilent(facade);

    int number = 17;
    std::string text = "as before";
    EXPECT_EQ(withFastClock([&] { return controller->getAntennaDelay(number); }), 4);
    EXPECT_EQ(withFastClock([&] { return controller->getNavsolution("ALL", text); }), 4);

    EXPECT_EQ(number, 17);
    EXPECT_EQ(text, "as before");
    EXPECT_EQ(log("/var/log/rxtool-neom8t-errors.log"),
              (Lines{"Did not receive : 06 31: Poll Time Pulse Parameters for Time Pulse 0",
                     "Did not receive : 01 07: Navigation Position Velocity Time Solution"}));
}

TEST_F(MissingDevice, CountsAsANeoM8tAtOnce)
{
    const CapturedOutput errors(STDERR_FILENO);
    const std::time_t begin = std::time(nullptr);

    ubxController controller;

    EXPECT_LE(std::difftime(std::time(nullptr), begin), 1);
    EXPECT_FALSE(controller.isZedF9t());
    EXPECT_EQ(slurp(kChipInfoFile), "UBLOX_Chip=NEOM8T\nUBLOX_HwVer=\nUBLOX_SwVer=\nUBLOX_ProtVer=\nUBLOX_ModName=\n");
    EXPECT_EQ(errors.text(), "Could not open tty_gps, cannot communicate with the ublox device.\n"
                             "Cannot send message to the ublox, the device is not open!\n"
                             "Could not open tty_gps, cannot communicate with the ublox device.\n"
                             "Cannot send message to the ublox, the device is not open!\n"
                             "Cannot send message to the ublox, the device is not open!\n"
                             "Cannot send message to the ublox, the device is not open!\n");
}

TEST_F(MissingDevice, IsLoggedWithTheTextsAsTheirReadersKnowThem)
{
    const CapturedOutput errors(STDERR_FILENO);

    ubxController controller;

    EXPECT_EQ(facadeErrors(), (Lines{"Did not receive : 06 00: Port Configuration for UART/USB/SPI/DCC Port",
                                     "Could not send : 0A 04: Poll Receiver/Software Version"}));
}

TEST_F(MissingDevice, IsLoggedWithTheTimeStampOfTheFacadeThatFailed)
{
    class AtNoon : public ubxController
    {
    public:
        std::string timeStamp() override { return "12:00:00_000: "; }
    };
    const CapturedOutput errors(STDERR_FILENO);
    AtNoon controller;

    EXPECT_EQ(controller.configuraProtocolsDefault(), 8);

    EXPECT_EQ(lines("/var/log/rxtool-errors.log").back(),
              "12:00:00_000:  Did not receive : 06 00: Port Configuration for UART/USB/SPI/DCC Port");
}

TEST_F(MissingDevice, MakesQueriesReportThatTheyWereNotSentAndCommandsOnlyLog)
{
    const CapturedOutput errors(STDERR_FILENO);
    ubxController controller;

    unsigned char degrees = 33;
    EXPECT_EQ(controller.getElevationLimit(degrees), 8);
    EXPECT_EQ(controller.save(), 0);

    EXPECT_EQ(degrees, 33);
    EXPECT_EQ(log("/var/log/rxtool-neom8t-errors.log"),
              (Lines{"Could not send : 06 24: Navigation Engine Settings",
                     "Could not send : 06 09: Clear, Save and Load configurations"}));
}

TEST_F(MissingDevice, CanComeLaterAndBeIdentifiedThen)
{
    std::unique_ptr<ubxController> controller;
    {
        const CapturedOutput errors(STDERR_FILENO);
        controller = std::make_unique<ubxController>();
    }
    receiver();

    controller->checkUbloxCheckId();

    EXPECT_TRUE(controller->isNeoM8t());
}

} // namespace
