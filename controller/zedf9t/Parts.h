#pragma once

#include <string>

#include <ubxController_ZEDF9T.h>

#include "controller/legacy/LegacyOperations.h"
#include "controller/zedf9t/ConfigurationItems.h"
#include "controller/zedf9t/ZedF9tProfile.h"

/// What a ZED-F9T's controller holds.
struct ubxController_ZEDF9T::Parts
{
    Parts(ubxController_ZEDF9T& self, std::string firmwareVersion_, bool configurationInterfaceMode_)
        : legacy(self, link, ubx::kZedF9tProfile, cfg_tps_data_buffer),
          firmwareVersion(std::move(firmwareVersion_)),
          configurationInterfaceMode(configurationInterfaceMode_)
    {}

    ubx::ReceiverLink link{"/var/log/rxtool-zedf9t-errors.log"};
    ubx::LegacyOperations legacy;
    ubx::ConfigurationItems items{link};
    std::string firmwareVersion;
    bool configurationInterfaceMode;
};
