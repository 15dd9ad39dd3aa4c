#pragma once

#include "simulator/receiver/Sky.h"
#include "simulator/receiver/Survey.h"

namespace ubxsim
{

enum class FixType : std::uint8_t
{
    none = 0,
    twoD = 2,
    threeD = 3,
    timeOnly = 5
};

/// Leap seconds as the receiver knows them.
struct LeapSeconds
{
    int current = kLeapSeconds;
    std::int8_t announcedChange = 0;
    std::int32_t secondsToEvent = 0;
    GpsTime event;
    bool happening = false; // UTC shows :60
};

/// Everything that the receiver reports about one navigation epoch. All messages are made from it, so they agree.
struct Epoch
{
    GpsTime time;
    UtcTime utc;
    LeapSeconds leap;
    std::uint32_t sinceStart = 0;     // ms
    std::uint32_t timeToFirstFix = 0; // ms
    bool timeKnown = false;

    FixType fix = FixType::none;
    Geodetic position;
    Ecef ecef;
    double horizontalAccuracy = 0;  // m
    double verticalAccuracy = 0;    // m
    std::uint32_t timeAccuracy = 0; // ns

    std::vector<Satellite> satellites;
    std::uint8_t used = 0;
    Survey survey;
    Reception reception;

    bool hasPosition() const { return fix != FixType::none; }
};

} // namespace ubxsim
