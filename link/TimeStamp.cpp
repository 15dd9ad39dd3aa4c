#include "link/TimeStamp.h"

#include <cstdio>
#include <ctime>

#include <sys/time.h>

std::string ubx::timeStamp()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char timeOfDay[100];
    const std::size_t length = std::strftime(timeOfDay, sizeof timeOfDay, "%X", &local);

    // A second reading of the clock: at the turn of a second the two may disagree, which is accepted.
    timeval fine{};
    gettimeofday(&fine, nullptr);
    char milliseconds[sizeof "_042: "];
    std::snprintf(milliseconds, sizeof milliseconds, "_%03u: ", static_cast<unsigned>(fine.tv_usec / 1000) % 1000U);

    return std::string(timeOfDay, length) + milliseconds;
}
