#include <ubxController_NEOM8T.h>

#include <cstdlib>
#include <ctime>
#include <regex>
#include <string>

#include <gtest/gtest.h>

#include "Calls.h"
#include "LinkTest.h"

namespace
{

using linktest::StoppedClock;

/// The clock stands at an afternoon of the time zone UTC.
class TimeStamp : public testing::Test
{
protected:
    TimeStamp()
    {
        setZone("UTC0");
        standAt(14, 3, 7);
    }
    ~TimeStamp() override
    {
        calls::reset();
        ::unsetenv("TZ");
        ::tzset();
    }

    static void setZone(const char* zone)
    {
        ::setenv("TZ", zone, 1);
        ::tzset();
    }

    void standAt(int hour, int minute, int second)
    {
        constexpr std::time_t kMidnight = 20000L * 86400;
        const std::time_t wanted = kMidnight + hour * 3600L + minute * 60L + second;
        clock.pass(std::chrono::seconds(wanted - std::time(nullptr)));
    }

    std::string stamp() { return controller.timeStamp(); }

    StoppedClock clock;
    ubxController_NEOM8T controller;
};

TEST_F(TimeStamp, IsTheTimeOfDayWithMilliseconds)
{
    calls::setMicroseconds(42000);

    EXPECT_EQ(stamp(), "14:03:07_042: ");
}

TEST_F(TimeStamp, HasThreeDigitsOfMilliseconds)
{
    calls::setMicroseconds(7000);
    EXPECT_EQ(stamp(), "14:03:07_007: ");

    calls::setMicroseconds(0);
    EXPECT_EQ(stamp(), "14:03:07_000: ");

    calls::setMicroseconds(123000);
    EXPECT_EQ(stamp(), "14:03:07_123: ");
}

TEST_F(TimeStamp, DoesNotRoundToTheNextMillisecond)
{
    calls::setMicroseconds(999999);
    EXPECT_EQ(stamp(), "14:03:07_999: ");

    calls::setMicroseconds(999);
    EXPECT_EQ(stamp(), "14:03:07_000: ");
}

TEST_F(TimeStamp, HasTwoDigitsOfHoursMinutesAndSeconds)
{
    calls::setMicroseconds(1000);

    standAt(0, 0, 0);
    EXPECT_EQ(stamp(), "00:00:00_001: ");

    standAt(23, 59, 59);
    EXPECT_EQ(stamp(), "23:59:59_001: ");
}

TEST_F(TimeStamp, IsThatOfTheLocalTimeZone)
{
    calls::setMicroseconds(42000);
    setZone("XST-5:30");

    EXPECT_EQ(stamp(), "19:33:07_042: ");
}

TEST_F(TimeStamp, HasItsFormWheneverItIsTaken)
{
    const std::regex form("[0-2][0-9]:[0-5][0-9]:[0-5][0-9]_[0-9]{3}: ");
    testclock::runNormally();
    for (int i = 0; i < 2000; ++i)
        ASSERT_TRUE(std::regex_match(stamp(), form)) << stamp();
}

} // namespace
