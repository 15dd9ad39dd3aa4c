#pragma once

#include "simulator/receiver/Geodesy.h"

#include <cstdint>

namespace ubxsim
{

/// The survey-in: averages the position until the minimum time has passed and the mean is good enough.
class Survey
{
public:
    /// Starts anew; the first report shows one observation and no duration.
    void start(std::uint32_t minimumSeconds, double accuracyLimitMetres);
    void stop() { *this = Survey(); }

    /// One more second with a fix. `hopeless` keeps the mean from getting better.
    void addSecond(const Ecef& truth, bool hopeless);

    bool isActive() const { return active_; }
    bool isValid() const { return valid_; }
    std::uint32_t duration() const { return duration_; }
    std::uint32_t observations() const { return observations_; }
    double accuracy() const { return accuracy_; } // metres, of the mean
    const Ecef& mean() const { return mean_; }

private:
    bool active_ = false;
    bool valid_ = false;
    std::uint32_t minimum_ = 0;
    double limit_ = 0;
    std::uint32_t duration_ = 0;
    std::uint32_t observations_ = 0;
    double accuracy_ = 0;
    Ecef mean_;
};

} // namespace ubxsim
