// What the constructor does with the board and the receiver.

#include <ubloxChipInfo.h>

#include <gtest/gtest.h>
#include <unistd.h>

#include "CapturedOutput.h"
#include "FacadeTest.h"

using namespace testsupport;
using ubxplatform::InventoryCall;

namespace
{

using StartUp = FacadeTest;
using BoardChoice = FacadeTest;

constexpr const char* kVrbBus = "/dev/i2c-5";
constexpr const char* kKtbBus = "/dev/i2c-13";

/// Which expander got transfers: that of the first board family, of the second, or none.
std::string busOfTransfers()
{
    const auto all = ubxplatform::transfers();
    return all.empty() ? "none" : all.front().bus;
}

void haveHardwareId(const std::string& text)
{
    ubxplatform::putModule(1, {{{"HardwareSetId", text}}, "i2c-5", "spidev1.0", {}});
}

TEST_F(StartUp, AsksTheInventoryForTheBoardAndThenForItsBus)
{
    receiver();

    facade();

    EXPECT_EQ(ubxplatform::inventoryCalls(),
              (Lines{"connect inventory", "GetModuleLocations", "connect resources", "SetupDeviceAddress 1",
                     "GetSystemRecord HardwareSetId", "connect inventory", "GetModuleLocations", "connect resources",
                     "SetupDeviceAddress 1", "GetI2CBus"}));
    EXPECT_EQ(ubxplatform::liveClients(), 0);
}

TEST_F(StartUp, ReleasesTheReceiverFromResetAndDoesNothingElseToTheBoard)
{
    ubxplatform::setExpanderRegister(kVrbBus, 0x21, 2, 0x12);
    ubxplatform::setExpanderRegister(kVrbBus, 0x21, 3, 0x44);
    receiver();

    facade();

    EXPECT_EQ(transfers(), (Lines{
                               "/dev/i2c-5 0x21 open",
                               "/dev/i2c-5 0x21 read 06 -> FF FF",
                               "/dev/i2c-5 0x21 write 06 FF DF",
                               "/dev/i2c-5 0x21 read 02 -> 12 44",
                               "/dev/i2c-5 0x21 write 02 12 64",
                               "/dev/i2c-5 0x21 close",
                           }));
    EXPECT_TRUE(ubxplatform::gpioChanges().empty());
}

TEST_F(StartUp, PollsThePortWritesItBackAndPollsTheVersionThreeTimes)
{
    receiver().answerWith(0x0600, bytes("01 00 00 00 C0 08 00 00 80 25 00 00 07 00 21 01 02 00 00 00"), 1);

    facade();

    expectFrames({
        "B5 62 06 00 00 00 06 18",
        "B5 62 06 00 14 00 01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 01 02 00 00 00 95 C2",
        "B5 62 0A 04 00 00 0E 34",
        "B5 62 0A 04 00 00 0E 34",
        "B5 62 0A 04 00 00 0E 34",
    });
}

TEST_F(StartUp, PrintsNothingAndLogsNothingWhenAllIsWell)
{
    receiver();
    const CapturedOutput output(STDOUT_FILENO);
    const CapturedOutput errors(STDERR_FILENO);

    facade();

    EXPECT_EQ(output.text(), "");
    EXPECT_EQ(errors.text(), "");
    EXPECT_EQ(facadeErrors(), Lines{});
    EXPECT_TRUE(std::filesystem::exists("/var/log/rxtool-errors.log")) << "opened all the same";
}

TEST_F(StartUp, AppendsToTheErrorLogOfEarlierProcesses)
{
    testsupport::write("/var/log/rxtool-errors.log", "08:15:00_001:  an earlier line\n");
    receiver().ignore(0x0600);

    withBriskClock(facade);

    EXPECT_EQ(facadeErrors(),
              (Lines{"an earlier line", "Could not send : 06 00: Port Configuration for UART/USB/SPI/DCC Port"}));
}

TEST_F(StartUp, WorksWithoutAPlaceForItsLogs)
{
    std::filesystem::create_directory("/var/log/rxtool-errors.log");
    std::filesystem::create_directory("/var/log/rxtool-neom8t-errors.log");

    const auto controller = whenSilent(facade);

    EXPECT_FALSE(controller->isZedF9t());
}

TEST_F(StartUp, KeepsNoDeviceOpen)
{
    receiver();
    const std::size_t before = openDescriptors();
    {
        const auto controller = facade();
        EXPECT_EQ(openDescriptors(), before + 2) << "the two error logs";
    }

    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(StartUp, FillsTheRecordOfTheChip)
{
    receiver();

    facade();

    EXPECT_EQ(ubloxChipInfo::getUbloxChipName(), "NEOM8T");
    EXPECT_EQ(ubloxChipInfo::getUbloxHwVer(), "00080000");
    EXPECT_EQ(ubloxChipInfo::getUbloxSwVer(), "TIM 1.10");
    EXPECT_EQ(ubloxChipInfo::getUbloxProtVer(), "22.00");
    EXPECT_EQ(ubloxChipInfo::getUbloxModeName(), "NEO-M8T-0");
}

TEST_F(BoardChoice, ThePartNumber90000014BetweenOtherTextMeansTheFirstFamily)
{
    receiver();
    for (const char* id : {"90000014-001", "part 90000014-001 Rev C", "x90000014-001y", "90000011-001/90000014-001"}) {
        ubxplatform::reset();
        haveHardwareId(id);

        facade();

        EXPECT_EQ(busOfTransfers(), kVrbBus) << id;
        EXPECT_EQ(ubxplatform::expanderRegister(kVrbBus, 0x21, 7), 0xDF) << id;
    }
}

TEST_F(BoardChoice, AnyOtherPartNumberMeansTheSecondFamily)
{
    receiver();
    for (const char* id :
         {"90000011-001", "90000012-001", "90000013-001", "90000014-002", "9000014-001", "90000014", "unknown", " "}) {
        ubxplatform::reset();
        haveHardwareId(id);

        facade();

        EXPECT_EQ(transfers(), (Lines{
                                   "/dev/i2c-13 0x21 open",
                                   "/dev/i2c-13 0x21 read 06 -> FF FF",
                                   "/dev/i2c-13 0x21 write 06 7F FF",
                                   "/dev/i2c-13 0x21 read 02 -> FF FF",
                                   "/dev/i2c-13 0x21 write 02 FF FF",
                                   "/dev/i2c-13 0x21 close",
                               }))
            << id;
    }
}

TEST_F(BoardChoice, AnEmptyHardwareIdMeansTheSecondFamily)
{
    receiver();
    haveHardwareId("");

    facade();

    EXPECT_EQ(busOfTransfers(), kKtbBus);
}

TEST_F(BoardChoice, AMissingRecordMeansTheSecondFamily)
{
    receiver();
    ubxplatform::putModule(1, {{}, "i2c-5", "", {}});

    facade();

    EXPECT_EQ(busOfTransfers(), kKtbBus);
}

TEST_F(BoardChoice, AnInventoryWithoutModulesMeansTheSecondFamily)
{
    receiver();
    ubxplatform::removeAllModules();

    const auto controller = facade();

    EXPECT_EQ(busOfTransfers(), kKtbBus);
    EXPECT_TRUE(controller->isNeoM8t());
}

TEST_F(BoardChoice, TheIdOfAnotherModuleDoesNotCount)
{
    receiver();
    haveHardwareId("90000011-001");
    ubxplatform::putModule(2, {{{"HardwareSetId", "90000014-001"}}, "i2c-5", "", {}});

    facade();

    EXPECT_EQ(busOfTransfers(), kKtbBus);
}

TEST_F(StartUp, GoesOnWhenTheExpanderCanNotBeOpened)
{
    receiver();
    ubxplatform::removeBus(kVrbBus);

    const auto controller = facade();

    EXPECT_TRUE(controller->isNeoM8t());
    EXPECT_EQ(chipInfoFile().size(), 5U);
}

TEST_F(StartUp, GoesOnWhenTheExpanderDoesNotAnswer)
{
    receiver();
    ubxplatform::detachExpander(kVrbBus, 0x21);

    const auto controller = facade();

    EXPECT_TRUE(controller->isNeoM8t());
}

/// What the inventory's services throw leaves the constructor, which has done nothing to the receiver then.
class StartUpWithADeadService : public FacadeTest, public testing::WithParamInterface<InventoryCall>
{};

TEST_P(StartUpWithADeadService, PassesTheExceptionOnAndLeavesNothingBehind)
{
    receiver();
    const std::size_t descriptors = openDescriptors();
    ubxplatform::makeCallThrow(GetParam(), "org.freedesktop.DBus.Error.NoReply");

    try {
        ubxController controller;
        ADD_FAILURE() << "nothing thrown";
    } catch (const ubxplatform::DBusError& error) {
        EXPECT_STREQ(error.what(), "org.freedesktop.DBus.Error.NoReply");
    }

    EXPECT_EQ(transfers(), Lines{});
    expectNoFrames();
    EXPECT_FALSE(std::filesystem::exists(kChipInfoFile));
    EXPECT_EQ(openDescriptors(), descriptors);
    EXPECT_EQ(ubxplatform::liveClients(), 0);
}

INSTANTIATE_TEST_SUITE_P(AtEveryCall, StartUpWithADeadService,
                         testing::Values(InventoryCall::connectInventory, InventoryCall::getModuleLocations,
                                         InventoryCall::connectResources, InventoryCall::setupDeviceAddress,
                                         InventoryCall::getSystemRecord, InventoryCall::getI2cBus));

TEST_F(StartUp, WorksAgainOnceTheInventoryAnswers)
{
    receiver();
    ubxplatform::makeCallThrow(InventoryCall::getModuleLocations, "org.freedesktop.DBus.Error.NoReply");
    EXPECT_THROW(ubxController(), ubxplatform::DBusError);

    ubxplatform::reset();
    const auto controller = facade();

    EXPECT_TRUE(controller->isNeoM8t());
}

} // namespace
