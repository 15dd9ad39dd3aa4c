#include "simulator/receiver/SimTime.h"

namespace ubxsim
{

namespace
{

constexpr std::int64_t kGpsEpochUnixMilliseconds = 315964800000;
constexpr std::int64_t kMillisecondsPerDay = 86400000;

// Days since 1 January 1970 to a date of the Gregorian calendar; the year runs from March to February in between.
void dateOf(std::int64_t days, UtcTime& utc)
{
    const std::int64_t shifted = days + 719468; // since 1 March of year 0
    const std::int64_t era = shifted / 146097;
    const std::int64_t dayOfEra = shifted - era * 146097;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t marchMonth = (5 * dayOfYear + 2) / 153;
    const std::int64_t month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
    utc.day = static_cast<std::uint8_t>(dayOfYear - (153 * marchMonth + 2) / 5 + 1);
    utc.month = static_cast<std::uint8_t>(month);
    utc.year = static_cast<std::uint16_t>(yearOfEra + era * 400 + (month <= 2 ? 1 : 0));
}

} // namespace

std::uint16_t GpsTime::week() const
{
    return static_cast<std::uint16_t>(milliseconds / kMillisecondsPerWeek);
}

std::uint32_t GpsTime::timeOfWeek() const
{
    return static_cast<std::uint32_t>(milliseconds % kMillisecondsPerWeek);
}

GpsTime gpsTimeOf(std::int64_t unixMilliseconds)
{
    return {unixMilliseconds - kGpsEpochUnixMilliseconds + kLeapSeconds * std::int64_t{1000}};
}

UtcTime utcTimeOf(GpsTime time, int leapSeconds, bool inLeapSecond)
{
    std::int64_t unixMilliseconds = time.milliseconds + kGpsEpochUnixMilliseconds - leapSeconds * std::int64_t{1000};
    unixMilliseconds -= inLeapSecond ? 1000 : 0;
    const std::int64_t ofDay = unixMilliseconds % kMillisecondsPerDay;
    UtcTime utc;
    dateOf(unixMilliseconds / kMillisecondsPerDay, utc);
    utc.hour = static_cast<std::uint8_t>(ofDay / 3600000);
    utc.minute = static_cast<std::uint8_t>(ofDay / 60000 % 60);
    utc.second = static_cast<std::uint8_t>(ofDay / 1000 % 60 + (inLeapSecond ? 1 : 0));
    utc.millisecond = static_cast<std::uint16_t>(ofDay % 1000);
    return utc;
}

} // namespace ubxsim
