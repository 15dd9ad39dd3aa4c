#include "SimulatedPlatform.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "Machine.h"

namespace ubxplatform
{

DBusError::~DBusError() = default;

void reset()
{
    LockedMachine().replace();
}

void putModule(unsigned int location, const Module& module)
{
    const LockedMachine machine;
    auto& modules = machine->modules;
    const auto found = std::find_if(modules.begin(), modules.end(),
                                    [location](const auto& present) { return present.first == location; });
    if (found != modules.end()) {
        found->second = module;
    } else {
        modules.emplace_back(location, module);
    }
}

void removeAllModules()
{
    LockedMachine()->modules.clear();
}

void makeCallThrow(InventoryCall call, const std::string& text)
{
    LockedMachine()->throwingCalls[call] = text;
}

std::vector<std::string> inventoryCalls()
{
    return LockedMachine()->inventoryCalls;
}

void attachExpander(const std::string& bus, std::uint8_t address)
{
    LockedMachine()->buses[bus].expanders[address] = Expander();
}

void detachExpander(const std::string& bus, std::uint8_t address)
{
    LockedMachine()->buses[bus].expanders.erase(address);
}

void removeBus(const std::string& bus)
{
    LockedMachine()->buses.erase(bus);
}

void failReads(const std::string& bus, bool fail)
{
    LockedMachine()->buses[bus].failReads = fail;
}

void failWrites(const std::string& bus, bool fail)
{
    LockedMachine()->buses[bus].failWrites = fail;
}

std::uint8_t expanderRegister(const std::string& bus, std::uint8_t address, unsigned int number)
{
    return LockedMachine()->expanderAt(bus, address).get(number);
}

void setExpanderRegister(const std::string& bus, std::uint8_t address, unsigned int number, std::uint8_t value)
{
    LockedMachine()->expanderAt(bus, address).set(number, value);
}

std::vector<Transfer> transfers()
{
    return LockedMachine()->transfers;
}

std::string describe(const Transfer& transfer)
{
    constexpr std::array kKinds{"open", "read", "write", "close"};
    const auto hex = [](std::uint8_t byte) {
        std::array<char, 3> digits{};
        std::snprintf(digits.data(), digits.size(), "%02X", unsigned{byte});
        return std::string(digits.data());
    };

    std::string text = transfer.bus + " 0x" + hex(transfer.address) + " ";
    text += kKinds.at(static_cast<std::size_t>(transfer.kind));
    for (const std::uint8_t byte : transfer.sent)
        text += " " + hex(byte);
    if (!transfer.received.empty()) text += " ->";
    for (const std::uint8_t byte : transfer.received)
        text += " " + hex(byte);
    return transfer.failed ? text + " failed" : text;
}

std::vector<GpioChange> gpioChanges()
{
    return LockedMachine()->gpioChanges;
}

} // namespace ubxplatform
