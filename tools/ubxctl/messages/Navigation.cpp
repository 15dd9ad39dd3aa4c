#include "messages/Navigation.h"

#include <cstdio>
#include <iterator>

namespace ubxctl
{

namespace
{

namespace navPvt
{
constexpr std::size_t year = 4, month = 6, day = 7, hour = 8, minute = 9, second = 10, valid = 11, tAcc = 12,
                      fixType = 20, flags = 21, numSV = 23, lon = 24, lat = 28, height = 32, hMSL = 36, hAcc = 40,
                      vAcc = 44;
constexpr std::uint8_t kValidDate = 0x01, kValidTime = 0x02, kFullyResolved = 0x04, kGnssFixOk = 0x01;
} // namespace navPvt

namespace navSat
{
constexpr std::size_t numSvs = 5, blocks = 8, blockSize = 12;
constexpr std::size_t gnssId = 0, svId = 1, cno = 2, elev = 3, azim = 4, flags = 8;
constexpr std::uint32_t kQualityMask = 0x07, kUsed = 0x08;
} // namespace navSat

constexpr double kDegreesPerUnit = 1e-7;
constexpr double kMetresPerMillimetre = 1e-3;

constexpr const char* kFixNames[] = {"NO-FIX", "DEAD-RECKONING",      "2D-FIX",
                                     "3D-FIX", "GNSS+DEAD-RECKONING", "TIME-ONLY"};

} // namespace

const GnssSystem kGnssTable[kGnssSystems] = {{"GPS", "GPS", 'G'},    {"SBAS", "SBAS", 'S'}, {"GAL", "Galileo", 'E'},
                                             {"BDS", "BeiDou", 'C'}, {"IMES", "IMES", 'I'}, {"QZSS", "QZSS", 'J'},
                                             {"GLO", "GLONASS", 'R'}};

NavigationSolution decodeNavPvt(const Bytes& payload)
{
    const auto valid = numberAt<std::uint8_t>(payload, navPvt::valid);
    const auto degrees = [&](std::size_t offset) { return numberAt<std::int32_t>(payload, offset) * kDegreesPerUnit; };
    const auto metres = [&](std::size_t offset) {
        return numberAt<std::int32_t>(payload, offset) * kMetresPerMillimetre;
    };
    NavigationSolution solution{};
    solution.year = numberAt<std::uint16_t>(payload, navPvt::year);
    solution.month = numberAt<std::uint8_t>(payload, navPvt::month);
    solution.day = numberAt<std::uint8_t>(payload, navPvt::day);
    solution.hour = numberAt<std::uint8_t>(payload, navPvt::hour);
    solution.minute = numberAt<std::uint8_t>(payload, navPvt::minute);
    solution.second = numberAt<std::uint8_t>(payload, navPvt::second);
    solution.dateValid = (valid & navPvt::kValidDate) != 0;
    solution.timeValid = (valid & navPvt::kValidTime) != 0;
    solution.timeResolved = (valid & navPvt::kFullyResolved) != 0;
    solution.timeAccuracyNs = numberAt<std::uint32_t>(payload, navPvt::tAcc);
    solution.fix = static_cast<NavigationSolution::Fix>(numberAt<std::uint8_t>(payload, navPvt::fixType));
    solution.fixOk = (numberAt<std::uint8_t>(payload, navPvt::flags) & navPvt::kGnssFixOk) != 0;
    solution.satellitesUsed = numberAt<std::uint8_t>(payload, navPvt::numSV);
    solution.latitude = degrees(navPvt::lat);
    solution.longitude = degrees(navPvt::lon);
    solution.height = metres(navPvt::height);
    solution.heightAboveSea = metres(navPvt::hMSL);
    solution.horizontalAccuracy = numberAt<std::uint32_t>(payload, navPvt::hAcc) * kMetresPerMillimetre;
    solution.verticalAccuracy = numberAt<std::uint32_t>(payload, navPvt::vAcc) * kMetresPerMillimetre;
    return solution;
}

std::string nameOf(NavigationSolution::Fix fix)
{
    const auto index = static_cast<std::size_t>(fix);
    return index < std::size(kFixNames) ? kFixNames[index] : "UNKNOWN";
}

std::string utcOf(const NavigationSolution& solution)
{
    if (!solution.dateValid || !solution.timeValid) return "";
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02dZ", solution.year, solution.month, solution.day,
                  solution.hour, solution.minute, solution.second);
    return text;
}

std::string Satellite::name() const
{
    char text[8];
    std::snprintf(text, sizeof text, "%c%02u", gnssId < kGnssSystems ? kGnssTable[gnssId].letter : '?',
                  static_cast<unsigned int>(number));
    return text;
}

std::vector<Satellite> decodeNavSat(const Bytes& payload)
{
    std::vector<Satellite> satellites;
    const std::size_t claimed = numberAt<std::uint8_t>(payload, navSat::numSvs);
    for (std::size_t i = 0; i < claimed; ++i) {
        const std::size_t block = navSat::blocks + i * navSat::blockSize;
        if (block + navSat::blockSize > payload.size()) break;
        const auto flags = numberAt<std::uint32_t>(payload, block + navSat::flags);
        satellites.push_back({numberAt<std::uint8_t>(payload, block + navSat::gnssId),
                              numberAt<std::uint8_t>(payload, block + navSat::svId),
                              numberAt<std::uint8_t>(payload, block + navSat::cno),
                              numberAt<std::int8_t>(payload, block + navSat::elev),
                              numberAt<std::int16_t>(payload, block + navSat::azim),
                              static_cast<int>(flags & navSat::kQualityMask), (flags & navSat::kUsed) != 0});
    }
    return satellites;
}

} // namespace ubxctl
