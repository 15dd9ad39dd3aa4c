#pragma once

#include <chrono>

/// The clock that time() shows, in test programs and in every library that they use.
///
/// Only time() is concerned. Time stamps and std::chrono clocks stay those of the machine.
namespace testclock
{

/// From now on time() runs this many times as fast as the machine's clock, starting from where it is.
void runFast(double factor);

/// Puts time() ahead (or back) by this much.
void jump(std::chrono::seconds by);

/// Back to the machine's clock.
void runNormally();

/// Runs the clock fast while it is in scope: a wait of five seconds by time() takes 50 ms with a factor of 100.
class FastClock
{
public:
    explicit FastClock(double factor) { runFast(factor); }
    ~FastClock() { runNormally(); }
    FastClock(const FastClock&) = delete;
    FastClock& operator=(const FastClock&) = delete;
};

} // namespace testclock
