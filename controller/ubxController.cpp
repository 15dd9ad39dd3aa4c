#include <ubxController.h>

#include <utility>

#include <UBloxChipEnableInterface.h>
#include <moduleInventory.h>
#include <ubloxChipInfo.h>

#include "controller/FacadeParts.h"
#include "link/TimeStamp.h"

namespace
{

constexpr unsigned int kCarrierLocation = 1;
constexpr const char* kVrbPartNumber = "90000014-001"; // every other part number is of the other family

std::shared_ptr<UBloxChipEnableInterface> chipEnableOf(const std::string& moduleHardwareId)
{
    if (moduleHardwareId.find(kVrbPartNumber) != std::string::npos) return std::make_shared<VrbUBloxChipInterface>();
    return std::make_shared<KtbPtbUBloxChipInterface>();
}

} // namespace

ubxController::ubxController() : parts_(std::make_unique<Parts>(*this))
{
    parts_->chipEnable = chipEnableOf(getModuleHardwareID(kCarrierLocation));
    parts_->chipEnable->resetUBloxChip();
    checkUbloxCheckId();

    ubloxChipInfo::setUbloxChipName(parts_->chipName());
    ubloxChipInfo::setUbloxHwVer(parts_->hardwareVersion);
    ubloxChipInfo::setUbloxSwVer(parts_->firmwareVersion);
    ubloxChipInfo::setUbloxProtVer(parts_->protocolVersion);
    ubloxChipInfo::setUbloxModeName(parts_->moduleName);
}

ubxController::~ubxController()
{
    parts_->link.closeLog();
    parts_->chipEnable.reset();
    parts_->model.reset();
}

int ubxController::setAntennaPower(std::string state)
{
    return parts_->chipEnable->antennaPowerEnable(std::move(state));
}

std::string ubxController::timeStamp()
{
    return parts_->model != nullptr ? parts_->model->timeStamp() : ubx::timeStamp();
}
