#include "controller/zedf9t/ZedF9tProfile.h"

#include "protocol/payloads/CfgRate.h"

namespace ubx
{

namespace
{

constexpr Word kAntennaTypes[] = {{"unknown", 0}, {"passive", 1}, {"active", 2}};

// The legacy message knows the other systems' time, but is only ever given these two.
constexpr Word kTimeReferences[] = {{"UTC", cfgRate::kUtc},
                                    {"GPS", cfgRate::kGps},
                                    {"GLO", cfgRate::kGps},
                                    {"BDS", cfgRate::kGps},
                                    {"GAL", cfgRate::kGps}};

// A list and not a rule on bits.
constexpr unsigned short kUtcGridMasks[] = {4, 6, 8, 10, 64, 66, 68, 72};

// Most systems keep their channels whatever the mask.
constexpr Channels kGps = {8, 16};
constexpr Channels kSbas = {4, 5};
constexpr Channels kGal = {10, 18};
constexpr Channels kBds = {4, 5};
constexpr Channels kImes = {0, 0};
constexpr Channels kQzss = {0, 3};
constexpr Channels kGlo = {8, 12};
constexpr Channels kAll = {16, 32};
constexpr Channels kHalf = {8, 16};
constexpr Channels kQuarter = {4, 8};
constexpr Channels kEighth = {2, 4};

// The odd ones are what the receiver is given: GPS for mask 5, SBAS with fewer at most than reserved and Galileo for
// mask 6.
constexpr ChannelRow kChannels[] = {
    // GPS, SBAS, Galileo, BeiDou, IMES, QZSS, GLONASS
    {1, {kAll, kSbas, kGal, kBds, kImes, kQzss, kGlo}},
    {3, {kHalf, kHalf, kGal, kBds, kImes, kQzss, kGlo}},
    {4, {kGps, kSbas, kQuarter, kBds, kImes, kQzss, kGlo}},
    {5, {{8, 24}, kSbas, kQuarter, kBds, kImes, kQzss, kGlo}},
    {6, {kGps, {16, 5}, {8, 18}, kBds, kImes, kQzss, kGlo}},
    {8, {kGps, kSbas, kGal, kAll, kImes, kQzss, kGlo}},
    {9, {kHalf, kSbas, kGal, kHalf, kImes, kQzss, kGlo}},
    {10, {kGps, kHalf, kGal, kHalf, kImes, kQzss, kGlo}},
    {16, {kGps, kSbas, kGal, kBds, kAll, kQzss, kGlo}},
    {64, {kGps, kSbas, kGal, kBds, kImes, kQzss, kAll}},
    {65, {kHalf, kSbas, kGal, kBds, kImes, kQzss, kHalf}},
    {66, {kGps, kHalf, kGal, kBds, kImes, kQzss, kHalf}},
    {67, {kHalf, kHalf, kGal, kBds, kImes, kQzss, kHalf}},
    {68, {kGps, kSbas, kQuarter, kBds, kImes, kQzss, {8, 24}}},
    {71, {kHalf, kQuarter, kEighth, kBds, kImes, kQzss, kEighth}},
    {72, {kGps, kSbas, kGal, kHalf, kImes, kQzss, kHalf}},
};

constexpr ChannelRow kChannelsOfOtherMasks = {0, {kGps, kSbas, kGal, kBds, kImes, kQzss, kGlo}};

constexpr SignalFlags kTwoBands = {0x01, 0x11, 0x01};
constexpr SignalFlags kTwoBandsGalileo = {0x01, 0x21, 0x01};
constexpr SignalFlags kOneBand = {0x01, 0x01, 0x01};
constexpr SignalFlags kImesSignals = {0x01, 0x01, 0x00};

constexpr std::uint8_t kUsno = 3;
constexpr std::uint8_t kEuropean = 5;
constexpr std::uint8_t kSoviet = 6;
constexpr std::uint8_t kChinese = 7;

constexpr UtcStandardRow kUtcStandards[] = {{1, kUsno},    {3, kUsno},  {4, kEuropean}, {5, kUsno},    {6, kEuropean},
                                            {8, kChinese}, {9, kUsno},  {10, kChinese}, {64, kSoviet}, {65, kUsno},
                                            {66, kSoviet}, {67, kUsno}, {68, kSoviet},  {71, kUsno},   {72, kSoviet}};

} // namespace

const LegacyProfile kZedF9tProfile = {
    kAntennaTypes,         kTimeReferences,
    kUtcGridMasks,         kChannels,
    kChannelsOfOtherMasks, {kTwoBands, kOneBand, kTwoBandsGalileo, kTwoBands, kImesSignals, kTwoBands, kTwoBands},
    kUtcStandards,
};

} // namespace ubx
