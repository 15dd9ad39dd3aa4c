#pragma once

#include <chrono>
#include <cstdint>

namespace ubxsim
{

/// Time since the simulated receiver was switched on. It can run faster than the wall clock.
using SimTime = std::chrono::microseconds;

/// Seconds since the GPS epoch, 6 January 1980, without leap seconds, with a fraction.
struct GpsTime
{
    std::int64_t milliseconds = 0;

    std::uint16_t week() const;
    std::uint32_t timeOfWeek() const; // ms
};

/// A UTC date and time. During a leap second the second is 60.
struct UtcTime
{
    std::uint16_t year = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;
    std::uint16_t millisecond = 0;
};

inline constexpr int kLeapSeconds = 18; // since 2017
inline constexpr std::int64_t kMillisecondsPerWeek = 604800000;

/// Milliseconds since 1 January 1970 UTC to GPS time.
GpsTime gpsTimeOf(std::int64_t unixMilliseconds);

/// `leapSeconds` is what GPS time is ahead of UTC; `inLeapSecond` makes the second before shown as :60.
UtcTime utcTimeOf(GpsTime time, int leapSeconds, bool inLeapSecond);

} // namespace ubxsim
