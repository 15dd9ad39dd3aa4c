#pragma once

#include <string>

#include <ubxExport.h>

/// What this process knows of the fitted receiver: empty until it has been identified. Written while an ubxController
/// is constructed, only read afterwards; not locked.
class UBXCONTROL_API ubloxChipInfo
{
public:
    static void setUbloxChipName(std::string name);   ///< "ZEDF9T" or "NEOM8T"
    static void setUbloxHwVer(std::string version);   ///< "00190000"
    static void setUbloxSwVer(std::string version);   ///< "TIM 2.20"
    static void setUbloxProtVer(std::string version); ///< "29.20"
    static void setUbloxModeName(std::string name);   ///< the module, "ZED-F9T"

    static std::string getUbloxChipName();
    static std::string getUbloxHwVer();
    static std::string getUbloxSwVer();
    static std::string getUbloxProtVer();
    static std::string getUbloxModeName();

    /// Whether the receiver is reached through USB: "/dev/usb-ublox-f9t" or "/dev/usb-ublox-m8t" can be opened for
    /// reading.
    /// @return 0 through USB, 1 not.
    static int getUbloxInterfaceInfo();

private:
    static std::string sChipName;
    static std::string sHwVer;
    static std::string sSwVer;
    static std::string sProtVer;
    static std::string sModeName;
};
