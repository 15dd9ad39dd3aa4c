#include <moduleInventory.h>

#include <ios>
#include <iostream>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include <SimulatedPlatform.h>
#include <gtest/gtest.h>

#include "CapturedOutput.h"

using testsupport::CapturedOutput;
using ubxplatform::InventoryCall;

namespace
{

using Calls = std::vector<std::string>;

class Inventory : public testing::Test
{
protected:
    Inventory() { ubxplatform::reset(); }
    ~Inventory() override { EXPECT_EQ(ubxplatform::liveClients(), 0) << "a client was not destroyed"; }

    static void haveEndpointRecord(const std::string& text, std::size_t bars)
    {
        ubxplatform::putModule(1, {{{"PcieEndpoints", text}}, "", "", std::vector<PcieBar>(bars)});
    }

    static std::string outputOfCheck()
    {
        const CapturedOutput output(STDOUT_FILENO);
        checkForEndpointInEEPROM(1);
        return output.text();
    }
};

TEST_F(Inventory, WithoutModulesAnswersEmptyToEveryQuestion)
{
    ubxplatform::removeAllModules();

    EXPECT_FALSE(checkAddress(1));
    EXPECT_EQ(getModuleHardwareID(1), "");
    EXPECT_EQ(getSolutionI2C(1), "");
    EXPECT_EQ(getSolutionSpiDev(1), "");
    EXPECT_FALSE(checkForEndpointInEEPROM(1));
}

TEST_F(Inventory, OfAnUnknownLocationDoesNotAskTheModuleResources)
{
    getModuleHardwareID(2);
    getSolutionI2C(2);
    getSolutionSpiDev(2);
    checkForEndpointInEEPROM(2);

    EXPECT_EQ(ubxplatform::inventoryCalls(),
              (Calls{"connect inventory", "GetModuleLocations", "connect inventory", "GetModuleLocations",
                     "connect inventory", "GetModuleLocations", "connect inventory", "GetModuleLocations"}));
}

TEST_F(Inventory, FindsALocationWhereverItIsListed)
{
    ubxplatform::removeAllModules();
    ubxplatform::putModule(7, {});
    ubxplatform::putModule(1, {});
    ubxplatform::putModule(4294967295U, {});

    EXPECT_TRUE(checkAddress(7));
    EXPECT_TRUE(checkAddress(1));
    EXPECT_TRUE(checkAddress(-1)) << "compared with 4294967295";
    EXPECT_FALSE(checkAddress(0));
    EXPECT_FALSE(checkAddress(2));
}

TEST_F(Inventory, GivesTheHardwareIdOfTheModuleAtTheLocation)
{
    ubxplatform::putModule(1, {{{"HardwareSetId", "90000014-001 Rev C"}}, "", "", {}});
    ubxplatform::putModule(2, {{{"HardwareSetId", "90000022-002"}}, "", "", {}});

    EXPECT_EQ(getModuleHardwareID(1), "90000014-001 Rev C");
    EXPECT_EQ(getModuleHardwareID(2), "90000022-002");
}

TEST_F(Inventory, AsksForTheHardwareIdOfThatModuleOnly)
{
    getModuleHardwareID(1);

    EXPECT_EQ(ubxplatform::inventoryCalls(), (Calls{"connect inventory", "GetModuleLocations", "connect resources",
                                                    "SetupDeviceAddress 1", "GetSystemRecord HardwareSetId"}));
}

TEST_F(Inventory, GivesAnEmptyHardwareIdWhenThereIsNoSuchRecord)
{
    ubxplatform::putModule(1, {{{"PcieEndpoints", "3"}}, "", "", {}});

    EXPECT_EQ(getModuleHardwareID(1), "");
}

TEST_F(Inventory, GivesI2cBusAndSpiDeviceAsTheyCome)
{
    ubxplatform::putModule(3, {{}, "i2c-11", "spidev2.1", {}});

    EXPECT_EQ(getSolutionI2C(3), "i2c-11");
    EXPECT_EQ(getSolutionSpiDev(3), "spidev2.1");
}

TEST_F(Inventory, FindsAsManyBarsAsRecordedAndPrintsNothing)
{
    haveEndpointRecord("3", 3);

    EXPECT_TRUE(checkForEndpointInEEPROM(1));
    EXPECT_EQ(outputOfCheck(), "");
}

TEST_F(Inventory, SaysWithoutALineEndThatTheNumberOfBarsDiffers)
{
    haveEndpointRecord("3", 2);
    const CapturedOutput output(STDOUT_FILENO);

    EXPECT_FALSE(checkForEndpointInEEPROM(1));
    EXPECT_EQ(output.text(), "BAR size in eeprom record 3 does not match actual BAR size 2");
}

TEST_F(Inventory, TakesANumberWithBlanksBeforeAndTextAfterIt)
{
    haveEndpointRecord(" 4 bars", 4);

    EXPECT_TRUE(checkForEndpointInEEPROM(1));
    EXPECT_EQ(outputOfCheck(), "");
}

TEST_F(Inventory, PrintsTheRecordedNumberAsASignedOne)
{
    haveEndpointRecord("4294967295", 0);

    EXPECT_EQ(outputOfCheck(), "BAR size in eeprom record -1 does not match actual BAR size 0");
}

TEST_F(Inventory, ComparesTheLow32BitsOfTheRecordedNumber)
{
    haveEndpointRecord("4294967298", 2);

    EXPECT_TRUE(checkForEndpointInEEPROM(1));
}

TEST_F(Inventory, PrintsDecimalNumbersWhateverTheStreamIsSetTo)
{
    haveEndpointRecord("17", 18);

    std::cout << std::hex << std::showbase;
    const std::string text = outputOfCheck();
    std::cout << std::dec << std::noshowbase;

    EXPECT_EQ(text, "BAR size in eeprom record 17 does not match actual BAR size 18");
}

TEST_F(Inventory, WithoutTheEndpointRecordSaysSoAndThrows)
{
    ubxplatform::putModule(1, {{}, "", "", {{0, 4096}}});
    const CapturedOutput output(STDOUT_FILENO);

    try {
        checkForEndpointInEEPROM(1);
        ADD_FAILURE() << "nothing thrown";
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "stoul");
    }

