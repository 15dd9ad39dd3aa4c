// Waiting for a message that drowns in other output: more of it than the wait has room for.

#include <ubxIO.h>

#include <algorithm>
#include <string>

#include "HeapBlocks.h"
#include "LinkTest.h"

namespace
{

using namespace linktest;
using testsupport::bytes;

constexpr const char* kFirstText = "B5 62 04 04 01 00 41 4A 68";
constexpr const char* kItem = "B5 62 06 8B 09 00 01 00 00 00 A3 00 11 20 28 97 08";
constexpr unsigned short kItems = 0x068B;
constexpr std::size_t kRoomPerSecond = 1024;

/// So many bytes of whole messages that nobody asked for.
Bytes others(std::size_t size)
{
    Bytes all;
    while (all.size() + 9 <= size)
        all = all + bytes(kFirstText);
    return all + Bytes(size - all.size(), 0x0A);
}

/// A frame with this many bytes of payload, and a byte behind it.
Bytes longFrame(std::size_t payloadSize)
{
    Bytes frame = bytes("B5 62 0A 04");
    frame.push_back(static_cast<std::uint8_t>(payloadSize % 256));
    frame.push_back(static_cast<std::uint8_t>(payloadSize / 256));
    frame.resize(6 + payloadSize, 0x33);
    unsigned a = 0;
    unsigned b = 0;
    for (std::size_t i = 2; i < frame.size(); ++i) {
        a = (a + frame[i]) % 256;
        b = (b + a) % 256;
    }
    frame.push_back(static_cast<std::uint8_t>(a));
    frame.push_back(static_cast<std::uint8_t>(b));
    return frame;
}

class MuchOutput : public LinkTest
{
protected:
    MuchOutput() { port(); }

