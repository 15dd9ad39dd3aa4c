// A stream that arrives in pieces: the caller presents what it has again with every byte that follows.

#include <UBXMessageBuilder.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Parsing.h"

namespace
{

using protocoltest::Bytes;
using protocoltest::joined;
using protocoltest::parse;
using protocoltest::referenceScan;
using protocoltest::Scan;
using protocoltest::text;
using testsupport::bytes;

using Frames = std::vector<std::string>;

const Frames kFrames{"B5 62 06 08 06 00 E8 03 01 00 01 00 01 39", "B5 62 05 01 02 00 06 23 31 5A",
                     "B5 62 06 8B 09 00 01 00 00 00 A3 00 11 20 28 97 08"};

struct Stream
{
    Bytes whole;
    std::vector<std::size_t> ends; ///< The place behind each of the frames.
};

/// Three good frames with NMEA sentences before, between and behind them.
Stream stream()
{
    const Bytes before = text("$GNRMC,140307.00,V,,,,,,,,,,N*6B\r\n");
    const Bytes between = text("$GNTXT,01,01,02,ANTSTATUS=OK*25\r\n");
    const Bytes behind = text("$GNZDA,140308.00,21,11,2026,00,00*72\r\n");
    Stream result;
    Bytes& whole = result.whole;
    const auto add = [&whole](const Bytes& more) { whole.insert(whole.end(), more.begin(), more.end()); };

    add(before);
    add(bytes(kFrames[0]));
    result.ends.push_back(whole.size());
    add(bytes(kFrames[1])); // nothing between the first two
    result.ends.push_back(whole.size());
    add(between);
    add(bytes(kFrames[2]));
    result.ends.push_back(whole.size());
    add(behind);
    return result;
}

TEST(SplitStream, GivesEveryFrameAsSoonAsOneMoreByteHasCome)
{
    const Stream all = stream();
    for (std::size_t arrived = 0; arrived <= all.whole.size(); ++arrived) {
        Frames expected;
        for (std::size_t i = 0; i < all.ends.size(); ++i) {
            if (arrived > all.ends[i]) expected.push_back(kFrames[i]);
        }

        const Scan scan = parse(Bytes(all.whole.begin(), all.whole.begin() + static_cast<std::ptrdiff_t>(arrived)));

        ASSERT_EQ(scan.frames, expected) << arrived << " bytes";
        ASSERT_EQ(scan.good, expected.size());
        ASSERT_EQ(scan.errored, 0U);
        ASSERT_EQ(scan.unknown, 0U);
    }
}

TEST(SplitStream, CarriesNothingOverFromOneCallToTheNext)
{
    const Stream all = stream();
    for (std::size_t split = 0; split <= all.whole.size(); ++split) {
        UBXMessageList list;
        UBXMessageBuilder builder(&list);
        Bytes first(all.whole.begin(), all.whole.begin() + static_cast<std::ptrdiff_t>(split));
        Bytes second(all.whole.begin() + static_cast<std::ptrdiff_t>(split), all.whole.end());
        const Frames expectedFirst = referenceScan(first).frames;
        const Frames expectedSecond = referenceScan(second).frames;

        builder.update(first.data(), first.size());
        ASSERT_EQ(protocoltest::takeAll(list), expectedFirst) << "split at " << split;
        builder.update(second.data(), second.size());
        ASSERT_EQ(protocoltest::takeAll(list), expectedSecond) << "split at " << split;
    }
}

TEST(SplitStream, GivesAllFramesWhenPresentedWholeAfterAnyPart)
{
    const Stream all = stream();
    for (std::size_t split = 0; split <= all.whole.size(); ++split) {
        UBXMessageList list;
        UBXMessageBuilder builder(&list);
        Bytes buffer = all.whole;
        builder.update(buffer.data(), split);
        list.Empty();

        builder.update(buffer.data(), buffer.size());

        ASSERT_EQ(protocoltest::takeAll(list), kFrames) << "split at " << split;
    }
}

TEST(TruncatedFrame, IsNoFrameWhereverItEnds)
{
    const Bytes frame = bytes(kFrames[2]);
    for (std::size_t left = 0; left <= frame.size(); ++left) {
        const Scan scan = parse(Bytes(frame.begin(), frame.begin() + static_cast<std::ptrdiff_t>(left)));

        ASSERT_EQ(scan, Scan{}) << left << " bytes";
    }
}

TEST(TruncatedFrame, BehindAWholeOneLeavesThatOneWhereverItEnds)
{
    const Bytes frame = bytes(kFrames[0]);
    for (std::size_t left = 1; left <= frame.size(); ++left) {
        const Bytes part(frame.begin(), frame.begin() + static_cast<std::ptrdiff_t>(left));

        const Scan scan = parse(joined({bytes(kFrames[1]), part}));

        ASSERT_EQ(scan.frames, Frames{kFrames[1]}) << left << " bytes";
        ASSERT_EQ(scan.result, left == 1 ? 0U : 10U) << left << " bytes";
    }
}

TEST(TruncatedFrame, OfFiveBytesIsNotReadPastItsEnd)
{
    // The page behind the bytes can't be read; a second length byte is not there.
    EXPECT_EQ(parse(bytes("B5 62 06 08 00")), Scan{});
    EXPECT_EQ(parse(bytes("B5 62 06 08 FF")), Scan{});
    Scan last;
    last.unknown = 1;
    EXPECT_EQ(parse(bytes("B5 62 28 00 00")), last);
}

TEST(TruncatedFrame, OfTheGreatestLengthIsNotReadPastItsEnd)
{
    for (std::size_t more = 0; more < 40; ++more) {
        Bytes claims = bytes("B5 62 06 08 FF FF");
        claims.resize(claims.size() + more);

        ASSERT_EQ(parse(claims), Scan{}) << more << " payload bytes";
    }
}

} // namespace
