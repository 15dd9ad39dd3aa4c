// The receive limit counts whole seconds of the wall clock, which its users set: often from this very receiver.

#include <chrono>
#include <future>
#include <thread>

#include <gtest/gtest.h>
#include <unistd.h>

#include "EnduranceTest.h"
#include "TestClock.h"

namespace
{

using namespace std::chrono_literals;
using namespace testsupport;

constexpr std::uint16_t kCfgNavx5 = 0x0623;

/// A poll that waits for its reply in another thread, while the test sets a clock that stands still otherwise.
class Clock : public EnduranceTest
{
protected:
    Clock()
    {
        start();
        testclock::runFast(0);
    }
    ~Clock() override { testclock::runNormally(); }

    /// Every reply is damaged from now on: a wait goes on to its limit and says so in every round.
    void damageReplies() { receiver().corruptChecksum(kCfgNavx5, -1); }

    void beginToAsk()
    {
        answer_ = std::async(std::launch::async, [&] { return ask(); });
    }

    /// Whether the wait goes on for many rounds more.
    bool isStillWaiting()
    {
        const std::size_t before = errors_.text().size();
        const auto end = std::chrono::steady_clock::now() + 10s;
        while (errors_.text().size() < before + 10000 && std::chrono::steady_clock::now() < end) {
            if (answer_.wait_for(0s) == std::future_status::ready) return false;
            std::this_thread::yield();
        }
        return errors_.text().size() >= before + 10000;
    }

    /// @return the status; -1 when the wait does not end.
    int result()
    {
        if (answer_.wait_for(10s) == std::future_status::ready) return answer_.get();
        ADD_FAILURE() << "the wait does not end";
        testclock::jump(24h * 365);
        answer_.wait();
        return -1;
    }

private:
    const CapturedOutput errors_{STDERR_FILENO};
    std::future<int> answer_;
};

TEST_F(Clock, SetForwardAnHourEndsAWait)
{
    damageReplies();
    beginToAsk();
    EXPECT_TRUE(isStillWaiting());

    testclock::jump(1h);

    EXPECT_EQ(result(), 4);
    EXPECT_EQ(log(kModelLog), Lines{kNotReceived});
}

TEST_F(Clock, SetBackAnHourMakesAWaitAnHourLonger)
{
    damageReplies();
    beginToAsk();
    EXPECT_TRUE(isStillWaiting());

    testclock::jump(-1h);
    EXPECT_TRUE(isStillWaiting());
    testclock::jump(1h + 4s);
    EXPECT_TRUE(isStillWaiting());
    testclock::jump(1s);

    EXPECT_EQ(result(), 4);
    EXPECT_EQ(log(kModelLog), Lines{kNotReceived});
}

TEST_F(Clock, SetBackAnHourDoesNotDelayAReply)
{
    receiver().answerLate(kCfgNavx5, 300ms);
    beginToAsk();
    ASSERT_TRUE(receiver().waitForFrames(1));

    testclock::jump(-1h);

    EXPECT_EQ(result(), 0);
    EXPECT_EQ(log(kModelLog), Lines{});
}

TEST_F(Clock, SetBetweenTwoWaitsChangesNeither)
{
    damageReplies();
    for (const std::chrono::seconds leap : {-3600s, 3600s}) {
        testclock::jump(leap);

        beginToAsk();
        EXPECT_TRUE(isStillWaiting());
        testclock::jump(4s);
        EXPECT_TRUE(isStillWaiting());
        testclock::jump(1s);

        EXPECT_EQ(result(), 4);
    }
}

} // namespace
