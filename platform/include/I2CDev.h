#pragma once

#include <string>

#include "PlatformExport.h"

/// A chip on an I2C bus.
class UBXPLATFORM_API I2CDev
{
public:
    /// @param bus  path of the bus device, not opened yet.
    explicit I2CDev(std::string bus);

    /// Closes the bus.
    ~I2CDev();
    I2CDev(const I2CDev&) = delete;
    I2CDev& operator=(const I2CDev&) = delete;

    /// @param address  7-bit address of the chip.
    /// @return negative on failure.
    int open(unsigned char address);

    /// Writes reglen bytes of reg, then reads len bytes into data.
    /// @return negative on failure; data is then as it was.
    int read(unsigned char* data, unsigned long len, unsigned char* reg, unsigned long reglen);

    /// @return negative on failure.
    int write(unsigned char* data, unsigned long len);

private:
    std::string bus_;
    unsigned char address_ = 0;
    int handle_; // By which the platform knows the open bus; negative while it is closed.
};
