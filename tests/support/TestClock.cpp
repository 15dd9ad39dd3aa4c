#include "TestClock.h"

#include <ctime>
#include <mutex>

namespace testclock
{

namespace
{

using Seconds = std::chrono::duration<double>;

Seconds machineClock()
{
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

// What time() shows is shownThen plus factor times what the machine's clock has moved since machineThen.
struct Setting
{
    std::mutex mutex;
    double factor = 1;
    Seconds machineThen{0};
    Seconds shownThen{0};

    Seconds shown() const { return shownThen + (machineClock() - machineThen) * factor; }
};

Setting setting; // Initialised before any code runs: time() may be asked very early.

} // namespace

void runFast(double factor)
{
    const std::lock_guard lock(setting.mutex);
    setting.shownThen = setting.shown();
    setting.machineThen = machineClock();
    setting.factor = factor;
}

void jump(std::chrono::seconds by)
{
    const std::lock_guard lock(setting.mutex);
    setting.shownThen += by;
}

void runNormally()
{
    const std::lock_guard lock(setting.mutex);
    setting.factor = 1;
    setting.machineThen = setting.shownThen = Seconds(0);
}

} // namespace testclock

// Takes the place of the C library's in this program and in the shared libraries that it uses.
extern "C" __attribute__((visibility("default"))) time_t time(time_t* result) noexcept
{
    const std::lock_guard lock(testclock::setting.mutex);
    const auto now = static_cast<time_t>(testclock::setting.shown().count());
    if (result != nullptr) *result = now;
    return now;
}
