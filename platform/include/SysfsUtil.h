#pragma once

#include "PlatformExport.h"

/// The device's exported GPIOs.
class UBXPLATFORM_API SysfsUtil
{
public:
    SysfsUtil();
    ~SysfsUtil();
    SysfsUtil(const SysfsUtil&) = delete;
    SysfsUtil& operator=(const SysfsUtil&) = delete;

    /// Drives an exported GPIO.
    /// @return negative on failure.
    int setGpioValue(int gpio, bool value);
};
