#pragma once

#include <memory>
#include <string>

#include <UBXControlInterface.h>
#include <UBloxChipEnableInterface.h>
#include <ubxController.h>

#include "link/ReceiverLink.h"

/// What a facade holds.
struct ubxController::Parts
{
    // The lines of this log have the time stamp that the facade itself gives.
    explicit Parts(ubxController& facade) : link("/var/log/rxtool-errors.log", [&facade] { return facade.timeStamp(); })
    {}

    ubx::ReceiverLink link;

    // Empty until the receiver has been identified.
    std::string hardwareVersion;
    std::string firmwareVersion;
    std::string protocolVersion;
    std::string moduleName;

    std::shared_ptr<UBXControlInterface> model;
    std::shared_ptr<UBloxChipEnableInterface> chipEnable;

    const char* chipName() const;
};
