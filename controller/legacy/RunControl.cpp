#include "controller/legacy/LegacyOperations.h"
#include "protocol/Payload.h"
#include "protocol/payloads/CfgRst.h"

namespace ubx
{

namespace
{

UBXMessage resetCommand(std::uint16_t navBbrMask, std::uint8_t resetMode)
{
    return Payload<cfgRst::size>()
        .set(cfgRst::navBbrMask, navBbrMask)
        .set(cfgRst::resetMode, resetMode)
        .as(UBX_CFG_RST);
}

} // namespace

UBXMessage LegacyOperations::constructGNSSOffMessage(bool hot)
{
    return resetCommand(hot ? cfgRst::kKeepAll : cfgRst::kDropAll, cfgRst::kGnssStop);
}

UBXMessage LegacyOperations::constructGNSSOnMessage()
{
    return resetCommand(cfgRst::kKeepAll, cfgRst::kGnssStart);
}

int LegacyOperations::restart(bool hot)
{
    int status = link_.send(constructGNSSOffMessage(hot));
    status |= link_.send(constructGNSSOnMessage());
    return status;
}

// Off and on touch the time pulse only when the constellations could NOT be read; meant so, and held by the tests named
// TurnOff... and TurnOn...

int LegacyOperations::turnOff()
{
    unsigned short gnssMask = 0;
    int status = self_.getGnssSystem(gnssMask);
    if (status != status::kDone) status |= self_.configTimePulse(gnssMask, cfgTp5::kSecondPulse, false);
    status |= link_.send(constructGNSSOffMessage(false));
    bool on = false;
    status |= self_.isOn(on);
    return status | mismatch(on);
}

int LegacyOperations::turnOn()
{
    link_.send(constructGNSSOnMessage());
    unsigned short gnssMask = 0;
    int status = self_.getGnssSystem(gnssMask);
    if (status != status::kDone) status |= self_.configTimePulse(gnssMask, cfgTp5::kSecondPulse, true);
    bool on = false;
    status |= self_.isOn(on);
    return status | mismatch(!on);
}

int LegacyOperations::isOn(bool& on)
{
    const Reply reply =
        link_.poll(Payload<cfgTp5::pollSize>().set(cfgTp5::pollTpIdx, cfgTp5::kSecondPulse).as(UBX_CFG_TP5));
    if (reply) on = (reply.payload().get(cfgTp5::flags) & cfgTp5::kActive) != 0;
    return reply.status();
}

} // namespace ubx
