#pragma once

#include <cstdint>
#include <limits>

/// Ranges of arguments, for every way of setting them. A value that is not a number is in none.
namespace ubx
{

/// ns
inline bool isCableDelay(int delayNs)
{
    using Delay = std::numeric_limits<std::int16_t>;
    return delayNs >= Delay::min() && delayNs <= Delay::max();
}

/// dBHz
inline bool isMinCNo(signed char minCNo)
{
    return minCNo >= 0 && minCNo <= 50;
}

inline bool isElevationLimit(unsigned char degrees)
{
    return degrees >= 5 && degrees <= 60;
}

/// Degrees and metres.
inline bool isFixedPosition(double latitude, double longitude, double height, double accuracy)
{
    return latitude >= -90.0 && latitude <= 90.0 && longitude >= -180.0 && longitude <= 180.0 && height >= -1000.0 &&
           height <= 10000.0 && accuracy >= 0.01 && accuracy <= 200.0;
}

/// Seconds and metres. The accuracy is compared in its own precision, so that the float 0.01 is inside.
inline bool isSurvey(unsigned int duration, float accuracy)
{
    return duration >= 1 && duration <= 30000000 && accuracy >= 0.01F && accuracy <= 50.0F;
}

inline constexpr unsigned int kDefaultSurveyDuration = 10800; // s, three hours
inline constexpr float kDefaultSurveyAccuracy = 1.0F;         // m

} // namespace ubx
