// A board without the device's inventory services: no module is present, and so none has anything.

#include "GDBusModuleResourcesClient.h"
#include "GDBusSystemInventoryClient.h"

GDBusSystemInventoryClient::GDBusSystemInventoryClient() = default;

GDBusSystemInventoryClient::~GDBusSystemInventoryClient() = default;

std::vector<unsigned int> GDBusSystemInventoryClient::GetModuleLocations()
{
    return {};
}

GDBusModuleResourcesClient::GDBusModuleResourcesClient() = default;

GDBusModuleResourcesClient::~GDBusModuleResourcesClient() = default;

void GDBusModuleResourcesClient::SetupDeviceAddress(unsigned int location)
{
    location_ = location;
}

Record GDBusModuleResourcesClient::GetSystemRecord(std::string)
{
    return {0, ""};
}

std::string GDBusModuleResourcesClient::GetI2CBus()
{
    return "";
}

std::string GDBusModuleResourcesClient::GetSPIDev()
{
    return "";
}

std::vector<PcieBar> GDBusModuleResourcesClient::GetBars()
{
    return {};
}
