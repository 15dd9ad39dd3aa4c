#include "simulator/receiver/Survey.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace ubxsim
{

namespace
{

struct AccuracyPoint
{
    double seconds;
    double metres;
};

// How the mean gets better on a real receiver with a good view of the sky. In the first minute it hardly does.
constexpr AccuracyPoint kTypicalAccuracy[] = {{1, 12.3},  {60, 12.0},  {300, 1.0},
                                              {600, 0.9}, {3600, 0.5}, {43200, 0.14}};
constexpr double kHopelessAccuracy = 12.0;

double typicalAccuracy(double seconds)
{
    const auto* after = std::find_if(std::begin(kTypicalAccuracy), std::end(kTypicalAccuracy),
                                     [seconds](const AccuracyPoint& point) { return point.seconds >= seconds; });
    if (after == std::begin(kTypicalAccuracy)) {
        return after->metres;
    }
    const auto* before = std::prev(after);
    if (after == std::end(kTypicalAccuracy)) {
        return before->metres * std::sqrt(before->seconds / seconds);
    }
    const double part = std::log(seconds / before->seconds) / std::log(after->seconds / before->seconds);
    return before->metres * std::pow(after->metres / before->metres, part);
}

} // namespace

void Survey::start(std::uint32_t minimumSeconds, double accuracyLimitMetres)
{
    *this = Survey();
    active_ = true;
    minimum_ = minimumSeconds;
    limit_ = accuracyLimitMetres;
}

void Survey::addSecond(const Ecef& truth, bool hopeless)
{
    if (!active_) {
        return;
    }
    duration_ = observations_;
    ++observations_;
    const double seconds = std::max(1.0, static_cast<double>(duration_));
    // The estimate itself is noisy, so it is not monotonic from one second to the next.
    const double noise = 1.0 + 0.01 * std::sin(seconds * 2.39996);
    accuracy_ = (hopeless ? kHopelessAccuracy : typicalAccuracy(seconds)) * noise;

    const double drift = 0.3 * accuracy_;
    mean_ = {truth.x + drift * std::sin(seconds / 97.0), truth.y + drift * std::sin(seconds / 131.0 + 1.0),
             truth.z + drift * std::sin(seconds / 173.0 + 2.0)};
    if (duration_ >= minimum_ && accuracy_ <= limit_) {
        active_ = false;
        valid_ = true;
    }
}

} // namespace ubxsim
