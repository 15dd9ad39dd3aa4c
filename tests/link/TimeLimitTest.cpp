// How long a wait lasts.

#include <ubxIO.h>

#include <chrono>
#include <limits>

#include "Calls.h"
#include "LinkTest.h"

namespace
{

using namespace linktest;
using testsupport::bytes;

constexpr const char* kItem = "B5 62 06 8B 09 00 01 00 00 00 A3 00 11 20 28 97 08";
constexpr unsigned short kItems = 0x068B;

class TimeLimit : public LinkTest
{
protected:
    TimeLimit() { port(); }
};

TEST_F(TimeLimit, IsReachedWhenThatManySecondsHavePassed)
{
    bool early = true;

    const Wait wait = receive(port(), kItems, 5, [&] {
        line.rounds(3);
        clock.pass(4s);
        line.rounds(3); // would not come if the wait had ended
        early = false;
        clock.pass(1s);
    });

    EXPECT_EQ(wait.frame, "");
    EXPECT_EQ(wait.errors, kTimedOut);
    EXPECT_FALSE(early);
}

TEST_F(TimeLimit, OfOneSecondIsReachedInTheNextSecond)
{
    const Wait wait = receive(port(), kItems, 1, [&] {
        line.rounds(3);
        clock.pass(1s);
    });

    EXPECT_EQ(wait.frame, "");
    EXPECT_EQ(wait.errors, kTimedOut);
}

TEST_F(TimeLimit, OfZeroIsReachedAfterOneLook)
{
    line.say(bytes(kItem) + bytes("0D"));

    const Wait wait = receive(port(), kItems, 0);

    EXPECT_EQ(wait.frame, "");
    EXPECT_EQ(wait.errors, kTimedOut);
    EXPECT_EQ(wait.rounds, 1U);
}

TEST_F(TimeLimit, BelowZeroIsReachedAfterOneLook)
{
    for (const int timeLimit : {-1, std::numeric_limits<int>::min()}) {
        const Wait wait = receive(port(), kItems, timeLimit);

        EXPECT_EQ(wait.frame, "");
        EXPECT_EQ(wait.errors, kTimedOut);
        EXPECT_EQ(wait.rounds, 1U);
    }
}

TEST_F(TimeLimit, MayBeAsLongAsANumberCanBe)
{
    const Wait wait = receive(port(), kItems, std::numeric_limits<int>::max(), [&] {
        clock.pass(24h * 365 * 60);
        line.rounds(3);
        line.say(bytes(kItem) + bytes("0D"));
    });

    EXPECT_EQ(wait.frame, kItem);
    EXPECT_EQ(wait.errors, "");
}

TEST_F(TimeLimit, IsThatOfEveryWaitByItself)
{
    for (int i = 0; i < 3; ++i) {
        const Wait wait = receive(port(), kItems, 5, [&] {
            line.rounds(3);
            clock.pass(4s);
            line.rounds(3);
            line.say(bytes(kItem) + bytes("0D"));
        });
        EXPECT_EQ(wait.frame, kItem);
    }
}

TEST_F(TimeLimit, GoesByTheClockAlsoWhenThatIsPutBack)
{
    const Wait wait = receive(port(), kItems, 5, [&] {
        line.rounds(3);
        clock.pass(-60s);
        line.rounds(3);
        clock.pass(64s);
        line.rounds(3);
        clock.pass(1s);
    });

    EXPECT_EQ(wait.errors, kTimedOut);
}

TEST_F(TimeLimit, LooksAtTheLineOnceMoreAtTheEnd)
{
    // A reply that comes in the last second counts.
    const Wait wait = receive(port(), kItems, 5, [&] {
        line.rounds(3);
        clock.pass(4s);
        line.say(bytes(kItem) + bytes("0D"));
    });

    EXPECT_EQ(wait.frame, kItem);
}

/// The machine's own clock.
TEST(RealTimeLimit, OfFiveSecondsTakesBetweenFourAndFive)
{
    using Clock = std::chrono::steady_clock;
    Line line;
    ubxIO port;
    std::chrono::duration<double> taken{};
    UBXMessage* received = nullptr;

    const std::string errors = errorsOf([&] {
        const Clock::time_point start = Clock::now();
        received = port.ReceiveMessage(kItems, 5);
        taken = Clock::now() - start;
    });

    EXPECT_EQ(received, nullptr);
    EXPECT_EQ(errors, kTimedOut);
    EXPECT_GT(taken.count(), 4.0);
    EXPECT_LT(taken.count(), 7.0); // five, on a busy machine
}

} // namespace
