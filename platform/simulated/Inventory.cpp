// Substitutes for the device's D-Bus clients.

#include <atomic>

#include "GDBusModuleResourcesClient.h"
#include "GDBusSystemInventoryClient.h"
#include "Machine.h"

using ubxplatform::InventoryCall;
using ubxplatform::LockedMachine;
using ubxplatform::Module;

namespace
{

constexpr int kTextRecord = 1;

std::atomic<int> clients{0};

} // namespace

int ubxplatform::liveClients()
{
    return clients;
}

GDBusSystemInventoryClient::GDBusSystemInventoryClient()
{
    LockedMachine()->enter(InventoryCall::connectInventory, "connect inventory");
    ++clients;
}

GDBusSystemInventoryClient::~GDBusSystemInventoryClient()
{
    --clients;
}

std::vector<unsigned int> GDBusSystemInventoryClient::GetModuleLocations()
{
    const LockedMachine machine;
    machine->enter(InventoryCall::getModuleLocations, "GetModuleLocations");
    std::vector<unsigned int> locations;
    for (const auto& module : machine->modules)
        locations.push_back(module.first);
    return locations;
}

GDBusModuleResourcesClient::GDBusModuleResourcesClient()
{
    LockedMachine()->enter(InventoryCall::connectResources, "connect resources");
    ++clients;
}

GDBusModuleResourcesClient::~GDBusModuleResourcesClient()
{
    --clients;
}

void GDBusModuleResourcesClient::SetupDeviceAddress(unsigned int location)
{
    LockedMachine()->enter(InventoryCall::setupDeviceAddress, "SetupDeviceAddress " + std::to_string(location));
    location_ = location;
}

Record GDBusModuleResourcesClient::GetSystemRecord(std::string name)
{
    const LockedMachine machine;
    machine->enter(InventoryCall::getSystemRecord, "GetSystemRecord " + name);
    const Module& module = machine->moduleAt(location_);
    const auto record = module.records.find(name);
    return record == module.records.end() ? Record(0, "") : Record(kTextRecord, record->second);
}

std::string GDBusModuleResourcesClient::GetI2CBus()
{
    const LockedMachine machine;
    machine->enter(InventoryCall::getI2cBus, "GetI2CBus");
    return machine->moduleAt(location_).i2cBus;
}

std::string GDBusModuleResourcesClient::GetSPIDev()
{
    const LockedMachine machine;
    machine->enter(InventoryCall::getSpiDevice, "GetSPIDev");
    return machine->moduleAt(location_).spiDevice;
}

std::vector<PcieBar> GDBusModuleResourcesClient::GetBars()
{
    const LockedMachine machine;
    machine->enter(InventoryCall::getBars, "GetBars");
    return machine->moduleAt(location_).bars;
}
