#include <ZedF9tUbxMessageBuilder.h>

#include <array>
#include <cstdint>

#include "config/KeyValuePayload.h"
#include "config/Keys.h"

namespace keys = ubx::keys;
using ubx::Key;
using ubx::setPayload;
using ubx::Setting;

namespace
{

constexpr std::uint8_t kDefinedByPeriod = 0;
constexpr std::uint8_t kDefinedByLength = 1;
constexpr std::int16_t kNoCableDelay = 0;
constexpr std::uint32_t kPeriodUs = 1'000'000;
constexpr std::uint32_t kLengthUnlockedUs = 0;
constexpr std::uint32_t kLengthLockedUs = 100'000;

struct TimePulseKeys
{
    Key<bool> enable;
    Key<std::uint32_t> period;
    Key<std::uint32_t> periodLocked;
    Key<std::uint32_t> length;
    Key<std::uint32_t> lengthLocked;
    Key<std::uint8_t> timeGrid;
    Key<bool> syncGnss;
    Key<bool> useLocked;
};

// The second pulse sets the unlocked length of the first one. That is meant.
constexpr std::array<TimePulseKeys, 2> kPulses = {{
    {keys::tpTp1Ena, keys::tpPeriodTp1, keys::tpPeriodLockTp1, keys::tpLenTp1, keys::tpLenLockTp1, keys::tpTimegridTp1,
     keys::tpSyncGnssTp1, keys::tpUseLockedTp1},
    {keys::tpTp2Ena, keys::tpPeriodTp2, keys::tpPeriodLockTp2, keys::tpLenTp1, keys::tpLenLockTp2, keys::tpTimegridTp2,
     keys::tpSyncGnssTp2, keys::tpUseLockedTp2},
}};

} // namespace

unsigned int ZedF9tUbxMessageBuilder::configureTP(unsigned char* buffer, unsigned char pulse, unsigned char timeGrid,
                                                  bool enable)
{
    const Setting pulseDefinition{keys::tpPulseDef, kDefinedByPeriod};
    const Setting lengthDefinition{keys::tpPulseLengthDef, kDefinedByLength};
    const Setting cableDelay{keys::tpAntCableDelay, kNoCableDelay};
    if (pulse >= kPulses.size()) return setPayload(buffer, pulseDefinition, lengthDefinition, cableDelay);

    const TimePulseKeys& key = kPulses[pulse];
    return setPayload(buffer, pulseDefinition, lengthDefinition, cableDelay, //
                      Setting{key.enable, enable},                           //
                      Setting{key.period, kPeriodUs},                        //
                      Setting{key.periodLocked, kPeriodUs},                  //
                      Setting{key.length, kLengthUnlockedUs},                //
                      Setting{key.lengthLocked, kLengthLockedUs},            //
                      Setting{key.timeGrid, timeGrid},                       //
                      Setting{key.syncGnss, true},                           //
                      Setting{key.useLocked, true});
}
