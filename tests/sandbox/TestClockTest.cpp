#include "TestClock.h"

#include <chrono>
#include <ctime>

#include <gtest/gtest.h>

#include "InterposedLibrary.h"

using namespace std::chrono_literals;

namespace
{

using Clock = std::chrono::steady_clock;

time_t machineSeconds()
{
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return now.tv_sec;
}

TEST(TestClock, IsTheMachinesUntilToldOtherwise)
{
    const time_t before = machineSeconds();
    const time_t shown = timeAsALibrarySeesIt();
    const time_t after = machineSeconds();

    EXPECT_GE(shown, before);
    EXPECT_LE(shown, after);
}

TEST(TestClock, RunsFastInASharedLibrary)
{
    const Clock::time_point start = Clock::now();
    const testclock::FastClock clock(1000);

    const time_t first = timeAsALibrarySeesIt();
    while (timeAsALibrarySeesIt() - first < 50) {
    }
    const Clock::duration taken = Clock::now() - start;

    EXPECT_GE(taken, 49ms);
    EXPECT_LT(taken, 5s);
}

TEST(TestClock, NeverGoesBackWhenItIsMadeFast)
{
    const time_t before = timeAsALibrarySeesIt();
    const testclock::FastClock clock(100);

    EXPECT_GE(timeAsALibrarySeesIt(), before);
    EXPECT_LE(timeAsALibrarySeesIt(), before + 10);
}

TEST(TestClock, JumpsAheadAndBack)
{
    const time_t before = timeAsALibrarySeesIt();

    testclock::jump(1h);
    const time_t ahead = timeAsALibrarySeesIt();
    testclock::jump(-2h);
    const time_t back = timeAsALibrarySeesIt();
    testclock::runNormally();

    EXPECT_NEAR(static_cast<double>(ahead - before), 3600, 2);
    EXPECT_NEAR(static_cast<double>(back - before), -3600, 2);
}

TEST(TestClock, IsTheMachinesAgainAfterwards)
{
    {
        const testclock::FastClock clock(1'000'000);
        testclock::jump(24h);
    }

    EXPECT_NEAR(static_cast<double>(timeAsALibrarySeesIt() - machineSeconds()), 0, 1);
}

TEST(TestClock, GivesTheTimeThroughItsArgumentToo)
{
    testclock::jump(1h);

    time_t given = 0;
    const time_t returned = ::time(&given);
    testclock::runNormally();

    EXPECT_EQ(given, returned);
    EXPECT_GT(given, machineSeconds() + 3000);
}

} // namespace
