#pragma once

#include <vector>

class GDBusSystemInventoryClient
{
public:
    GDBusSystemInventoryClient();
    ~GDBusSystemInventoryClient();
    std::vector<unsigned int> GetModuleLocations();
};
