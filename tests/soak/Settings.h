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
    cableDelay,
    timeMode,
    surveyDuration,
    surveyLimit, ///< mm of a NEO-M8T, tenths of a ZED-F9T
    timeReference,
    antennaType,
    jamming, ///< of a NEO-M8T the byte that it is read from
    constellations,
    kFields
};

using Settings = std::array<long, kFields>;

/// As the receiver holds them at the moment.
Settings settingsOf(const ubxsim::ReceiverSimulator& receiver, bool zedF9t);

const char* nameOf(Field field);

} // namespace soak
