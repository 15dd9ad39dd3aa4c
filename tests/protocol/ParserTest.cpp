// What the parser takes and counts, step by step.

#include <UBXMessageBuilder.h>

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TypedFrames.h"

namespace
{

using namespace protocoltest;
using testsupport::bytes;

using Frames = std::vector<std::string>;

TEST(Parser, BeginsWithAllCountersAtZero)
{
    UBXMessageList list;
    const UBXMessageBuilder builder(&list);

    EXPECT_EQ(builder.getGoodMessageCount(), 0U);
    EXPECT_EQ(builder.getErroredMessageCount(), 0U);
    EXPECT_EQ(builder.getUnknownMessageCount(), 0U);
    EXPECT_EQ(builder.getAckMessageCount(), 0U);
    EXPECT_EQ(builder.getNakMessageCount(), 0U);
}

TEST(Parser, DoesNotTakeAFrameThatEndsWithTheBuffer)
{
    const Scan scan = parsed(kRate);

    EXPECT_EQ(scan, Scan{});
}

TEST(Parser, TakesAFrameWhenOneMoreByteFollowsIt)
{
    const Scan scan = parsed(kRate, "00");

    EXPECT_EQ(scan.frames, Frames{kRate});
    EXPECT_EQ(scan.good, 1U);
    EXPECT_EQ(scan.errored, 0U);
    EXPECT_EQ(scan.unknown, 0U);
}

TEST(Parser, TakesAFrameWithoutPayload)
{
    EXPECT_EQ(parsed(kVersionPoll, "0D").frames, Frames{kVersionPoll});
}

TEST(Parser, TakesAConfigurationItemInFrontOfNmeaText)
{
    const Scan scan = parse(joined({bytes(kItem), text("$GNRMC,140307.00,A*57\r\n")}));

    EXPECT_EQ(scan.frames, Frames{kItem});
    EXPECT_EQ(scan.good, 1U);
}

TEST(Parser, CountsAnAcknowledgeAsGoodAndAsAck)
{
    const Scan scan = parsed(kAck, "00");

    EXPECT_EQ(scan.frames, Frames{kAck});
    EXPECT_EQ(scan.good, 1U);
    EXPECT_EQ(scan.ack, 1U);
    EXPECT_EQ(scan.nak, 0U);
}

TEST(Parser, CountsARefusalAsGoodAndAsNak)
{
    const Scan scan = parsed(kNak, "00");

    EXPECT_EQ(scan.frames, Frames{kNak});
    EXPECT_EQ(scan.good, 1U);
    EXPECT_EQ(scan.ack, 0U);
    EXPECT_EQ(scan.nak, 1U);
}

TEST(Parser, PassesOverADamagedFrameWhole)
{
    const Scan scan = parsed(kWrongChecksum, kRate, "00");

    EXPECT_EQ(scan.errored, 1U);
    EXPECT_EQ(scan.good, 1U);
    EXPECT_EQ(scan.frames, Frames{kRate});
}

TEST(Parser, LooksForNoFrameInsideADamagedOne)
{
    const Scan scan = parsed("B5 62 06 23 08 00", kVersionPoll, "00 00", kRate, "00");

    EXPECT_EQ(scan.errored, 1U);
    EXPECT_EQ(scan.frames, Frames{kRate});
}

TEST(Parser, ComparesBothBytesOfTheChecksum)
{
    const Scan first = parsed("B5 62 0A 04 00 00 0F 34 00");
    const Scan second = parsed("B5 62 0A 04 00 00 0E 35 00");
    const Scan swapped = parsed("B5 62 0A 04 00 00 34 0E 00");

    EXPECT_EQ(first.errored, 1U);
    EXPECT_EQ(second.errored, 1U);
    EXPECT_EQ(swapped.errored, 1U);
    EXPECT_EQ(first.good + second.good + swapped.good, 0U);
}

TEST(Parser, DoesNotCountADamagedAcknowledgeAsAck)
{
    const Scan scan = parsed("B5 62 05 01 02 00 06 23 31 5B 00");

    EXPECT_EQ(scan.errored, 1U);
    EXPECT_EQ(scan.ack, 0U);
}

TEST(Parser, CountsAnUnknownFrameAndGoesOnBehindItsSyncChars)
{
    const Scan scan = parsed(kUnknown, kRate, "00");

    EXPECT_EQ(scan.unknown, 1U);
    EXPECT_EQ(scan.good, 1U);
    EXPECT_EQ(scan.frames, Frames{kRate});
}

TEST(Parser, FindsAFrameInsideAnUnknownOne)
{
    const Scan scan = parsed("B5 62 06 71 08 00", kVersionPoll, "00");

    EXPECT_EQ(scan.unknown, 1U);
    EXPECT_EQ(scan.frames, Frames{kVersionPoll});
}

TEST(Parser, CountsClassAndIdOfTheEndMarkerAsUnknown)
{
    const Scan scan = parsed("B5 62 FF FF 00 00 FE F9", kRate, "00");

    EXPECT_EQ(scan.unknown, 1U);
    EXPECT_EQ(scan.frames, Frames{kRate});
}

TEST(Parser, CountsAnUnknownSyncPairInFiveBytes)
{
    EXPECT_EQ(parsed("B5 62 06 71 00").unknown, 1U);
    EXPECT_EQ(parsed("B5 62 06 71").unknown, 0U);
}

TEST(Parser, CountsTheLastFrameOfTheCatalogueAsGoodAndAsUnknown)
{
    const Scan scan = parsed(kLastOfCatalogue, "00");

    EXPECT_EQ(scan.frames, Frames{kLastOfCatalogue});
    EXPECT_EQ(scan.good, 1U);
    EXPECT_EQ(scan.unknown, 1U);
}

TEST(Parser, CountsTheLastFrameOfTheCatalogueAsUnknownAlsoWhenDamagedOrUnfinished)
{
    const Scan damaged = parsed("B5 62 28 00 01 00 12 3A DC 00");
    const Scan unfinished = parsed(kLastOfCatalogue);
    const Scan withoutLength = parsed("B5 62 28 00 01");
    const Scan withoutHeader = parsed("B5 62 28 00");

    EXPECT_EQ(damaged.errored, 1U);
    EXPECT_EQ(damaged.unknown, 1U);
    EXPECT_EQ(unfinished.good, 0U);
    EXPECT_EQ(unfinished.unknown, 1U);
    EXPECT_EQ(withoutLength.unknown, 1U);
    EXPECT_EQ(withoutHeader.unknown, 0U);
}

TEST(Parser, DoesNotCountTheRowBeforeTheLastAsUnknown)
{
    EXPECT_EQ(parsed("B5 62 27 03 00 00 2A A5 00").unknown, 0U);
}

TEST(Parser, TakesAFrameOfALengthThatTheCatalogueDoesNotGive)
{
    EXPECT_EQ(parsed("B5 62 06 23 03 00 00 00 00 2C 0B 00").frames, Frames{"B5 62 06 23 03 00 00 00 00 2C 0B"});
}

TEST(Parser, FindsAFrameBehindJunk)
{
    const Scan nmea = parse(joined({text("$GNGGA,140307.00,,,,,0,00*7B\r\n"), bytes(kRate), text("$")}));
    const Scan syncs = parsed("B5 00 B5 61 62 B5", "00", kRate, "00");

    EXPECT_EQ(nmea.frames, Frames{kRate});
    EXPECT_EQ(syncs.frames, Frames{kRate});
}

TEST(Parser, FindsAllFramesWithJunkBetween)
{
    const Scan scan = parsed(kRate, "24 47 4E 0D 0A", kAck, kUnknown, "62 B5 00", kItem, kNak, "0D 0A");

    EXPECT_EQ(scan.frames, (Frames{kRate, kAck, kItem, kNak}));
    EXPECT_EQ(scan.good, 4U);
    EXPECT_EQ(scan.ack, 1U);
    EXPECT_EQ(scan.nak, 1U);
    EXPECT_EQ(scan.unknown, 1U);
}

TEST(Parser, DoesNotTryTheSecondOfTwoFirstSyncChars)
{
    const Scan scan = parsed("B5", kRate, "00");

    EXPECT_EQ(scan.frames, Frames{});
    EXPECT_EQ(scan.good + scan.errored + scan.unknown, 0U);
}

TEST(Parser, TriesTheThirdOfThreeFirstSyncChars)
{
    EXPECT_EQ(parsed("B5 B5", kRate, "00").frames, Frames{kRate});
}

TEST(Parser, SkipsTheByteBehindAStrayFirstSyncChar)
{
    // The frame begins at the third byte, which the stray one does not touch.
    EXPECT_EQ(parsed("B5 61", kRate, "00").frames, Frames{kRate});
    // Nothing here: B5 B5, then 62.
    EXPECT_EQ(parsed("61 B5", kRate, "00").frames, Frames{});
}

TEST(Parser, StopsAtAFalseSyncThatClaimsMoreThanTheBufferHolds)
{
    const Scan scan = parsed(kRate, "B5 62 06 08 FF FF", kAck, "00");

    EXPECT_EQ(scan.frames, Frames{kRate});
    EXPECT_EQ(scan.result, 14U);
}

TEST(Parser, TakesAFrameOfTheLongestPayload)
{
    Bytes frame(65543);
    const Bytes head = bytes("B5 62 06 04 FF FF");
    std::copy(head.begin(), head.end(), frame.begin());
    frame[65541] = 0x08; // 06 + 04 + FF + FF, then zeros that add to the second sum only
    frame[65542] = 0x19;

    Bytes followed = frame;
    followed.push_back(0);

    EXPECT_EQ(parse(frame), Scan{});
    const Scan scan = parse(followed);
    EXPECT_EQ(scan.good, 1U);
    EXPECT_EQ(scan.errored, 0U);
}

TEST(Parser, LeavesTheBufferAsItWas)
{
    UBXMessageList list;
    UBXMessageBuilder builder(&list);
    const Bytes before = joined({bytes(kRate), bytes(kWrongChecksum), bytes(kUnknown), bytes("B5 62 06")});
    Bytes stream = before;

    builder.update(stream.data(), stream.size());

    EXPECT_EQ(stream, before);
}

} // namespace
