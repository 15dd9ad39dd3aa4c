#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "wire/Bytes.h"

namespace ubxctl
{

inline constexpr std::uint16_t kNavPvt = 0x0107;
inline constexpr std::uint16_t kNavSat = 0x0135;

/// NAV-PVT: time, fix and position of the present solution.
struct NavigationSolution
{
    enum class Fix : std::uint8_t
    {
        none,
        deadReckoning,
        flat,
        full,
        combined,
        timeOnly
    };

    int year, month, day, hour, minute, second;
    bool dateValid, timeValid, timeResolved;
    double timeAccuracyNs;
    Fix fix;
    bool fixOk;
    int satellitesUsed;
    double latitude, longitude;                  // degrees
    double height;                               // m above the ellipsoid
    double heightAboveSea;                       // m
    double horizontalAccuracy, verticalAccuracy; // m
};

NavigationSolution decodeNavPvt(const Bytes& payload);

/// "3D-FIX" and the other words of the navigation report.
std::string nameOf(NavigationSolution::Fix fix);

/// "2024-03-07T09:05:42Z"; empty while date or time are not known.
std::string utcOf(const NavigationSolution& solution);

struct Satellite
{
    std::uint8_t gnssId;
    std::uint8_t number;
    int signal;    // C/N0, dBHz; 0 not received
    int elevation; // degrees; see hasPlace()
    int azimuth;   // degrees
    int quality;   // 0 to 7
    bool used;

    /// Whether the receiver knows where it stands.
    bool hasPlace() const { return elevation >= -90 && elevation <= 90 && (elevation != 0 || azimuth != 0); }
    /// "G12", as maps of the sky name them.
    std::string name() const;
};

/// NAV-SAT. What the message claims to hold and does not is left out.
std::vector<Satellite> decodeNavSat(const Bytes& payload);

struct GnssSystem
{
    const char* word; // as ubxctl takes and gives it
    const char* name;
    char letter;
};

inline constexpr std::size_t kGnssSystems = 7;

/// By gnssId, which is also the bit of the constellation mask.
extern const GnssSystem kGnssTable[kGnssSystems];

} // namespace ubxctl
