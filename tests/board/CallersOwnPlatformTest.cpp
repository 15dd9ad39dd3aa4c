// A program that defines the platform's classes itself, as a device's own tests do: its definitions take the place of
// the shared library's, in the library too.

#include <UBloxChipEnableInterface.h>
#include <moduleInventory.h>

#include <string>
#include <vector>

#include <GDBusModuleResourcesClient.h>
#include <GDBusSystemInventoryClient.h>
#include <I2CDev.h>
#include <SysfsUtil.h>
#include <gtest/gtest.h>

namespace
{

std::vector<std::string> seen;

void see(const std::string& what)
{
    seen.push_back(what);
}

} // namespace

Record::Record(int type, std::string data) : type_(type), data_(data) {}

int Record::GetRecordType() const
{
    return type_;
}

std::string Record::GetRecordData() const
{
    return "own " + data_;
}

GDBusSystemInventoryClient::GDBusSystemInventoryClient()
{
    see("inventory");
}

GDBusSystemInventoryClient::~GDBusSystemInventoryClient()
{
    see("~inventory");
}

std::vector<unsigned int> GDBusSystemInventoryClient::GetModuleLocations()
{
    return {1, 77};
}

GDBusModuleResourcesClient::GDBusModuleResourcesClient() : location_(0)
{
    see("resources");
}

GDBusModuleResourcesClient::~GDBusModuleResourcesClient()
{
    see("~resources of " + std::to_string(location_));
}

void GDBusModuleResourcesClient::SetupDeviceAddress(unsigned int location)
{
    location_ = location;
}

Record GDBusModuleResourcesClient::GetSystemRecord(std::string name)
{
    return Record(5, name);
}

std::string GDBusModuleResourcesClient::GetI2CBus()
{
    return "own-bus";
}

std::string GDBusModuleResourcesClient::GetSPIDev()
{
    return "own-spi";
}

std::vector<PcieBar> GDBusModuleResourcesClient::GetBars()
{
    return {};
}

I2CDev::I2CDev(std::string bus) : bus_(bus), address_(0), handle_(-1)
{
    see(bus_);
}

I2CDev::~I2CDev()
{
    see(handle_ == 3 ? "close" : "never open");
}

int I2CDev::open(unsigned char address)
{
    address_ = address;
    handle_ = 3;
    see("open " + std::to_string(address_));
    return handle_;
}

int I2CDev::read(unsigned char* data, unsigned long len, unsigned char* reg, unsigned long reglen)
{
    see("read " + std::to_string(len) + " from " + std::to_string(*reg) + " of " + std::to_string(reglen));
    data[0] = 0xAA;
    data[1] = 0xDE;
    return 0;
}

int I2CDev::write(unsigned char* data, unsigned long len)
{
    see("write " + std::to_string(data[0]) + " " + std::to_string(data[1]) + " " + std::to_string(data[2]) + " of " +
        std::to_string(len));
    return 0;
}

SysfsUtil::SysfsUtil()
{
    see("gpios");
}

SysfsUtil::~SysfsUtil()
{
    see("~gpios");
}

int SysfsUtil::setGpioValue(int gpio, bool value)
{
    see("gpio " + std::to_string(gpio) + (value ? " high" : " low"));
    return 0;
}

namespace
{

using Seen = std::vector<std::string>;

class CallersOwnPlatform : public testing::Test
{
protected:
    CallersOwnPlatform() { seen.clear(); }
};

TEST_F(CallersOwnPlatform, AnswersTheInventoryQuestions)
{
    EXPECT_EQ(getModuleHardwareID(77), "own HardwareSetId");
    EXPECT_EQ(seen, (Seen{"inventory", "~inventory", "resources", "~resources of 77"}));
    EXPECT_EQ(getSolutionI2C(1), "own-bus");
    EXPECT_EQ(getSolutionSpiDev(1), "own-spi");
    EXPECT_FALSE(checkAddress(2));
}

TEST_F(CallersOwnPlatform, IsWhatTheI2cBoardsDrive)
{
    KtbPtbUBloxChipInterface().resetUBloxChip();

    EXPECT_EQ(seen, (Seen{"/dev/i2c-13", "open 33", "read 2 from 6 of 1", "write 6 42 222 of 3", "read 2 from 2 of 1",
                          "write 2 170 222 of 3", "close"}));
}

TEST_F(CallersOwnPlatform, IsWhatTheGpioBoardDrives)
{
    QsbUBloxChipInterface().antennaPowerEnable("OFF");

    EXPECT_EQ(seen, (Seen{"gpios", "gpio 116 low", "~gpios"}));
}

} // namespace
