#include <ZedF9tUbxMessageBuilder.h>

#include <array>
#include <cstddef>
#include <tuple>

#include "config/KeyValuePayload.h"
#include "config/Keys.h"

namespace keys = ubx::keys;
using ubx::Key;
using ubx::setPayload;
using ubx::Setting;

namespace
{

/// Places in the caller's array of flags. Place 4, IMES, has no key in this receiver.
enum Constellation : std::size_t
{
    kGps = 0,
    kSbas = 1,
    kGalileo = 2,
    kBeidou = 3,
    kQzss = 5,
    kGlonass = 6,
    kNavic = 7,
};

enum class Rule
{
    FollowsFlag,
    FollowsFlagInDualBand,
    Off,
};

struct SignalRow
{
    Key<bool> key;
    Constellation constellation;
    Rule rule;

    constexpr bool isOn(const bool* gnss, bool dualBand) const
    {
        return rule != Rule::Off && gnss[constellation] && (dualBand || rule == Rule::FollowsFlag);
    }
};

constexpr std::array<SignalRow, 18> kSignals = {{
    {keys::signalGpsEna, kGps, Rule::FollowsFlag},
    {keys::signalGpsL1caEna, kGps, Rule::FollowsFlag},
    {keys::signalGpsL2cEna, kGps, Rule::FollowsFlagInDualBand},
    {keys::signalSbasEna, kSbas, Rule::FollowsFlag},
    {keys::signalSbasL1caEna, kSbas, Rule::FollowsFlag},
    {keys::signalGalEna, kGalileo, Rule::FollowsFlag},
    {keys::signalGalE1Ena, kGalileo, Rule::FollowsFlag},
    {keys::signalGalE5bEna, kGalileo, Rule::FollowsFlagInDualBand},
    {keys::signalBdsEna, kBeidou, Rule::FollowsFlag},
    {keys::signalBdsB1Ena, kBeidou, Rule::FollowsFlag},
    {keys::signalBdsB2Ena, kBeidou, Rule::FollowsFlagInDualBand},
    {keys::signalQzssEna, kQzss, Rule::FollowsFlag},
    {keys::signalQzssL1caEna, kQzss, Rule::FollowsFlag},
    {keys::signalQzssL1sEna, kQzss, Rule::FollowsFlag},
    {keys::signalQzssL2cEna, kQzss, Rule::FollowsFlagInDualBand},
    {keys::signalGloEna, kGlonass, Rule::FollowsFlag},
    {keys::signalGloL1Ena, kGlonass, Rule::FollowsFlag},
    {keys::signalGloL2Ena, kGlonass, Rule::FollowsFlagInDualBand},
}};

// Signals before constellations, and without QZSS L1S, which this firmware no longer knows.
constexpr std::array<SignalRow, 24> kSignalsForTim2_20 = {{
    {keys::signalGpsL1caEna, kGps, Rule::FollowsFlag},
    {keys::signalGpsL2cEna, kGps, Rule::FollowsFlagInDualBand},
    {keys::signalGpsL5Ena, kGps, Rule::Off},
    {keys::signalSbasL1caEna, kSbas, Rule::FollowsFlag},
    {keys::signalGalE1Ena, kGalileo, Rule::FollowsFlag},
    {keys::signalGalE5aEna, kGalileo, Rule::Off},
    {keys::signalGalE5bEna, kGalileo, Rule::FollowsFlagInDualBand},
    {keys::signalBdsB1Ena, kBeidou, Rule::FollowsFlag},
    {keys::signalBdsB2Ena, kBeidou, Rule::FollowsFlagInDualBand},
    {keys::signalBdsB1cEna, kBeidou, Rule::Off},
    {keys::signalQzssL1caEna, kQzss, Rule::FollowsFlag},
    {keys::signalQzssL2cEna, kQzss, Rule::FollowsFlagInDualBand},
    {keys::signalQzssL5Ena, kQzss, Rule::Off},
    {keys::signalGloL1Ena, kGlonass, Rule::FollowsFlag},
    {keys::signalGloL2Ena, kGlonass, Rule::FollowsFlagInDualBand},
    {keys::signalNavicL5Ena, kNavic, Rule::Off},
    {keys::signalGpsEna, kGps, Rule::FollowsFlag},
    {keys::signalSbasEna, kSbas, Rule::FollowsFlag},
    {keys::signalGalEna, kGalileo, Rule::FollowsFlag},
    {keys::signalBdsEna, kBeidou, Rule::FollowsFlag},
    {keys::signalQzssEna, kQzss, Rule::FollowsFlag},
    {keys::signalGloEna, kGlonass, Rule::FollowsFlag},
    {keys::signalNavicEna, kNavic, Rule::FollowsFlag},
    {keys::signalBdsB2aEna, kBeidou, Rule::Off},
}};

constexpr bool usesNavic(const SignalRow* rows, std::size_t count)
{
    for (std::size_t row = 0; row < count; ++row)
        if (rows[row].constellation == kNavic) return true;
    return false;
}

static_assert(!usesNavic(kSignals.data(), kSignals.size()), "callers of configureSIGNAL give seven flags only");
static_assert(usesNavic(kSignalsForTim2_20.data(), kSignalsForTim2_20.size()));

template <std::size_t count>
std::array<Setting<bool>, count> switched(const std::array<SignalRow, count>& rows, const bool* gnss, bool dualBand)
{
    return std::apply(
        [=](const auto&... row) {
            return std::array{Setting{row.key, row.isOn(gnss, dualBand)}...};
        },
        rows);
}

} // namespace

unsigned int ZedF9tUbxMessageBuilder::configureSIGNAL(unsigned char* buffer, bool* gnss, bool dualBand)
{
    return setPayload(buffer, switched(kSignals, gnss, dualBand));
}

unsigned int ZedF9tUbxMessageBuilder::configureSIGNALForTim2_20(unsigned char* buffer, bool* gnss, bool dualBand)
{
    return setPayload(buffer, switched(kSignalsForTim2_20, gnss, dualBand));
}
