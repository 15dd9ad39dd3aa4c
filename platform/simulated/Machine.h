#pragma once

#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "Expander.h"
#include "SimulatedPlatform.h"

namespace ubxplatform
{

/// What there is on the simulated device. Whoever touches it holds its mutex.
struct Machine
{
    struct Bus
    {
        std::map<std::uint8_t, Expander> expanders;
        bool failReads = false;
        bool failWrites = false;
    };

    Machine();

    Module& moduleAt(unsigned int location);
    Expander& expanderAt(const std::string& bus, std::uint8_t address);

    /// Notes an inventory call, and throws if it is one of those that shall.
    void enter(InventoryCall call, const std::string& text);

    std::vector<std::pair<unsigned int, Module>> modules;
    std::map<InventoryCall, std::string> throwingCalls;
    std::vector<std::string> inventoryCalls;
    std::map<std::string, Bus> buses;
    std::vector<Transfer> transfers;
    std::vector<GpioChange> gpioChanges;
};

/// The one machine of this process, locked while the object lives.
class LockedMachine
{
public:
    LockedMachine();
    Machine* operator->() const;

    /// A new machine, as reset() promises.
    void replace();

private:
    std::lock_guard<std::mutex> lock_;
};

} // namespace ubxplatform
