#pragma once

#include <array>

#include "simulator/ReceiverSimulator.h"

namespace soak
{

/// How the library talks to which receiver.
enum class Drive
{
    neoM8t,
    zedF9tItems,
    zedF9tMessages
};

inline constexpr std::size_t kDrives = 3;

inline bool isZedF9t(Drive drive)
{
    return drive != Drive::neoM8t;
}

/// What is kept an eye on.
enum Field : std::size_t
{
    minCNo,
    elevation,
    dynamicModel,
    fixMode,
    utcStandard,
    cableDelay,
    firstPulse,
    secondPulse,
    timeMode,
    positionType,
    latitude, ///< of the fixed position, in units of its message, as are the next two
    longitude,
    height,
    ecefX, ///< the same three fields of the message when it is no fixed position
    ecefY,
    ecefZ,
    positionAccuracy, ///< mm of a NEO-M8T, tenths of a ZED-F9T
    surveyDuration,
    surveyLimit, ///< the same units
    timeReference,
    antennaType,
    jamming,
    jammingByte, ///< where messages put the detection
    constellations,
    secondBand, ///< of GPS
    rxMode,
    powerUpdatePeriod,
    sbasSatellites,
    outProtocols,  ///< of a ZED-F9T those of its USB port
    satelliteRate, ///< of a ZED-F9T on its I2C port
    gsaRate,
    ggaRate,
    kFields
};

using Settings = std::array<long, kFields>;

/// As the receiver holds them at the moment.
Settings settingsOf(const ubxsim::ReceiverSimulator& receiver, bool zedF9t);

const char* nameOf(Field field);

} // namespace soak
