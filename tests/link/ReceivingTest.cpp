// Waiting for a message while no frame is damaged.

#include <ubxIO.h>

#include "HeapBlocks.h"
#include "LinkTest.h"

namespace
{

using namespace linktest;
using testsupport::bytes;

constexpr const char* kVersionPoll = "B5 62 0A 04 00 00 0E 34";
constexpr const char* kFirstText = "B5 62 04 04 01 00 41 4A 68";
constexpr const char* kSecondText = "B5 62 04 04 01 00 42 4B 69";
constexpr const char* kThirdText = "B5 62 04 04 01 00 43 4C 6A";
constexpr const char* kItem = "B5 62 06 8B 09 00 01 00 00 00 A3 00 11 20 28 97 08";
constexpr const char* kAck = "B5 62 05 01 02 00 06 23 31 5A";
constexpr const char* kUnknown = "B5 62 06 71 01 00 AA 22 8F";
constexpr unsigned short kText = 0x0404;
constexpr unsigned short kItems = 0x068B;

class Receiving : public LinkTest
{
protected:
    Receiving()
    {
        port();
        receive(0x0404, [&] { letTimePass(); }); // Threads and streams have what they keep from now on.
    }

    Wait receive(
        unsigned short classId, const std::function<void()>& talk = [] {})
    {
        Wait wait = LinkTest::receive(port(), classId, 5, talk);
        EXPECT_EQ(wait.errored, 0U);
        return wait;
    }

