// The order in which the constructor turns to the inventory, the board and the receiver. The platform's classes are
// this program's own, so that it can look around at every call.

#include <ubloxChipInfo.h>
#include <ubxController.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <GDBusModuleResourcesClient.h>
#include <GDBusSystemInventoryClient.h>
#include <I2CDev.h>
#include <SysfsUtil.h>
#include <gtest/gtest.h>

#include "ReceiverTest.h"

namespace
{

std::vector<std::string> seen;
std::function<std::string()> lookAround;

void see(const std::string& call)
{
    seen.push_back(call + lookAround());
}

} // namespace

Record::Record(int type, std::string data) : type_(type), data_(data) {}

int Record::GetRecordType() const
{
    return type_;
}

std::string Record::GetRecordData() const
{
    return data_;
}

GDBusSystemInventoryClient::GDBusSystemInventoryClient() = default;
GDBusSystemInventoryClient::~GDBusSystemInventoryClient() = default;

std::vector<unsigned int> GDBusSystemInventoryClient::GetModuleLocations()
{
    see("locations");
    return {1};
}

GDBusModuleResourcesClient::GDBusModuleResourcesClient() : location_(0) {}
GDBusModuleResourcesClient::~GDBusModuleResourcesClient() = default;

void GDBusModuleResourcesClient::SetupDeviceAddress(unsigned int location)
{
    location_ = location;
}

Record GDBusModuleResourcesClient::GetSystemRecord(std::string name)
{
    see("record " + name);
    return Record(1, "90000014-001");
}

std::string GDBusModuleResourcesClient::GetI2CBus()
{
    see("bus of the module");
    return "i2c-7";
}

std::string GDBusModuleResourcesClient::GetSPIDev()
{
    see("SPI device");
    return "";
}

std::vector<PcieBar> GDBusModuleResourcesClient::GetBars()
{
    see("BARs");
    return {};
}

I2CDev::I2CDev(std::string bus) : bus_(bus), address_(0), handle_(-1) {}

I2CDev::~I2CDev()
{
    see("close " + bus_);
}

int I2CDev::open(unsigned char address)
{
    address_ = address;
    handle_ = 0;
    see("open " + bus_);
    return 0;
}

int I2CDev::read(unsigned char*, unsigned long, unsigned char* reg, unsigned long)
{
    see("read " + std::to_string(*reg));
    return 0;
}

int I2CDev::write(unsigned char* data, unsigned long)
{
    see("write " + std::to_string(*data));
    return 0;
}

SysfsUtil::SysfsUtil() = default;
SysfsUtil::~SysfsUtil() = default;

int SysfsUtil::setGpioValue(int, bool)
{
    see("GPIO");
    return 0;
}

namespace
{

class StartUpOrder : public testsupport::ReceiverTest
{};

TEST_F(StartUpOrder, IsLogThenInventoryThenResetThenReceiverThenFileAndRecord)
{
    receiver();
    lookAround = [this] {
        std::string found;
        if (!std::filesystem::exists("/var/log/rxtool-errors.log")) found += ", no log yet";
        if (!takeFrames().empty()) found += ", frames";
        if (std::filesystem::exists("/tmp/ubloxChip-info.txt")) found += ", chip-info file";
        if (!ubloxChipInfo::getUbloxHwVer().empty()) found += ", record";
        return found;
    };

    const ubxController controller;

    EXPECT_EQ(seen, (std::vector<std::string>{"locations", "record HardwareSetId", "locations", "bus of the module",
                                              "open /dev/i2c-7", "read 6", "write 6", "read 2", "write 2",
                                              "close /dev/i2c-7"}));
    EXPECT_EQ(lookAround(), ", frames, chip-info file, record");
}

} // namespace