    /// The frame of a wait on a fresh port in which the clock stands still.
    std::string receive(int timeLimit, const Bytes& output, unsigned short classId = kItems)
    {
        reopen();
        const Wait wait = LinkTest::receive(port(), classId, timeLimit, [&] { line.pour(output, 1000); });
        EXPECT_EQ(wait.errored, 0U);
        EXPECT_EQ(wait.errors, "");
        return wait.frame;
    }
};

TEST_F(MuchOutput, OfSentencesBeforeTheReplyDoesNotCostIt)
{
    EXPECT_EQ(receive(1, nmea(3 * kRoomPerSecond) + bytes(kItem) + bytes("0D")), kItem);
    EXPECT_EQ(receive(5, nmea(20 * kRoomPerSecond) + bytes(kItem) + bytes("0D")), kItem);
}

TEST_F(MuchOutput, OfOtherMessagesBeforeTheReplyDoesNotCostIt)
{
    EXPECT_EQ(receive(1, others(3 * kRoomPerSecond) + bytes(kItem) + bytes("0D")), kItem);
    EXPECT_EQ(receive(5, others(20 * kRoomPerSecond) + bytes(kItem) + bytes("0D")), kItem);
}

TEST_F(MuchOutput, OfFirstSyncCharsBeforeTheReplyDoesNotCostIt)
{
    EXPECT_EQ(receive(5, Bytes(6 * kRoomPerSecond, 0xB5) + bytes(kItem) + bytes("0D")), kItem);
}

TEST_F(MuchOutput, DoesNotCostAReplyWhereverItLiesWhenTheRoomIsFull)
{
    for (const int timeLimit : {1, 5}) {
        const std::size_t room = static_cast<std::size_t>(timeLimit) * kRoomPerSecond;
        for (std::size_t before = room - 24; before <= room + 3; ++before) {
            ASSERT_EQ(receive(timeLimit, nmea(before) + bytes(kItem) + bytes("0D")), kItem)
                << before << " bytes before it, room for " << room;
        }
    }
}

TEST_F(MuchOutput, OfMessagesDoesNotCostAReplyWhereverItLiesWhenTheRoomIsFull)
{
    for (const int timeLimit : {1, 5}) {
        const std::size_t room = static_cast<std::size_t>(timeLimit) * kRoomPerSecond;
        for (std::size_t before = room - 24; before <= room + 3; ++before) {
            ASSERT_EQ(receive(timeLimit, others(before) + bytes(kItem) + bytes("0D")), kItem)
                << before << " bytes before it, room for " << room;
        }
    }
}

TEST_F(MuchOutput, ThatEndsInSingleBytesDoesNotCostTheReply)
{
    const Wait wait = LinkTest::receive(port(), kItems, 1, [&] {
        line.pour(nmea(1000), 1000);
        line.pour(nmea(15) + bytes(kItem) + bytes("0D"), 1);
    });

    EXPECT_EQ(wait.frame, kItem);
}

TEST_F(MuchOutput, WithAFalseBeginningOfAFrameDoesNotCostTheReplyBehindIt)
{
    const Bytes falseBeginning = bytes("B5 62 01 07 FF FF");

    EXPECT_EQ(receive(5, falseBeginning + nmea(7000) + bytes(kItem) + bytes("0D")), kItem);
    EXPECT_EQ(receive(5, falseBeginning + bytes(kItem) + nmea(7000)), kItem);
    EXPECT_EQ(receive(1, nmea(500) + falseBeginning + nmea(400) + bytes(kItem) + nmea(1200)), kItem);
}

TEST_F(MuchOutput, WithAFalseBeginningAtAnyPlaceDoesNotCostTheReplyBehindIt)
{
    const Bytes falseBeginning = bytes("B5 62 01 07 FF FF");
    for (std::size_t before = kRoomPerSecond - 30; before <= kRoomPerSecond + 3; ++before) {
        ASSERT_EQ(receive(1, nmea(before) + falseBeginning + bytes(kItem) + nmea(2 * kRoomPerSecond)), kItem)
            << before << " bytes before it";
    }
}

TEST_F(MuchOutput, WithAFalseBeginningThatFillsTheRoomDoesNotCostTheReplyThoughNothingFollows)
{
    const Bytes beginning = bytes("B5 62 01 07 FF FF") + bytes(kItem);

    EXPECT_EQ(receive(1, beginning + nmea(kRoomPerSecond - beginning.size())), kItem);
}

TEST_F(MuchOutput, WithManyFalseBeginningsDoesNotCostTheReplyBehindThem)
{
    Bytes falseBeginnings;
    for (int i = 0; i < 300; ++i)
        falseBeginnings = falseBeginnings + bytes("B5 62 01 07 FF FF");

    EXPECT_EQ(receive(1, falseBeginnings + bytes(kItem) + nmea(2 * kRoomPerSecond)), kItem);
}

TEST_F(MuchOutput, EndsAtTheLimitWhenNoReplyComes)
{
    const Wait wait = LinkTest::receive(port(), kItems, 5, [&] {
        line.sayInPieces(nmea(15000) + others(15000), 1000);
        clock.pass(5s);
    });

    EXPECT_EQ(wait.frame, "");
    EXPECT_EQ(wait.errors, kTimedOut);
}

TEST_F(MuchOutput, LosesNoMemory)
{
    const Bytes output = others(10000) + bytes("B5 62 01 07 FF FF") + nmea(6000) + bytes(kItem) + bytes("0D");
    receive(1, output);
    reopen();
    const long before = testsupport::heapBlocks();

    EXPECT_EQ(receive(1, output), kItem);
    reopen();

    EXPECT_EQ(testsupport::heapBlocks(), before);
}

TEST_F(MuchOutput, AsOneLongMessageIsReceivedWhenThereIsRoomForItAndAByteMore)
{
    const Bytes longest = longFrame(1024 - 8 - 1);

    EXPECT_EQ(receive(1, nmea(700) + longest + bytes("0D"), 0x0A04), testsupport::hex(longest));
}

TEST_F(MuchOutput, AsTheLongestVersionReplyIsReceivedInEightSeconds)
{
    const Bytes longest = longFrame(7650);

    EXPECT_EQ(receive(8, nmea(700) + longest + bytes("0D"), 0x0A04), testsupport::hex(longest));
}

TEST_F(MuchOutput, AsTheLongestFrameOfAllIsReceivedInALongWait)
{
    const Bytes longest = longFrame(65535);

    EXPECT_EQ(receive(2000000000, longest + bytes("0D"), 0x0A04), testsupport::hex(longest));
}

} // namespace
