#include <moduleInventory.h>

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <vector>

#include <GDBusModuleResourcesClient.h>
#include <GDBusSystemInventoryClient.h>

namespace
{

/// Puts a question about the module to the module-resources service; without a module the answer is the empty one.
template <typename Answer, typename Question>
Answer ask(unsigned int location, Question question)
{
    if (!checkAddress(static_cast<int>(location))) return Answer{};
    GDBusModuleResourcesClient resources;
    resources.SetupDeviceAddress(location);
    return question(resources);
}

} // namespace

bool checkAddress(int location)
{
    GDBusSystemInventoryClient inventory;
    const std::vector<unsigned int> locations = inventory.GetModuleLocations();
    return std::find(locations.begin(), locations.end(), static_cast<unsigned int>(location)) != locations.end();
}

std::string getModuleHardwareID(unsigned int location)
{
    return ask<std::string>(location, [](GDBusModuleResourcesClient& resources) {
        const Record record = resources.GetSystemRecord("HardwareSetId");
        return record.GetRecordType() != 0 ? record.GetRecordData() : std::string();
    });
}

std::string getSolutionI2C(unsigned int location)
{
    return ask<std::string>(location, [](GDBusModuleResourcesClient& resources) { return resources.GetI2CBus(); });
}

std::string getSolutionSpiDev(unsigned int location)
{
    return ask<std::string>(location, [](GDBusModuleResourcesClient& resources) { return resources.GetSPIDev(); });
}

bool checkForEndpointInEEPROM(unsigned int location)
{
    return ask<bool>(location, [](GDBusModuleResourcesClient& resources) {
        const Record record = resources.GetSystemRecord("PcieEndpoints");
        // Carrying on without the record is meant: its empty text then makes the conversion below throw.
        if (record.GetRecordType() == 0) std::cout << "Could not find PcieEndpoints record" << std::endl;

        const auto found = static_cast<std::uint32_t>(resources.GetBars().size());
        const auto recorded = static_cast<std::uint32_t>(std::stoul(record.GetRecordData()));
        if (recorded != found) {
            // As texts, so that a caller's std::hex on the stream can't show. No line end, which is meant.
            std::cout << "BAR size in eeprom record " + std::to_string(static_cast<std::int32_t>(recorded)) +
                             " does not match actual BAR size " + std::to_string(static_cast<std::int32_t>(found));
        }
        return recorded == found;
    });
}
