#include "Machine.h"

#include <algorithm>
#include <stdexcept>

namespace ubxplatform
{

namespace
{

constexpr std::uint8_t kExpanderAddress = 0x21;

std::mutex mutex;

Machine& theMachine()
{
    static Machine machine;
    return machine;
}

} // namespace

Machine::Machine()
{
    modules.push_back({1,
                       {{{"HardwareSetId", "90000014-001 Rev B"}, {"PcieEndpoints", "3"}},
                        "i2c-5",
                        "spidev1.0",
                        {{0, 65536}, {2, 4096}, {4, 4096}}}});
    buses["/dev/i2c-5"].expanders[kExpanderAddress];
    buses["/dev/i2c-13"].expanders[kExpanderAddress];
}

Module& Machine::moduleAt(unsigned int location)
{
    const auto found = std::find_if(modules.begin(), modules.end(),
                                    [location](const auto& module) { return module.first == location; });
    if (found == modules.end()) throw DBusError("no module at location " + std::to_string(location));
    return found->second;
}

Expander& Machine::expanderAt(const std::string& bus, std::uint8_t address)
{
    const auto found = buses.find(bus);
    if (found == buses.end() || found->second.expanders.count(address) == 0) {
        throw std::out_of_range("no expander at address " + std::to_string(address) + " of " + bus +
                                ": attach one first");
    }
    return found->second.expanders[address];
}

void Machine::enter(InventoryCall call, const std::string& text)
{
    inventoryCalls.push_back(text);
    const auto failure = throwingCalls.find(call);
    if (failure != throwingCalls.end()) throw DBusError(failure->second);
}

LockedMachine::LockedMachine() : lock_(mutex) {}

Machine* LockedMachine::operator->() const
{
    return &theMachine();
}

void LockedMachine::replace()
{
    theMachine() = Machine();
}

} // namespace ubxplatform
