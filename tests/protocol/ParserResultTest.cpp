// What the parser returns, and what it leaves in its counters and its list.

#include <UBXMessageBuilder.h>

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TypedFrames.h"

namespace
{

using namespace protocoltest;
using testsupport::bytes;

using Frames = std::vector<std::string>;

TEST(ParserResult, IsZeroWithoutBytes)
{
    UBXMessageList list;
    UBXMessageBuilder builder(&list);

    EXPECT_EQ(builder.update(nullptr, 0), 0U);
    EXPECT_EQ(parsed(""), Scan{});
}

TEST(ParserResult, IsZeroForOneTwoOrThreeBytes)
{
    EXPECT_EQ(parsed("B5"), Scan{});
    EXPECT_EQ(parsed("B5 62"), Scan{});
    EXPECT_EQ(parsed("B5 62 06"), Scan{});
    EXPECT_EQ(parsed("00 00"), Scan{});
}

TEST(ParserResult, IsTheEndOfTheLastFrameWhenExactlyTwoBytesFollow)
{
    EXPECT_EQ(parsed(kRate, "00 00").result, 14U);
    EXPECT_EQ(parsed(kRate, kAck, "B5 62").result, 24U);
}

TEST(ParserResult, IsZeroWhenOneByteFollowsTheLastFrame)
{
    EXPECT_EQ(parsed(kRate, "00").result, 0U);
}

TEST(ParserResult, IsTheEndOfTheLastFrameWhenJunkLeadsToTheLastTwoBytes)
{
    EXPECT_EQ(parsed(kRate, "00 00 00 00 00").result, 14U);
}

TEST(ParserResult, IsZeroWhenAStrayFirstSyncCharLeadsPastTheLastTwoBytes)
{
    EXPECT_EQ(parsed(kRate, "B5 00 00").result, 0U);
    EXPECT_EQ(parsed(kRate, "00 B5 00 00").result, 0U);
    EXPECT_EQ(parsed(kRate, "B5 00 00 00").result, 14U);
}

TEST(ParserResult, IsTheEndOfTheLastFrameWhenTheNextIsUnfinished)
{
    EXPECT_EQ(parsed(kRate, "B5 62 06").result, 14U);
    EXPECT_EQ(parsed(kRate, "B5 62 06 08").result, 14U);
    EXPECT_EQ(parsed(kRate, "B5 62 06 08 06").result, 14U);
    EXPECT_EQ(parsed(kRate, "B5 62 06 08 06 00").result, 14U);
    EXPECT_EQ(parsed(kRate, kRate).result, 14U);
}

TEST(ParserResult, CountsADamagedFrameAsComplete)
{
    EXPECT_EQ(parsed(kWrongChecksum, "00 00").result, 14U);
}

TEST(ParserResult, DoesNotCountAnUnknownFrameAsComplete)
{
    EXPECT_EQ(parsed(kUnknown, "00 00").result, 0U);
    EXPECT_EQ(parsed(kUnknown, kRate, "00 00").result, 23U);
}

TEST(ParserCounters, DoubleWhenTheSameBufferIsParsedTwice)
{
    UBXMessageList list;
    UBXMessageBuilder builder(&list);
    const Bytes stream =
        joined({bytes(kRate), bytes(kAck), bytes(kNak), bytes(kUnknown), bytes(kWrongChecksum), bytes("00 00")});
    ReceivedBytes place(stream.size());
    unsigned char* const buffer = place.hold(stream);

    const unsigned long first = builder.update(buffer, stream.size());
    const unsigned long second = builder.update(buffer, stream.size());

    EXPECT_EQ(first, 57U);
    EXPECT_EQ(second, 57U);
    EXPECT_EQ(builder.getGoodMessageCount(), 6U);
    EXPECT_EQ(builder.getErroredMessageCount(), 2U);
    EXPECT_EQ(builder.getUnknownMessageCount(), 2U);
    EXPECT_EQ(builder.getAckMessageCount(), 2U);
    EXPECT_EQ(builder.getNakMessageCount(), 2U);
    EXPECT_EQ(takeAll(list), (Frames{kRate, kAck, kNak, kRate, kAck, kNak}));
}

TEST(ParserCounters, AreAllSetBackTogether)
{
    UBXMessageList list;
    UBXMessageBuilder builder(&list);
    Bytes stream = joined({bytes(kAck), bytes(kNak), bytes(kUnknown), bytes(kWrongChecksum), bytes("00 00")});
    builder.update(stream.data(), stream.size());

    builder.resetMessageCounters();

    EXPECT_EQ(builder.getGoodMessageCount(), 0U);
    EXPECT_EQ(builder.getErroredMessageCount(), 0U);
    EXPECT_EQ(builder.getUnknownMessageCount(), 0U);
    EXPECT_EQ(builder.getAckMessageCount(), 0U);
    EXPECT_EQ(builder.getNakMessageCount(), 0U);
    EXPECT_FALSE(list.isEmpty());
}

TEST(ParserList, GivesTheLaterOfTwoFramesByItsClassAndId)
{
    UBXMessageList list;
    UBXMessageBuilder builder(&list);
    Bytes stream = bytes("B5 62 04 04 01 00 41 4A 68 B5 62 04 04 01 00 42 4B 69 00");

    builder.update(stream.data(), stream.size());
    const std::unique_ptr<UBXMessage> found(list.findFirstOfMessage(static_cast<UBXMessageClassIdValues>(0x0404)));
    const std::unique_ptr<UBXMessage> oldest(list.getMessage());

    EXPECT_EQ(found->getByte(0), 0x42);
    EXPECT_EQ(oldest->getByte(0), 0x41);
}

TEST(ParserList, OutlivesTheParser)
{
    UBXMessageList list;
    {
        UBXMessageBuilder builder(&list);
        Bytes stream = joined({bytes(kRate), bytes("00")});
        builder.update(stream.data(), stream.size());
    }
    EXPECT_EQ(takeAll(list), Frames{kRate});
}

TEST(ParserList, HoldsCopiesOfTheReceivedBytes)
{
    UBXMessageList list;
    UBXMessageBuilder builder(&list);
    Bytes stream = joined({bytes(kRate), bytes("00")});
    builder.update(stream.data(), stream.size());

    stream.assign(stream.size(), 0xFF);

    EXPECT_EQ(takeAll(list), Frames{kRate});
}

} // namespace
