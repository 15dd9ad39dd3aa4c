#include "controller/SettingLimits.h"
#include "controller/legacy/LegacyOperations.h"
#include "protocol/Payload.h"

namespace ubx
{

int LegacyOperations::setAntennaDelay(int delayNs)
{
    if (!isCableDelay(delayNs)) return status::kRefused;

    store(timePulseTemplate_.data(), cfgTp5::antCableDelay, static_cast<std::int16_t>(delayNs));
    int status = sendTimePulseTemplate();
    int readBack = 0;
    status |= self_.getAntennaDelay(readBack);
    return status | mismatch(readBack != delayNs);
}

int LegacyOperations::getAntennaDelay(int& delayNs)
{
    const Reply reply = link_.poll(emptyPoll(UBX_CFG_TP5));
    if (reply) delayNs = reply.payload().get(cfgTp5::antCableDelay);
    return reply.status();
}

int LegacyOperations::getUtcGrid(unsigned short gnssMask) const
{
    return profile_.utcGridMasks.contains(gnssMask) ? cfgTp5::kUtcGrid : cfgTp5::kGpsGrid;
}

int LegacyOperations::configTimePulse(unsigned short gnssMask, unsigned char pulse, bool active)
{
    const int flags = self_.getUtcGrid(gnssMask) | (active ? cfgTp5::kActive : 0);
    store(timePulseTemplate_.data(), cfgTp5::tpIdx, pulse);
    store(timePulseTemplate_.data(), cfgTp5::flags, static_cast<std::uint8_t>(flags));
    return sendTimePulseTemplate();
}

int LegacyOperations::sendTimePulseTemplate()
{
    return link_.send(UBXMessage(UBX_CFG_TP5, cfgTp5::size, timePulseTemplate_.data()));
}

} // namespace ubx
