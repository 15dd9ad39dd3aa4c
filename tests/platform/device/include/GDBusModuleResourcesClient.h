#pragma once

#include <string>
#include <vector>

struct PcieBar
{
    void* address;
};

class Record
{
public:
    int GetRecordType() const;
    std::string GetRecordData() const;
    int type;
};

class GDBusModuleResourcesClient
{
public:
    GDBusModuleResourcesClient();
    ~GDBusModuleResourcesClient();
    void SetupDeviceAddress(unsigned int location);
    Record GetSystemRecord(std::string name);
    std::string GetI2CBus();
    std::string GetSPIDev();
    std::vector<PcieBar> GetBars();

private:
    char connection_[512];
};
