// Substitutes for the device's I2C and GPIO access.

#include <algorithm>
#include <utility>

#include "I2CDev.h"
#include "Machine.h"
#include "SysfsUtil.h"

using ubxplatform::Expander;
using ubxplatform::LockedMachine;
using ubxplatform::Machine;
using ubxplatform::Transfer;

namespace
{

constexpr int kDone = 0;
constexpr int kFailed = -1;

/// The chip that answers on the bus; null where none does.
Expander* answering(const LockedMachine& machine, const std::string& busPath, std::uint8_t address,
                    bool Machine::Bus::*busFails)
{
    const auto bus = machine->buses.find(busPath);
    if (bus == machine->buses.end() || bus->second.*busFails) return nullptr;
    const auto chip = bus->second.expanders.find(address);
    return chip == bus->second.expanders.end() ? nullptr : &chip->second;
}

} // namespace

I2CDev::I2CDev(std::string bus) : bus_(std::move(bus)), handle_(kFailed) {}

I2CDev::~I2CDev()
{
    if (handle_ >= 0) LockedMachine()->transfers.push_back({Transfer::Kind::close, bus_, address_, {}, {}, false});
}

int I2CDev::open(unsigned char address)
{
    const LockedMachine machine;
    address_ = address;
    handle_ = machine->buses.count(bus_) != 0 ? kDone : kFailed;
    machine->transfers.push_back({Transfer::Kind::open, bus_, address, {}, {}, handle_ < 0});
    return handle_;
}

int I2CDev::read(unsigned char* data, unsigned long len, unsigned char* reg, unsigned long reglen)
{
    const LockedMachine machine;
    Expander* chip = handle_ >= 0 ? answering(machine, bus_, address_, &Machine::Bus::failReads) : nullptr;
    Transfer transfer{Transfer::Kind::read, bus_, address_, {reg, reg + reglen}, {}, chip == nullptr};
    if (chip != nullptr) {
        transfer.received = chip->read(transfer.sent, len);
        std::copy(transfer.received.begin(), transfer.received.end(), data);
    }
    machine->transfers.push_back(transfer);
    return transfer.failed ? kFailed : kDone;
}

int I2CDev::write(unsigned char* data, unsigned long len)
{
    const LockedMachine machine;
    Expander* chip = handle_ >= 0 ? answering(machine, bus_, address_, &Machine::Bus::failWrites) : nullptr;
    const Transfer transfer{Transfer::Kind::write, bus_, address_, {data, data + len}, {}, chip == nullptr};
    if (chip != nullptr) chip->write(transfer.sent);
    machine->transfers.push_back(transfer);
    return transfer.failed ? kFailed : kDone;
}

SysfsUtil::SysfsUtil() = default;

SysfsUtil::~SysfsUtil() = default;

int SysfsUtil::setGpioValue(int gpio, bool value)
{
    LockedMachine()->gpioChanges.push_back({gpio, value});
    return kDone;
}
