#include "simulator/receiver/Sky.h"

#include "simulator/settings/GnssBlocks.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace ubxsim
{

namespace
{

/// A made-up orbit: elevation and azimuth move evenly, the elevation turns back at its limits.
struct Orbit
{
    std::uint8_t gnssId;
    std::uint8_t svId;
    double elevation; // degrees, at the start
    double azimuth;
    double climb; // degrees per 1000 s; 0 for a geostationary satellite
};

constexpr Orbit kOrbits[] = {
    {0, 2, 24, 310, 4.0},   {0, 8, 37, 282, -3.5},  {0, 10, 73, 11, 2.0},  {0, 18, 19, 128, 4.5},
    {0, 23, 36, 68, -3.0},  {0, 24, 22, 60, 3.5},   {0, 27, 41, 236, 4.0}, {0, 28, 3, 165, 4.0},
    {0, 32, 62, 186, -4.0}, {0, 15, 52, 330, 3.0},  {0, 29, 13, 96, -2.5}, {0, 5, -6, 205, 4.0},
    {1, 129, 48, 12, 0},    {1, 137, 44, 35, 0},    {1, 127, 31, 290, 0},  {2, 4, 46, 57, 4.0},
    {2, 5, 19, 203, -3.0},  {2, 6, 66, 93, 2.5},    {2, 9, 65, 161, -3.0}, {2, 10, 24, 121, 3.5},
    {2, 11, 52, 116, 3.0},  {2, 36, 72, 322, -2.0}, {2, 12, 4, 123, 3.0},  {3, 3, 58, 18, 0},
    {3, 11, 68, 271, 3.0},  {3, 12, 42, 166, -3.0}, {3, 21, 74, 40, 2.0},  {3, 22, 21, 54, 3.5},
    {3, 34, 63, 203, -3.5}, {3, 42, 50, 242, 3.0},  {3, 44, 18, 158, 4.0}, {5, 1, 61, 352, 1.5},
    {5, 2, 35, 20, -1.5},   {5, 3, 58, 14, 0},      {6, 1, 58, 214, 4.5},  {6, 2, 34, 305, -4.0},
    {6, 8, 27, 160, 4.0},   {6, 9, 16, 82, -3.5},   {6, 10, 49, 44, 3.0},  {6, 17, 71, 130, -2.5},
    {6, 18, 44, 190, 4.0},  {6, 24, 12, 341, 4.0},
};

/// A signal: its key, its number in UBX and NMEA, and how much weaker it comes in than the first.
struct SignalRow
{
    std::uint8_t gnssId;
    Key key;
    std::uint8_t sigId;
    std::uint8_t nmeaId;
    std::uint8_t weaker; // dB
};

constexpr SignalRow kSignals[] = {
    {0, key::gpsL1ca, 0, 1, 0}, {0, key::gpsL2c, 3, 6, 6},  {0, key::gpsL5, 6, 8, 4},  {1, key::sbasL1ca, 0, 1, 0},
    {2, key::galE1, 0, 7, 0},   {2, key::galE5a, 3, 1, 4},  {2, key::galE5b, 5, 2, 3}, {3, key::bdsB1, 0, 1, 0},
    {3, key::bdsB2, 2, 3, 4},   {3, key::bdsB1c, 5, 3, 2},  {3, key::bdsB2a, 7, 5, 3}, {5, key::qzssL1ca, 0, 1, 0},
    {5, key::qzssL1s, 1, 4, 2}, {5, key::qzssL2c, 5, 6, 6}, {5, key::qzssL5, 8, 8, 4}, {6, key::gloL1, 0, 1, 0},
    {6, key::gloL2, 2, 3, 5},
};

constexpr double kLowest = -20.0;
constexpr double kHighest = 86.0;
constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr int kJammingLoss = 38; // dB

// To and fro between the limits.
double elevationAt(const Orbit& orbit, double seconds)
{
    const double range = kHighest - kLowest;
    double phase = std::fmod(orbit.elevation - kLowest + orbit.climb * seconds / 1000.0, 2 * range);
    phase += phase < 0 ? 2 * range : 0;
    return kLowest + (phase <= range ? phase : 2 * range - phase);
}

double azimuthAt(const Orbit& orbit, double seconds)
{
    const double azimuth = std::fmod(orbit.azimuth + (orbit.climb == 0 ? 0 : seconds / 400.0), 360.0);
    return azimuth < 0 ? azimuth + 360.0 : azimuth;
}

// A small number that looks random and is the same in every run.
int jitter(const Orbit& orbit, std::int64_t second, int range)
{
    auto value = static_cast<std::uint64_t>(second) * 2654435761U + std::uint64_t{40503} * orbit.svId +
                 std::uint64_t{977} * orbit.gnssId;
    value ^= value >> 13;
    value *= 0x9E3779B97F4A7C15U;
    return static_cast<int>((value >> 33) % static_cast<std::uint64_t>(2 * range + 1)) - range;
}

// The signals that the receiver looks for. Asked for once per epoch: the store is searched by key.
std::vector<SignalRow> enabledSignals(const SettingsStore& store)
{
    std::vector<SignalRow> enabled;
    for (const SignalRow& row : kSignals) {
        if (store.get(row.key) != 0 && store.get(gnssBlocks()[row.gnssId].enable) != 0) {
            enabled.push_back(row);
        }
    }
    return enabled;
}

std::vector<Signal> receivedSignals(const std::vector<SignalRow>& enabled, const Orbit& orbit, int cno)
{
    std::vector<Signal> signals;
    for (const SignalRow& row : enabled) {
        if (row.gnssId == orbit.gnssId) {
            const int level = std::max(0, cno - row.weaker);
            signals.push_back({row.sigId, row.nmeaId, static_cast<std::uint8_t>(level < 8 ? 0 : level)});
        }
    }
    return signals;
}

bool isSbas(const Satellite& satellite)
{
    return satellite.gnssId == 1;
}

// The strongest satellites of each constellation get its channels; the others aren't looked at.
void limitChannels(std::vector<Satellite>& satellites, const SettingsStore& store)
{
    std::stable_sort(satellites.begin(), satellites.end(),
                     [](const Satellite& a, const Satellite& b) { return a.cno > b.cno; });
    std::map<std::uint8_t, std::uint64_t> taken;
    satellites.erase(std::remove_if(satellites.begin(), satellites.end(),
                                    [&](const Satellite& satellite) {
                                        const GnssBlock& block = gnssBlocks()[satellite.gnssId];
                                        return ++taken[satellite.gnssId] > store.get(block.highestChannels());
                                    }),
                     satellites.end());
    std::stable_sort(satellites.begin(), satellites.end(), [](const Satellite& a, const Satellite& b) {
        return std::make_pair(a.gnssId, a.svId) < std::make_pair(b.gnssId, b.svId);
    });
}

} // namespace

std::vector<Satellite> satellitesInView(const ModelProfile& profile, const SettingsStore& store,
                                        const Reception& reception, SimTime time)
{
    const double seconds = std::chrono::duration<double>(time).count();
    const auto second = std::chrono::duration_cast<std::chrono::seconds>(time).count();
    const auto lowestElevation = static_cast<std::int8_t>(store.get(key::minElev));
    const std::uint64_t lowestCno = store.get(key::minCno);

    std::vector<Satellite> satellites;
    if (reception.isDeaf()) {
        return satellites;
    }
    const std::vector<SignalRow> signals = enabledSignals(store);
    for (const Orbit& orbit : kOrbits) {
        const double elevation = elevationAt(orbit, seconds);
        const bool lookedFor = std::any_of(signals.begin(), signals.end(),
                                           [&](const SignalRow& row) { return row.gnssId == orbit.gnssId; });
        if (elevation < 0 || !lookedFor) {
            continue;
        }
        Satellite satellite;
        satellite.gnssId = orbit.gnssId;
        satellite.svId = orbit.svId;
        satellite.elevation = static_cast<std::int8_t>(elevation);
        satellite.azimuth = static_cast<std::int16_t>(azimuthAt(orbit, seconds));
        satellite.residual = static_cast<std::int16_t>(jitter(orbit, second, 20));
        const int level = 27 + static_cast<int>(21.0 * std::sin(elevation / kDegreesPerRadian)) +
                          jitter(orbit, second, 1) - (reception.jammed ? kJammingLoss : 0);
        satellite.signals = receivedSignals(signals, orbit, level);
        for (const Signal& signal : satellite.signals) {
            satellite.cno = std::max(satellite.cno, signal.cno);
        }
        satellite.used = satellite.tracked() && satellite.elevation >= lowestElevation && satellite.cno >= lowestCno &&
                         !isSbas(satellite);
        satellites.push_back(std::move(satellite));
    }
    if (profile.limitsChannels) {
        limitChannels(satellites, store);
    }
    return satellites;
}

} // namespace ubxsim
