#pragma once

#include <cstdint>

#include "wire/Bytes.h"

namespace ubxctl
{

inline constexpr std::uint16_t kTimSvin = 0x0D04;

/// A place on or above the Earth.
struct Position
{
    double latitude;  // degrees
    double longitude; // degrees
    double height;    // m above the ellipsoid
};

/// TIM-SVIN: how far a survey-in has come.
struct SurveyProgress
{
    std::uint32_t duration; // s
    std::uint32_t observations;
    double accuracy; // m: the standard deviation of the mean position
    bool valid;      // the position is good
    bool active;     // it goes on
    double x, y, z;  // m, Earth-centred: the mean position

    bool hasPosition() const { return x != 0 || y != 0 || z != 0; }
    Position position() const;
};

SurveyProgress decodeTimSvin(const Bytes& payload);

/// From Earth-centred coordinates (m) to latitude, longitude and height on the WGS 84 ellipsoid.
Position fromEarthCentred(double x, double y, double z);

} // namespace ubxctl
