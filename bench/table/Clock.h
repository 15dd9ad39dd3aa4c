#pragma once

#include <ctime>

namespace bench
{

/// Seconds since it was made.
class StopWatch
{
public:
    double seconds() const { return now() - start_; }

protected:
    explicit StopWatch(clockid_t clock) : clock_(clock), start_(now()) {}

private:
    double now() const
    {
        timespec time{};
        ::clock_gettime(clock_, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }

    clockid_t clock_;
    double start_;
};

/// Time of this thread on a processor: what other programs take doesn't count. To start and to ask takes a microsecond.
struct ProcessorTime : StopWatch
{
    ProcessorTime() : StopWatch(CLOCK_THREAD_CPUTIME_ID) {}
};

/// Time as it passes.
struct ElapsedTime : StopWatch
{
    ElapsedTime() : StopWatch(CLOCK_MONOTONIC) {}
};

} // namespace bench
