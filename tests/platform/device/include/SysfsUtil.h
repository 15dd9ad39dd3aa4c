#pragma once

class SysfsUtil
{
public:
    SysfsUtil();
    ~SysfsUtil();
    void setGpioValue(int gpio, bool value);
};