    EXPECT_EQ(output.text(), "Could not find PcieEndpoints record\n");
    EXPECT_EQ(ubxplatform::inventoryCalls(),
              (Calls{"connect inventory", "GetModuleLocations", "connect resources", "SetupDeviceAddress 1",
                     "GetSystemRecord PcieEndpoints", "GetBars"}));
}

TEST_F(Inventory, ThrowsForAnEndpointRecordThatIsNoNumber)
{
    haveEndpointRecord("three", 3);

    EXPECT_THROW(checkForEndpointInEEPROM(1), std::invalid_argument);
}

TEST_F(Inventory, ThrowsForAnEndpointRecordThatIsTooLarge)
{
    haveEndpointRecord("99999999999999999999", 3);

    try {
        checkForEndpointInEEPROM(1);
        ADD_FAILURE() << "nothing thrown";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "stoul");
    }
}

struct FailingCall
{
    const char* name;
    InventoryCall call;
    void (*question)();
};

void PrintTo(const FailingCall& failing, std::ostream* out)
{
    *out << failing.name;
}

class InventoryWithADeadService : public Inventory, public testing::WithParamInterface<FailingCall>
{};

TEST_P(InventoryWithADeadService, PassesOnWhatTheClientThrows)
{
    ubxplatform::makeCallThrow(GetParam().call, "org.freedesktop.DBus.Error.NoReply");

    try {
        GetParam().question();
        ADD_FAILURE() << "nothing thrown";
    } catch (const ubxplatform::DBusError& error) {
        EXPECT_STREQ(error.what(), "org.freedesktop.DBus.Error.NoReply");
    }
}

INSTANTIATE_TEST_SUITE_P(
    AtEveryCall, InventoryWithADeadService,
    testing::Values(
        FailingCall{"ConnectInventory", InventoryCall::connectInventory, [] { checkAddress(1); }},
        FailingCall{"GetModuleLocations", InventoryCall::getModuleLocations, [] { checkAddress(1); }},
        FailingCall{"ConnectResources", InventoryCall::connectResources, [] { getModuleHardwareID(1); }},
        FailingCall{"SetupDeviceAddress", InventoryCall::setupDeviceAddress, [] { getModuleHardwareID(1); }},
        FailingCall{"GetSystemRecord", InventoryCall::getSystemRecord, [] { getModuleHardwareID(1); }},
        FailingCall{"GetI2CBus", InventoryCall::getI2cBus, [] { getSolutionI2C(1); }},
        FailingCall{"GetSPIDev", InventoryCall::getSpiDevice, [] { getSolutionSpiDev(1); }},
        FailingCall{"GetSystemRecordOfEndpoints", InventoryCall::getSystemRecord, [] { checkForEndpointInEEPROM(1); }},
        FailingCall{"GetBars", InventoryCall::getBars, [] { checkForEndpointInEEPROM(1); }}),
    [](const testing::TestParamInfo<FailingCall>& failing) { return std::string(failing.param.name); });

} // namespace
