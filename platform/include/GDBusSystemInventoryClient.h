#pragma once

#include <vector>

#include "PlatformExport.h"

/// A client of the device's system-inventory service, connected while it exists.
class UBXPLATFORM_API GDBusSystemInventoryClient
{
public:
    GDBusSystemInventoryClient();
    ~GDBusSystemInventoryClient();
    GDBusSystemInventoryClient(const GDBusSystemInventoryClient&) = delete;
    GDBusSystemInventoryClient& operator=(const GDBusSystemInventoryClient&) = delete;

    /// @return the locations of all modules present.
    std::vector<unsigned int> GetModuleLocations();
};
