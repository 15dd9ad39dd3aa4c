// The substitutes by themselves: they must behave as the device does before they can show what the library does with
// it.

#include <SimulatedPlatform.h>

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include <GDBusModuleResourcesClient.h>
#include <GDBusSystemInventoryClient.h>
#include <I2CDev.h>
#include <SysfsUtil.h>
#include <gtest/gtest.h>

namespace
{

using Bytes = std::vector<unsigned char>;

constexpr const char* kBus = "/dev/i2c-13";
constexpr unsigned char kAddress = 0x21;

class SimulatedI2c : public testing::Test
{
protected:
    SimulatedI2c() { ubxplatform::reset(); }

    /// Reads from a register on; empty when that fails.
    static Bytes read(unsigned char from, std::size_t count)
    {
        I2CDev chip(kBus);
        Bytes bytes(count, 0xEE);
        if (chip.open(kAddress) < 0 || chip.read(bytes.data(), count, &from, 1) < 0) return {};
        return bytes;
    }

    static void write(Bytes bytes)
    {
        I2CDev chip(kBus);
        ASSERT_GE(chip.open(kAddress), 0);
        ASSERT_GE(chip.write(bytes.data(), bytes.size()), 0);
    }

    static unsigned int at(unsigned int number) { return ubxplatform::expanderRegister(kBus, kAddress, number); }
};

TEST_F(SimulatedI2c, ExpanderIsAsAfterPowerOn)
{
    const std::array<unsigned int, 8> expected{0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0xFF, 0xFF};

    for (unsigned int number = 0; number < expected.size(); ++number)
        EXPECT_EQ(at(number), expected[number]) << number;
}

TEST_F(SimulatedI2c, ExpanderGoesToAndFroInAPairOfRegisters)
{
    write({6, 0x11, 0x22, 0x33});
    EXPECT_EQ(at(6), 0x33U);
    EXPECT_EQ(at(7), 0x22U);

    write({3, 0x44, 0x55});
    EXPECT_EQ(at(3), 0x44U);
    EXPECT_EQ(at(2), 0x55U);

    EXPECT_EQ(read(6, 3), (Bytes{0x33, 0x22, 0x33}));
    EXPECT_EQ(read(3, 2), (Bytes{0x44, 0x55}));
}

TEST_F(SimulatedI2c, ExpanderReadsOnWhereItsIndexPoints)
{
    write({2, 0x44, 0x55});
    I2CDev chip(kBus);
    chip.open(kAddress);
    Bytes bytes(1);
    unsigned char index = 3;
    chip.read(bytes.data(), 1, &index, 1);
    EXPECT_EQ(bytes, Bytes{0x55});

    chip.read(bytes.data(), 1, &index, 0);

    EXPECT_EQ(bytes, Bytes{0x44});
}

TEST_F(SimulatedI2c, ExpanderShowsItsPinsInTheInputRegisters)
{
    ubxplatform::setExpanderRegister(kBus, kAddress, 0, 0xA5);
    write({2, 0x0F, 0x00});

    EXPECT_EQ(read(0, 1), Bytes{0xA5}) << "all are inputs";
    write({6, 0x00, 0xFF});
    EXPECT_EQ(read(0, 1), Bytes{0x0F}) << "all are outputs";
    write({6, 0xF0, 0xFF});
    EXPECT_EQ(read(0, 1), Bytes{0xAF}) << "half of them";
    write({4, 0xFF, 0x00});
    EXPECT_EQ(read(0, 1), Bytes{0x50}) << "inverted";
    write({0, 0x00, 0x00});
    EXPECT_EQ(read(0, 1), Bytes{0x50}) << "not to be written";
}

TEST_F(SimulatedI2c, FailuresLeaveTheBufferAsItWas)
{
    Bytes bytes{0xEE, 0xEE};
    unsigned char index = 2;
    I2CDev chip(kBus);
    EXPECT_LT(chip.read(bytes.data(), 2, &index, 1), 0) << "not open";
    EXPECT_LT(chip.write(bytes.data(), 2), 0) << "not open";

    chip.open(kAddress);
    ubxplatform::failReads(kBus, true);
    ubxplatform::failWrites(kBus, true);
    EXPECT_LT(chip.read(bytes.data(), 2, &index, 1), 0);
    EXPECT_LT(chip.write(bytes.data(), 2), 0);
    EXPECT_EQ(bytes, (Bytes{0xEE, 0xEE}));

    ubxplatform::failReads(kBus, false);
    ubxplatform::failWrites(kBus, false);
    EXPECT_GE(chip.write(&index, 1), 0);
    EXPECT_GE(chip.read(bytes.data(), 2, &index, 1), 0);
    EXPECT_EQ(bytes, (Bytes{0xFF, 0xFF}));
}

TEST_F(SimulatedI2c, DoesNotOpenABusThatIsNotThere)
{
    EXPECT_LT(I2CDev("/dev/i2c-99").open(kAddress), 0);
    ubxplatform::removeBus(kBus);
    EXPECT_LT(I2CDev(kBus).open(kAddress), 0);
}

TEST_F(SimulatedI2c, HasNobodyAtAnotherAddress)
{
    I2CDev chip(kBus);
    ASSERT_GE(chip.open(0x22), 0);
    Bytes bytes{0xEE};
    unsigned char index = 2;

    EXPECT_LT(chip.read(bytes.data(), 1, &index, 1), 0);
    EXPECT_THROW(ubxplatform::expanderRegister(kBus, 0x22, 2), std::out_of_range);
    EXPECT_THROW(ubxplatform::expanderRegister(kBus, kAddress, 8), std::out_of_range);
}

TEST_F(SimulatedI2c, NotesEveryTransfer)
{
    write({2, 0x0F});
    read(2, 2);

    std::vector<std::string> all;
    for (const ubxplatform::Transfer& transfer : ubxplatform::transfers()) {
        all.push_back(ubxplatform::describe(transfer));
    }

    EXPECT_EQ(all, (std::vector<std::string>{
                       "/dev/i2c-13 0x21 open",
                       "/dev/i2c-13 0x21 write 02 0F",
                       "/dev/i2c-13 0x21 close",
                       "/dev/i2c-13 0x21 open",
                       "/dev/i2c-13 0x21 read 02 -> 0F FF",
                       "/dev/i2c-13 0x21 close",
                   }));
}

class SimulatedInventory : public testing::Test
{
protected:
    SimulatedInventory() { ubxplatform::reset(); }
};

TEST_F(SimulatedInventory, HasAHealthyModule1)
{
    GDBusModuleResourcesClient resources;
    resources.SetupDeviceAddress(1);

    EXPECT_EQ(GDBusSystemInventoryClient().GetModuleLocations(), std::vector<unsigned int>{1});
    EXPECT_NE(resources.GetSystemRecord("HardwareSetId").GetRecordType(), 0);
    EXPECT_EQ(resources.GetSystemRecord("HardwareSetId").GetRecordData(), "90000014-001 Rev B");
    EXPECT_EQ(resources.GetSystemRecord("PcieEndpoints").GetRecordData(), "3");
    EXPECT_EQ(resources.GetBars().size(), 3U);
    EXPECT_EQ(resources.GetI2CBus(), "i2c-5");
    EXPECT_EQ(resources.GetSPIDev(), "spidev1.0");
}

TEST_F(SimulatedInventory, HasRecordsOfTypeZeroWhereThereAreNone)
{
    GDBusModuleResourcesClient resources;
    resources.SetupDeviceAddress(1);

    EXPECT_EQ(resources.GetSystemRecord("hardwareSetId").GetRecordType(), 0);
    EXPECT_EQ(resources.GetSystemRecord("hardwareSetId").GetRecordData(), "");
}

TEST_F(SimulatedInventory, ThrowsForAModuleThatIsNotThere)
{
    GDBusModuleResourcesClient resources;
    EXPECT_THROW(resources.GetI2CBus(), ubxplatform::DBusError) << "no address was set";

    resources.SetupDeviceAddress(9);
    EXPECT_THROW(resources.GetBars(), ubxplatform::DBusError);
}

TEST_F(SimulatedInventory, CountsItsClients)
{
    EXPECT_EQ(ubxplatform::liveClients(), 0);
    {
        const GDBusSystemInventoryClient inventory;
        const GDBusModuleResourcesClient resources;
        EXPECT_EQ(ubxplatform::liveClients(), 2);
    }
    EXPECT_EQ(ubxplatform::liveClients(), 0);
}

TEST_F(SimulatedInventory, IsHealthyAgainAfterAReset)
{
    ubxplatform::removeAllModules();
    ubxplatform::makeCallThrow(ubxplatform::InventoryCall::getModuleLocations, "dead");
    SysfsUtil().setGpioValue(116, true);

    ubxplatform::reset();

    EXPECT_EQ(GDBusSystemInventoryClient().GetModuleLocations(), std::vector<unsigned int>{1});
    EXPECT_TRUE(ubxplatform::gpioChanges().empty());
    EXPECT_EQ(ubxplatform::inventoryCalls(), (std::vector<std::string>{"connect inventory", "GetModuleLocations"}));
}

} // namespace
