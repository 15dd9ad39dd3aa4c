#include "controller/legacy/LegacyOperations.h"
#include "protocol/Payload.h"
#include "protocol/payloads/CfgGnss.h"
#include "protocol/payloads/CfgSbas.h"

namespace ubx
{

int LegacyOperations::setGnssSystem(unsigned short gnssMask, bool dualBand)
{
    const ChannelRow* const listed =
        profile_.channels.find([&](const ChannelRow& row) { return row.gnssMask == gnssMask; });
    const ChannelRow& row = listed != nullptr ? *listed : profile_.channelsOfOtherMasks;

    Payload<cfgGnss::size> payload;
    payload.set(cfgGnss::msgVer, 0)
        .set(cfgGnss::numTrkChHw, cfgGnss::kTrackingChannels)
        .set(cfgGnss::numTrkChUse, cfgGnss::kTrackingChannels)
        .set(cfgGnss::numConfigBlocks, cfgGnss::kSystems);
    for (std::size_t system = 0; system < cfgGnss::kSystems; ++system) {
        const std::size_t block = cfgGnss::blockOffset(system);
        const SignalFlags& signals = profile_.signals[system];
        payload.set(cfgGnss::block::gnssId.in(block), static_cast<std::uint8_t>(system))
            .set(cfgGnss::block::resTrkCh.in(block), row.systems[system].reserved)
            .set(cfgGnss::block::maxTrkCh.in(block), row.systems[system].maximum)
            .set(cfgGnss::block::enable.in(block), (gnssMask >> system) & 1)
            .set(cfgGnss::block::sigCfgMask.in(block), dualBand ? signals.dualBand : signals.singleBand)
            .set(cfgGnss::block::flagsTop.in(block), signals.flagsTop);
    }

    int status = link_.send(payload.as(UBX_CFG_GNSS));
    status |= self_.configTimePulse(gnssMask, 0, true);
    status |= self_.configTimePulse(gnssMask, cfgTp5::kSecondPulse, true);
    unsigned short readBack = 0;
    status |= self_.getGnssSystem(readBack);
    return status | mismatch(readBack != gnssMask);
}

int LegacyOperations::getGnssSystem(unsigned short& gnssMask)
{
    gnssMask = 0;
    const Reply reply = link_.poll(emptyPoll(UBX_CFG_GNSS));
    if (!reply) return reply.status();

    unsigned enabled = 0;
    for (std::size_t system = 0; system < cfgGnss::kSystems; ++system) {
        const bool on = reply.payload().get(cfgGnss::block::enable.in(cfgGnss::blockOffset(system))) != 0;
        enabled |= (on ? 1U : 0U) << system;
    }
    gnssMask = static_cast<unsigned short>(enabled);
    return status::kDone;
}

int LegacyOperations::configureSBAS()
{
    return link_.send(Payload<cfgSbas::size>()
                          .set(cfgSbas::mode, cfgSbas::kEnabled)
                          .set(cfgSbas::usage, cfgSbas::kRangingAndCorrections)
                          .set(cfgSbas::maxSbas, cfgSbas::kMaxSbas)
                          .set(cfgSbas::scanmode1, cfgSbas::kPrnMask)
                          .as(UBX_CFG_SBAS));
}

} // namespace ubx
