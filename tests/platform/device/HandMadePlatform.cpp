// What a device's platform library may look like; it says what it is asked to do.

#include <cstdio>
#include <cstring>

#include "GDBusModuleResourcesClient.h"
#include "GDBusSystemInventoryClient.h"
#include "I2CDev.h"
#include "SysfsUtil.h"

int Record::GetRecordType() const
{
    return type;
}

std::string Record::GetRecordData() const
{
    return "hand-made";
}

GDBusSystemInventoryClient::GDBusSystemInventoryClient() = default;

GDBusSystemInventoryClient::~GDBusSystemInventoryClient() = default;

std::vector<unsigned int> GDBusSystemInventoryClient::GetModuleLocations()
{
    return {1};
}

GDBusModuleResourcesClient::GDBusModuleResourcesClient()
{
    std::memset(connection_, 1, sizeof connection_);
}

GDBusModuleResourcesClient::~GDBusModuleResourcesClient() = default;

void GDBusModuleResourcesClient::SetupDeviceAddress(unsigned int location)
{
    std::printf("module %u\n", location);
}

Record GDBusModuleResourcesClient::GetSystemRecord(std::string)
{
    Record record;
    record.type = 7;
    return record;
}

std::string GDBusModuleResourcesClient::GetI2CBus()
{
    return "hand-made-bus";
}

std::string GDBusModuleResourcesClient::GetSPIDev()
{
    return "hand-made-spi";
}

std::vector<PcieBar> GDBusModuleResourcesClient::GetBars()
{
    return {};
}

I2CDev::I2CDev(std::string bus)
{
    std::memset(scratch_, 1, sizeof scratch_);
    std::printf("bus %s\n", bus.c_str());
}

I2CDev::~I2CDev() = default;

int I2CDev::open(unsigned char address)
{
    std::printf("open %02x\n", unsigned{address});
    return 0;
}

bool I2CDev::read(unsigned char* data, unsigned long len, unsigned char*, unsigned long)
{
    std::memset(data, 0xF0, len);
    return true;
}

bool I2CDev::write(unsigned char* data, unsigned long)
{
    std::printf("write %02x %02x %02x\n", unsigned{data[0]}, unsigned{data[1]}, unsigned{data[2]});
    return true;
}

SysfsUtil::SysfsUtil() = default;

SysfsUtil::~SysfsUtil() = default;

void SysfsUtil::setGpioValue(int gpio, bool value)
{
    std::printf("gpio %d %d\n", gpio, value);
}
