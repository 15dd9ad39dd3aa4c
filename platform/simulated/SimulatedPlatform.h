#pragma once

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "GDBusModuleResourcesClient.h"
#include "PlatformExport.h"

/// What the substitutes of the device's platform classes find, and what they were asked to do.
///
/// At the start of a program, and after reset(), the machine is a healthy one: module 1 is a board of part number
/// 90000014-001 with its records, and an I/O expander answers at address 0x21 on "/dev/i2c-5", that module's bus, and
/// on "/dev/i2c-13". Safe to use from several threads.
namespace ubxplatform
{

/// Back to the healthy machine, with empty logs.
UBXPLATFORM_API void reset();

// ---- Inventory
// -------------------------------------------------------------------------------------------------------

/// What the device's D-Bus clients throw when a service does not answer.
class UBXPLATFORM_API DBusError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
    ~DBusError() override;
};

struct Module
{
    std::map<std::string, std::string> records; ///< Name and text; a record that is not listed does not exist.
    std::string i2cBus;                         ///< Without "/dev/".
    std::string spiDevice;
    std::vector<PcieBar> bars;
};

/// Puts a module at a location; it replaces the one that is there. Locations are listed in the order of putting.
UBXPLATFORM_API void putModule(unsigned int location, const Module& module);
UBXPLATFORM_API void removeAllModules();

enum class InventoryCall
{
    connectInventory,
    connectResources,
    getModuleLocations,
    setupDeviceAddress,
    getSystemRecord,
    getI2cBus,
    getSpiDevice,
    getBars
};

/// From now on this call throws a DBusError with this text.
UBXPLATFORM_API void makeCallThrow(InventoryCall call, const std::string& text);

/// Every call in its order, with its argument: "GetSystemRecord HardwareSetId" for one.
UBXPLATFORM_API std::vector<std::string> inventoryCalls();

/// How many clients exist at the moment.
UBXPLATFORM_API int liveClients();

// ---- I2C
// -------------------------------------------------------------------------------------------------------------

/// Attaches an I/O expander of the PCA9555 type as it is after power-on; the bus is made when there is none.
UBXPLATFORM_API void attachExpander(const std::string& bus, std::uint8_t address);

/// Takes it away: the bus still opens, but nothing answers at that address.
UBXPLATFORM_API void detachExpander(const std::string& bus, std::uint8_t address);

/// Takes the bus away, so that it can't be opened.
UBXPLATFORM_API void removeBus(const std::string& bus);

/// Whether reads (or writes) on a bus fail although the chip is there.
UBXPLATFORM_API void failReads(const std::string& bus, bool fail);
UBXPLATFORM_API void failWrites(const std::string& bus, bool fail);

/// The expander's registers 0 to 7: input, output, polarity inversion and configuration, port 0 and 1 of each.
/// @throws std::out_of_range where no expander is attached, or for another register.
UBXPLATFORM_API std::uint8_t expanderRegister(const std::string& bus, std::uint8_t address, unsigned int number);
UBXPLATFORM_API void setExpanderRegister(const std::string& bus, std::uint8_t address, unsigned int number,
                                         std::uint8_t value);

struct Transfer
{
    enum class Kind
    {
        open,
        read,
        write,
        close
    };

    Kind kind;
    std::string bus;
    std::uint8_t address;
    std::vector<std::uint8_t> sent;     ///< Bytes to the chip: of a read, the register index.
    std::vector<std::uint8_t> received; ///< Bytes from the chip.
    bool failed;
};

/// All that was done on every bus, in its order. A handle that never opened is not closed either.
UBXPLATFORM_API std::vector<Transfer> transfers();

/// One line for a person: "/dev/i2c-13 0x21 write 06 7F FF".
UBXPLATFORM_API std::string describe(const Transfer& transfer);

// ---- GPIO
// ------------------------------------------------------------------------------------------------------------

struct GpioChange
{
    int gpio;
    bool value;
};

/// Every level that was asked for, in its order.
UBXPLATFORM_API std::vector<GpioChange> gpioChanges();

} // namespace ubxplatform
