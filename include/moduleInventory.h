#pragma once

#include <string>

#include <ubxExport.h>

// What the device's system inventory and module resources know about a hardware module. A location is the device
// address of the module; the carrier board of the receiver is module 1.
//
// Each function asks the services anew over D-Bus, and blocks for as long as they take. For a location at which there
// is no module the module-resources service is not asked. What the services' clients throw is passed on to the caller.
// Nothing is shared between calls: they are as safe from several threads as those clients are.

/// Tells whether there is a module at the location.
UBXCONTROL_API bool checkAddress(int location);

/// Gives the module's hardware-set identifier, a text that contains the part number of the board.
/// @return the text as recorded; empty when there is no such module, or no such record.
UBXCONTROL_API std::string getModuleHardwareID(unsigned int location);

/// Gives the name of the module's I2C bus device, without "/dev/" before it.
/// @return the name as it comes; empty when there is no such module.
UBXCONTROL_API std::string getSolutionI2C(unsigned int location);

/// Gives the name of the module's SPI device.
/// @return the name as it comes; empty when there is no such module.
UBXCONTROL_API std::string getSolutionSpiDev(unsigned int location);

/// Compares the number of PCIe BARs recorded in the module's EEPROM with the number that was found.
///
/// Writes "Could not find PcieEndpoints record" and a line end to standard output when there is no such record, and
/// "BAR size in eeprom record N does not match actual BAR size M", without a line end, when the numbers differ.
/// @return whether they are equal; false when there is no such module.
/// @throws std::invalid_argument ("stoul") where the record does not begin with a decimal number, which goes for a
///         missing one; std::out_of_range ("stoul") for a number that an unsigned long can't hold.
UBXCONTROL_API bool checkForEndpointInEEPROM(unsigned int location);
