#pragma once

#include <string>
#include <vector>

#include "PcieBar.h"
#include "PlatformExport.h"
#include "Record.h"

/// A client of the device's module-resources service, connected while it exists.
class UBXPLATFORM_API GDBusModuleResourcesClient
{
public:
    GDBusModuleResourcesClient();
    ~GDBusModuleResourcesClient();
    GDBusModuleResourcesClient(const GDBusModuleResourcesClient&) = delete;
    GDBusModuleResourcesClient& operator=(const GDBusModuleResourcesClient&) = delete;

    /// Says which module the later calls refer to.
    void SetupDeviceAddress(unsigned int location);

    Record GetSystemRecord(std::string name);

    /// @return the module's I2C bus device, without "/dev/" before it.
    std::string GetI2CBus();

    /// @return the module's SPI device.
    std::string GetSPIDev();

    /// @return the BARs that were found for the module.
    std::vector<PcieBar> GetBars();

private:
    unsigned int location_ = 0;
};
