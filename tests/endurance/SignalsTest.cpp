// Programs that take signals all the time: a timer's, every few hundred microseconds, whose handler does not restart
// system calls.

#include <atomic>
#include <chrono>
#include <csignal>

#include <gtest/gtest.h>
#include <sys/time.h>

#include "EnduranceTest.h"

namespace
{

using namespace std::chrono_literals;
using namespace testsupport;

std::atomic<unsigned long> taken{0};

/// The timer runs while this is in scope.
class SignalStorm
{
public:
    SignalStorm()
    {
        taken = 0;
        struct sigaction action
        {};
        action.sa_handler = [](int) { ++taken; };
        ::sigaction(SIGALRM, &action, &before_);
        const itimerval often{{0, kPeriod}, {0, kPeriod}};
        ::setitimer(ITIMER_REAL, &often, nullptr);
    }
    ~SignalStorm()
    {
        const itimerval never{};
        ::setitimer(ITIMER_REAL, &never, nullptr);
        ::sigaction(SIGALRM, &before_, nullptr);
    }
    SignalStorm(const SignalStorm&) = delete;
    SignalStorm& operator=(const SignalStorm&) = delete;

private:
    static constexpr suseconds_t kPeriod = 300; // microseconds

    struct sigaction before_
    {};
};

/// The receiver's own thread does not take the signals: they are the caller's.
class Signals : public EnduranceTest
{
protected:
    Signals()
    {
        sigset_t alarm;
        ::sigemptyset(&alarm);
        ::sigaddset(&alarm, SIGALRM);
        ::pthread_sigmask(SIG_BLOCK, &alarm, nullptr);
        receiver();
        ::pthread_sigmask(SIG_UNBLOCK, &alarm, nullptr);
    }
};

TEST_F(Signals, ChangeNothingAboutStartUp)
{
    const SignalStorm storm;

    start();

    EXPECT_TRUE(controller->isNeoM8t());
    EXPECT_EQ(slurp(kChipInfoFile), kChipInfo);
    EXPECT_EQ(facadeErrors(), Lines{});
}

TEST_F(Signals, ChangeNothingAboutCommandsAndPolls)
{
    start();
    const SignalStorm storm;

    const auto end = std::chrono::steady_clock::now() + 10s;
    for (int i = 0; (i < 200 || taken < 200) && std::chrono::steady_clock::now() < end; ++i) {
        const auto wanted = static_cast<signed char>(i % 50);
        ASSERT_EQ(controller->setMinCNo(wanted), 0);
        ASSERT_EQ(ask(), 0);
        ASSERT_EQ(minCNo, wanted);
    }

    EXPECT_GE(taken, 200U) << "there was no storm";
    EXPECT_EQ(log(kModelLog), Lines{});
}

TEST_F(Signals, DoNotInterruptAnAnswerThatComesInSingleBytes)
{
    start();
    receiver().answerInPieces(0x0623, 1, 1000us);
    const SignalStorm storm;

    // On a busy machine an answer may be there, whole, before this thread runs again.
    const auto end = std::chrono::steady_clock::now() + 10s;
    do {
        ASSERT_EQ(ask(), 0);
    } while (taken < 40 && std::chrono::steady_clock::now() < end);

    EXPECT_GE(taken, 40U) << "there was no storm";
}

TEST_F(Signals, NeitherShortenNorLengthenAWait)
{
    start();
    receiver().ignore(0x0623);
    const SignalStorm storm;
    const CapturedOutput errors(STDERR_FILENO);

    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(withBriskClock([&] { return ask(); }), 4);
    const auto waited = std::chrono::steady_clock::now() - begin;

    EXPECT_GT(waited, 399ms) << "five seconds, the first of them not whole, ten times as fast";
    EXPECT_LT(waited, 2s);
    EXPECT_EQ(log(kModelLog), Lines{kNotReceived});
}

TEST_F(Signals, DoNotCostLogLines)
{
    start();
    const SignalStorm storm;
    for (int i = 0; i < 200; ++i)
        EXPECT_EQ(askWithoutDevice(), 8);

    EXPECT_EQ(log(kModelLog), Lines(200, kNotSent));
}

} // namespace
