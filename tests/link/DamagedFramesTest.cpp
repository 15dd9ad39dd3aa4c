// Waiting for a message after a frame with a wrong checksum: always to the time limit.

#include <ubxIO.h>

#include "HeapBlocks.h"
#include "LinkTest.h"

namespace
{

using namespace linktest;
using testsupport::bytes;

constexpr const char* kDamaged = "B5 62 06 8B 09 00 01 00 00 00 A3 00 11 20 29 97 08";
constexpr const char* kItem = "B5 62 06 8B 09 00 01 00 00 00 A3 00 11 20 28 97 08";
constexpr const char* kOtherItem = "B5 62 06 8B 09 00 01 00 00 00 A3 00 11 20 2A 99 0A";
constexpr const char* kFirstText = "B5 62 04 04 01 00 41 4A 68";
constexpr unsigned short kItems = 0x068B;
constexpr unsigned short kText = 0x0404;

class DamagedFrame : public LinkTest
{
protected:
    DamagedFrame() { port(); }

    Wait receive(unsigned short classId, const std::function<void()>& talk)
    {
        return LinkTest::receive(port(), classId, 5, talk);
    }
};

TEST_F(DamagedFrame, BeforeAGoodCopyHoldsTheGoodOneUpToTheLimit)
{
    line.say(bytes(kDamaged) + bytes(kItem) + bytes("0D"));

    const Wait wait = receive(kItems, [&] { letTimePass(); });

    EXPECT_EQ(wait.frame, kItem);
    EXPECT_GE(wait.rounds, 10U);
}

TEST_F(DamagedFrame, IsReportedInEveryRoundAndTheLimitAtTheEnd)
{
    line.say(bytes(kDamaged) + bytes(kItem) + bytes("0D"));

    const Wait wait = receive(kItems, [&] { letTimePass(); });

    EXPECT_EQ(wait.errored, wait.rounds);
    EXPECT_EQ(wait.errors, kTimedOut);
}

TEST_F(DamagedFrame, AloneIsReportedInEveryRoundAndGivesNothing)
{
    line.say(bytes(kDamaged) + bytes("0D"));

    const Wait wait = receive(kItems, [&] { letTimePass(); });

    EXPECT_EQ(wait.frame, "");
    EXPECT_EQ(wait.errored, wait.rounds);
    EXPECT_EQ(wait.errors, kTimedOut);
}

TEST_F(DamagedFrame, IsNotReportedBeforeItHasCome)
{
    line.say(nmea(50));

    const Wait wait = receive(kItems, [&] {
        line.untilRead();
        line.rounds(5);
        line.say(bytes(kDamaged) + bytes("0D"));
        letTimePass();
    });

    EXPECT_GT(wait.errored, 0U);
    EXPECT_LT(wait.errored, wait.rounds - 5);
    EXPECT_EQ(wait.errors, kTimedOut);
}

TEST_F(DamagedFrame, BehindTheReplyInTheSameReadHoldsItUpToo)
{
    line.say(bytes(kItem) + bytes(kDamaged) + bytes("0D"));

    const Wait wait = receive(kItems, [&] { letTimePass(); });

    EXPECT_EQ(wait.frame, kItem);
    EXPECT_EQ(wait.errored, wait.rounds);
    EXPECT_EQ(wait.errors, kTimedOut);
}

TEST_F(DamagedFrame, OfAnotherClassHoldsTheReplyUpToo)
{
    line.say(bytes("B5 62 04 04 01 00 41 4A 69") + bytes(kItem) + bytes("0D"));

    const Wait wait = receive(kItems, [&] { letTimePass(); });

    EXPECT_EQ(wait.frame, kItem);
    EXPECT_EQ(wait.errored, wait.rounds);
    EXPECT_EQ(wait.errors, kTimedOut);
}

TEST_F(DamagedFrame, OfAnUnknownClassHoldsNothingUp)
{
    line.say(bytes("B5 62 06 71 01 00 AA 22 90") + bytes(kItem) + bytes("0D"));

    const Wait wait = receive(kItems, [] {});

    EXPECT_EQ(wait.frame, kItem);
    EXPECT_EQ(wait.errored, 0U);
    EXPECT_EQ(wait.errors, "");
}

TEST_F(DamagedFrame, BeforeAGoodOneThatComesLaterGivesThatOne)
{
    line.say(bytes(kDamaged) + bytes("0D"));

    const Wait wait = receive(kItems, [&] {
        line.untilRead();
        line.rounds(5);
        line.say(bytes(kItem) + bytes("0D"));
        letTimePass();
    });

    EXPECT_EQ(wait.frame, kItem);
}

TEST_F(DamagedFrame, BeforeSeveralGoodOnesGivesTheLast)
{
    line.say(bytes(kDamaged) + bytes(kItem) + bytes(kItem) + bytes("0D"));

    const Wait wait = receive(kItems, [&] {
        line.untilRead();
        line.rounds(5);
        line.sayInPieces(bytes(kFirstText) + bytes(kOtherItem) + bytes("0D"), 7);
        line.sayInPieces(bytes(kFirstText) + nmea(100), 50);
        letTimePass();
    });

    EXPECT_EQ(wait.frame, kOtherItem);
}

TEST_F(DamagedFrame, LosesNoMemoryToGoodOnesThatAreReplaced)
{
    const auto withManyReplies = [&] {
        line.say(bytes(kDamaged) + bytes("0D"));
        return receive(kItems, [&] {
            for (int i = 0; i < 20; ++i)
                line.sayInPieces(bytes(kItem) + bytes(kFirstText) + bytes(kOtherItem) + bytes("0D"), 11);
            letTimePass();
        });
    };
    withManyReplies();
    reopen();
    const long before = testsupport::heapBlocks();

    EXPECT_EQ(withManyReplies().frame, kOtherItem);
    reopen();

    EXPECT_EQ(testsupport::heapBlocks(), before);
}

TEST_F(DamagedFrame, DoesNotPileUpWhatIsLookedAtAgain)
{
    line.say(bytes(kDamaged) + bytes(kItem) + bytes(kFirstText) + bytes("0D"));
    const long before = testsupport::heapBlocks();

    receive(kItems, [&] {
        line.sayInPieces(nmea(200), 1);
        letTimePass();
    });

    EXPECT_LT(testsupport::heapBlocks() - before, 10); // the other message, kept for a later wait
}

TEST_F(DamagedFrame, HoldsUpEveryLaterWaitOfTheSamePort)
{
    line.say(bytes(kDamaged) + bytes("0D"));
    EXPECT_EQ(receive(kItems, [&] { letTimePass(); }).frame, "");
    line.say(bytes(kFirstText) + bytes("0D"));

    const Wait wait = receive(kText, [&] { letTimePass(); });

    EXPECT_EQ(wait.frame, kFirstText);
    EXPECT_EQ(wait.errored, wait.rounds);
    EXPECT_EQ(wait.errors, kTimedOut);
}

TEST_F(DamagedFrame, IsForgottenWithItsPort)
{
    line.say(bytes(kDamaged) + bytes("0D"));
    EXPECT_EQ(receive(kItems, [&] { letTimePass(); }).frame, "");
    reopen();
    line.say(bytes(kItem) + bytes("0D"));

    const Wait wait = receive(kItems, [] {});

    EXPECT_EQ(wait.frame, kItem);
    EXPECT_EQ(wait.errored, 0U);
    EXPECT_EQ(wait.errors, "");
}

TEST_F(DamagedFrame, DoesNotCostAReplyThatMuchOutputFollows)
{
    line.say(bytes(kDamaged) + bytes(kItem) + bytes("0D"));

    const Wait wait = receive(kItems, [&] {
        line.sayInPieces(nmea(12000), 500);
        letTimePass();
    });

    EXPECT_EQ(wait.frame, kItem);
}

TEST_F(DamagedFrame, DoesNotCostAReplyThatManyOtherMessagesFollow)
{
    line.say(bytes(kDamaged) + bytes(kItem) + bytes("0D"));
    Bytes others;
    while (others.size() < 12000)
        others = others + bytes(kFirstText);

    const Wait wait = receive(kItems, [&] {
        line.sayInPieces(others, 500);
        letTimePass();
    });

    EXPECT_EQ(wait.frame, kItem);
}

TEST_F(DamagedFrame, ThatClaimsToBeLongTakesTheReplyWithIt)
{
    line.say(bytes("B5 62 06 08 20 00") + bytes(kItem) + Bytes(40, 0x00));

    const Wait wait = receive(kItems, [&] { letTimePass(); });

    EXPECT_EQ(wait.frame, "");
    EXPECT_EQ(wait.errored, wait.rounds);
    EXPECT_EQ(wait.errors, kTimedOut);
}

} // namespace
