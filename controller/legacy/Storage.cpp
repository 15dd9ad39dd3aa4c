#include <ubloxChipInfo.h>

#include "controller/legacy/LegacyOperations.h"
#include "protocol/Payload.h"
#include "protocol/payloads/CfgCfg.h"

namespace ubx
{

namespace
{

UBXMessage storageCommand(Field<std::uint32_t> mask)
{
    return Payload<cfgCfg::size>()
        .set(mask, cfgCfg::kAllSections)
        .set(cfgCfg::deviceMask, cfgCfg::kBbrFlashAndSpiFlash)
        .as(UBX_CFG_CFG);
}

} // namespace

int LegacyOperations::save()
{
    return link_.send(storageCommand(cfgCfg::saveMask));
}

int LegacyOperations::load()
{
    return link_.send(storageCommand(cfgCfg::loadMask));
}

int LegacyOperations::resetUbloxDefaults()
{
    int status = link_.send(storageCommand(cfgCfg::clearMask));
    status |= self_.save();
    return status;
}

int LegacyOperations::resetFactoryDefaults()
{
    int status = link_.send(storageCommand(cfgCfg::clearMask));
    status |= self_.configExtendedPowerManagment();
    status |= self_.configureUbxPolling(1);
    if (ubloxChipInfo::getUbloxInterfaceInfo() != 0) status |= self_.configureNmeaPolling(0);
    status |= self_.setDefaultConfiguration();
    status |= self_.save();
    return status;
}

int LegacyOperations::setDefaultConfiguration()
{
    constexpr int kCableDelayNs = 28;
    constexpr unsigned short kGpsOnly = 1;
    constexpr signed char kMinCNo = 9;            // dBHz
    constexpr unsigned char kElevationLimit = 10; // degrees
    constexpr unsigned char kStationary = 2;
    constexpr unsigned char kFix3dOnly = 2;

    int status = self_.configureProtocols();
    status |= self_.setAntennaDelay(kCableDelayNs);
    status |= self_.setGnssSystem(kGpsOnly);
    status |= self_.setMinCNo(kMinCNo);
    status |= self_.setElevationLimit(kElevationLimit);
    status |= self_.setDynamicModel(kStationary, kFix3dOnly);
    status |= self_.setSurveyAuto();
    status |= self_.configureSBAS();
    status |= self_.setUtcStandardAuto();
    return status;
}

} // namespace ubx
