#include "controller/neom8t/NeoM8tProfile.h"

#include "protocol/payloads/CfgRate.h"

namespace ubx
{

namespace
{

constexpr Word kAntennaTypes[] = {{"passive", 1}, {"active", 2}};

constexpr Word kTimeReferences[] = {{"UTC", cfgRate::kUtc}, {"GPS", cfgRate::kGps}};

constexpr unsigned short kUtcGridMasks[] = {8, 10, 64, 66, 72}; // BeiDou, GLONASS, SBAS and nothing of the GPS family

constexpr Channels kNone = {0, 0};
constexpr Channels kAll = {16, 32};
constexpr Channels kHalf = {8, 16};
constexpr Channels kQuarter = {4, 8};
constexpr Channels kGalileo = {8, 8};

constexpr ChannelRow kChannels[] = {
    // GPS, SBAS, Galileo, BeiDou, IMES, QZSS, GLONASS
    {1, {kAll, kNone, kNone, kNone, kNone, kNone, kNone}},
    {3, {kHalf, kHalf, kNone, kNone, kNone, kNone, kNone}},
    {4, {kNone, kNone, kGalileo, kNone, kNone, kNone, kNone}},
    {5, {kHalf, kNone, kGalileo, kNone, kNone, kNone, kNone}},
    {6, {kNone, kHalf, kGalileo, kNone, kNone, kNone, kNone}},
    {8, {kNone, kNone, kNone, kAll, kNone, kNone, kNone}},
    {9, {kHalf, kNone, kNone, kHalf, kNone, kNone, kNone}},
    {10, {kNone, kHalf, kNone, kHalf, kNone, kNone, kNone}},
    {16, {kNone, kNone, kNone, kNone, kAll, kNone, kNone}},
    {64, {kNone, kNone, kNone, kNone, kNone, kNone, kAll}},
    {65, {kHalf, kNone, kNone, kNone, kNone, kNone, kHalf}},
    {66, {kNone, kHalf, kNone, kNone, kNone, kNone, kHalf}},
    {67, {kHalf, kHalf, kNone, kNone, kNone, kNone, kHalf}},
    {68, {kNone, kNone, kGalileo, kNone, kNone, kNone, kQuarter}},
    {71, {kHalf, kQuarter, kGalileo, kNone, kNone, kNone, kQuarter}},
    {72, {kNone, kNone, kNone, kHalf, kNone, kNone, kHalf}},
};

constexpr ChannelRow kNoChannels = {0, {kNone, kNone, kNone, kNone, kNone, kNone, kNone}};

constexpr SignalFlags kOneBand = {0x01, 0x01, 0x00};

} // namespace

const LegacyProfile kNeoM8tProfile = {
    kAntennaTypes,
    kTimeReferences,
    kUtcGridMasks,
    kChannels,
    kNoChannels,
    {kOneBand, kOneBand, kOneBand, kOneBand, kOneBand, kOneBand, kOneBand},
    {}, // the UTC standard is not set by GNSS mask on this model
};

} // namespace ubx