    /// The frame that a wait gives which neither says anything nor needs the clock.
    std::string frame(
        unsigned short classId, const std::function<void()>& talk = [] {})
    {
        const Wait wait = receive(classId, talk);
        EXPECT_EQ(wait.errors, "");
        return wait.frame;
    }
};

TEST_F(Receiving, GivesTheReplyAtOnceWhenAnotherByteFollows)
{
    line.say(bytes(kItem) + bytes("24"));

    const Wait wait = receive(kItems);

    EXPECT_EQ(wait.frame, kItem);
    EXPECT_EQ(wait.errors, "");
    EXPECT_EQ(wait.rounds, 1U);
}

TEST_F(Receiving, GivesTheReplyOnlyWhenAnotherByteFollows)
{
    bool early = true;

    const std::string received = frame(kItems, [&] {
        line.say(bytes(kItem));
        line.untilRead();
        line.rounds(50); // would not come if the wait had ended
        early = false;
        line.say(bytes("0D"));
    });

    EXPECT_EQ(received, kItem);
    EXPECT_FALSE(early);
}

TEST_F(Receiving, GivesAReplyThatCameBeforeTheWait)
{
    line.say(bytes(kVersionPoll) + bytes("0D 0A"));

    EXPECT_EQ(frame(0x0A04), kVersionPoll);
}

TEST_F(Receiving, GivesAReplyInSingleBytes)
{
    EXPECT_EQ(frame(kItems, [&] { line.sayInPieces(bytes(kItem) + bytes("0D"), 1); }), kItem);
}

TEST_F(Receiving, GivesAReplyWhereverItIsTorn)
{
    const Bytes whole = nmea(20) + bytes(kItem) + bytes("0D");
    for (std::size_t pieceSize = 1; pieceSize <= whole.size(); ++pieceSize) {
        ASSERT_EQ(frame(kItems, [&] { line.sayInPieces(whole, pieceSize); }), kItem) << pieceSize << " bytes each";
    }
}

TEST_F(Receiving, GivesAReplyThatComesLate)
{
    EXPECT_EQ(frame(kItems,
                    [&] {
                        line.rounds(2);
                        clock.pass(4s);
                        line.rounds(2);
                        line.say(bytes(kItem) + bytes("0D"));
                    }),
              kItem);
}

TEST_F(Receiving, GivesAReplyBetweenNmeaSentences)
{
    line.say(nmea(340) + bytes(kItem) + nmea(340));

    EXPECT_EQ(frame(kItems), kItem);
}

TEST_F(Receiving, GivesTheReplyAmongOtherMessages)
{
    line.say(bytes(kAck) + bytes(kUnknown) + bytes(kItem) + bytes(kFirstText) + bytes("0D"));

    EXPECT_EQ(frame(kItems), kItem);
}

TEST_F(Receiving, GivesAReplyThatLiesAcrossTwoReads)
{
    line.say(nmea(1015) + bytes(kItem) + bytes("0D"));

    const Wait wait = receive(kItems);

    EXPECT_EQ(wait.frame, kItem);
    EXPECT_EQ(wait.rounds, 2U);
}

TEST_F(Receiving, TakesTheWholeClassAndId)
{
    line.say(bytes("B5 62 04 04 00 00 08 1C") + bytes("B5 62 06 04 00 00 0A 24") + bytes("0D"));

    EXPECT_EQ(frame(0x0604), "B5 62 06 04 00 00 0A 24");
}

TEST_F(Receiving, GivesTheNewestOfSeveral)
{
    line.say(bytes(kFirstText) + bytes(kSecondText) + bytes(kThirdText) + bytes("0D"));

    EXPECT_EQ(frame(kText), kThirdText);
}

TEST_F(Receiving, KeepsTheOlderOnesForLaterWaits)
{
    line.say(bytes(kFirstText) + bytes(kSecondText) + bytes(kThirdText) + bytes("0D"));
    EXPECT_EQ(frame(kText), kThirdText);

    EXPECT_EQ(frame(kText), kSecondText);
    EXPECT_EQ(frame(kText), kFirstText);
    EXPECT_EQ(receive(kText, [&] { letTimePass(); }).frame, "");
}

TEST_F(Receiving, GivesANewMessageBeforeOneThatIsLeft)
{
    line.say(bytes(kFirstText) + bytes(kSecondText) + bytes("0D"));
    EXPECT_EQ(frame(kText), kSecondText);
    line.say(bytes(kThirdText) + bytes("0D"));

    EXPECT_EQ(frame(kText), kThirdText);
    EXPECT_EQ(frame(kText), kFirstText);
}

TEST_F(Receiving, KeepsOtherMessagesThatCameWithTheReplyForALaterWait)
{
    line.say(bytes(kFirstText) + bytes(kItem) + bytes("0D"));
    EXPECT_EQ(frame(kItems), kItem);

    EXPECT_EQ(frame(kText), kFirstText);
}

TEST_F(Receiving, KeepsOtherMessagesThatCameBeforeTheReplyForALaterWait)
{
    EXPECT_EQ(frame(kItems,
                    [&] {
                        line.sayInPieces(bytes(kFirstText) + bytes("0D"), 100);
                        line.rounds(3);
                        line.say(bytes(kItem) + bytes("0D"));
                    }),
              kItem);

    EXPECT_EQ(frame(kText), kFirstText);
}

TEST_F(Receiving, GivesUpOtherMessagesThatALaterWaitDoesNotAskForEither)
{
    line.say(bytes(kFirstText) + bytes(kItem) + bytes("0D"));
    EXPECT_EQ(frame(kItems), kItem);

    EXPECT_EQ(receive(0x0A04, [&] { letTimePass(); }).frame, "");

    EXPECT_EQ(receive(kText, [&] { letTimePass(); }).frame, "");
}

TEST_F(Receiving, GivesUpOtherMessagesWhenNoReplyComes)
{
    const Wait first = receive(kItems, [&] {
        line.sayInPieces(bytes(kFirstText) + bytes("0D"), 100);
        line.rounds(3);
        clock.pass(5s);
    });
    const Wait second = receive(kText, [&] { letTimePass(); });

    EXPECT_EQ(first.frame, "");
    EXPECT_EQ(first.errors, kTimedOut);
    EXPECT_EQ(second.frame, "");
    EXPECT_EQ(second.errors, kTimedOut);
}

TEST_F(Receiving, GivesUpBytesThatFollowedTheReply)
{
    const Bytes item = bytes(kItem);
    const Bytes begin(item.begin(), item.begin() + 9);
    const Bytes end(item.begin() + 9, item.end());
    line.say(bytes(kAck) + begin);
    EXPECT_EQ(frame(0x0501), kAck);
    line.say(end + bytes("0D"));

    EXPECT_EQ(receive(kItems, [&] { letTimePass(); }).frame, "");
}

TEST_F(Receiving, NeverGivesAMessageThatIsNotInTheCatalogue)
{
    line.say(bytes(kUnknown) + bytes("0D"));

    const Wait wait = receive(0x0671, [&] { letTimePass(); });

    EXPECT_EQ(wait.frame, "");
    EXPECT_EQ(wait.errors, kTimedOut);
}

TEST_F(Receiving, LosesNoMemoryToMessagesThatNobodyAskedFor)
{
    const long before = testsupport::heapBlocks();
    {
        ubxIO another;
        line.opened();
        LinkTest::receive(another, kItems, 5, [&] {
            for (int i = 0; i < 20; ++i)
                line.sayInPieces(bytes(kFirstText) + bytes(kSecondText) + bytes(kAck), 13);
            clock.pass(5s);
        });
    }
    EXPECT_EQ(testsupport::heapBlocks(), before);
}

TEST_F(Receiving, LosesNoMemoryWithAPortThatStillHoldsMessages)
{
    const long before = testsupport::heapBlocks();
    {
        ubxIO another;
        line.opened();
        line.say(bytes(kFirstText) + bytes(kSecondText) + bytes(kItem) + bytes("0D"));
        EXPECT_EQ(LinkTest::receive(another, kItems, 5).frame, kItem);
    }
    EXPECT_EQ(testsupport::heapBlocks(), before);
}

} // namespace
