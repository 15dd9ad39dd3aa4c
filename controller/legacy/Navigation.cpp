#include "controller/SettingLimits.h"
#include "controller/legacy/LegacyOperations.h"
#include "protocol/Payload.h"
#include "protocol/payloads/CfgNav5.h"
#include "protocol/payloads/CfgNavx5.h"

namespace ubx
{

namespace
{

UBXMessage navigationCommand(Payload<cfgNav5::size> payload, std::uint16_t mask)
{
    return payload.set(cfgNav5::mask, mask).as(UBX_CFG_NAV5);
}

} // namespace

int LegacyOperations::setMinCNo(signed char minCNo)
{
    if (!isMinCNo(minCNo)) return status::kRefused;

    int status = link_.send(Payload<cfgNavx5::size>()
                                .set(cfgNavx5::version, cfgNavx5::kVersion)
                                .set(cfgNavx5::mask1, cfgNavx5::kApplyMinCno)
                                .set(cfgNavx5::minCNO, static_cast<std::uint8_t>(minCNo))
                                .as(UBX_CFG_NAVX5));
    signed char readBack = 0;
    status |= self_.getMinCNo(readBack);
    return status | mismatch(readBack != minCNo);
}

int LegacyOperations::getMinCNo(signed char& minCNo)
{
    minCNo = 0;
    const Reply reply = link_.poll(emptyPoll(UBX_CFG_NAVX5));
    if (reply) minCNo = static_cast<signed char>(reply.payload().get(cfgNavx5::minCNO));
    return reply.status();
}

int LegacyOperations::setElevationLimit(unsigned char degrees)
{
    if (!isElevationLimit(degrees)) return status::kRefused;
    return link_.send(
        navigationCommand(Payload<cfgNav5::size>().set(cfgNav5::minElev, degrees), cfgNav5::kApplyMinElev));
}

int LegacyOperations::getElevationLimit(unsigned char& degrees)
{
    const Reply reply = link_.poll(emptyPoll(UBX_CFG_NAV5));
    if (reply) degrees = reply.payload().get(cfgNav5::minElev);
    return reply.status();
}

// The next three open the port once more than they use it. Meant so: opening discards what is waiting on the port.

int LegacyOperations::setDynamicModel(unsigned char model)
{
    const ubxIO unused;
    return link_.send(
        navigationCommand(Payload<cfgNav5::size>().set(cfgNav5::dynModel, model), cfgNav5::kApplyDynModel));
}

int LegacyOperations::setDynamicModel(unsigned char model, unsigned char fixMode)
{
    const ubxIO unused;
    return link_.send(
        navigationCommand(Payload<cfgNav5::size>().set(cfgNav5::dynModel, model).set(cfgNav5::fixMode, fixMode),
                          cfgNav5::kApplyDynModel | cfgNav5::kApplyFixMode));
}

int LegacyOperations::setFixMode(unsigned char fixMode)
{
    const ubxIO unused;
    return link_.send(
        navigationCommand(Payload<cfgNav5::size>().set(cfgNav5::fixMode, fixMode), cfgNav5::kApplyFixMode));
}

int LegacyOperations::getDynamicModel(unsigned char& model, unsigned char& fixMode)
{
    const Reply reply = link_.poll(emptyPoll(UBX_CFG_NAV5));
    if (!reply) return reply.status();
    model = reply.payload().get(cfgNav5::dynModel);
    fixMode = reply.payload().get(cfgNav5::fixMode);
    return status::kDone;
}

int LegacyOperations::setUtcStandardAuto()
{
    return link_.send(navigationCommand(Payload<cfgNav5::size>().set(cfgNav5::utcStandard, kUtcStandardAutomatic),
                                        cfgNav5::kApplyUtcStandard));
}

int LegacyOperations::setUtsStandardTime(signed char gnssMask)
{
    return link_.send(navigationCommand(
        Payload<cfgNav5::size>().set(cfgNav5::utcStandard, utcStandardFor(gnssMask, profile_.utcStandards)),
        cfgNav5::kApplyUtcStandard));
}

} // namespace ubx
