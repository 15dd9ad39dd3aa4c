// The parser and the reference scan on the same inputs: random ones, and recordings of real receivers.

#include <UBXMessageBuilder.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "Files.h"
#include "Frames.h"
#include "KnownMessages.h"
#include "Parsing.h"

namespace
{

using protocoltest::Bytes;
using protocoltest::knownMessages;
using protocoltest::parse;
using protocoltest::ReceivedBytes;
using protocoltest::referenceScan;
using protocoltest::Scan;
using testsupport::bytes;
using testsupport::hex;

/// Makes streams of frames, good and damaged, and of what looks like the beginning of one.
class Streams
{
public:
    explicit Streams(unsigned seed) : random_(seed) {}

    Bytes next()
    {
        Bytes stream;
        const unsigned pieces = below(6);
        for (unsigned i = 0; i < pieces; ++i)
            add(stream);
        if (below(2) == 0 && !stream.empty())
            stream.resize(stream.size() - below(static_cast<unsigned>(stream.size())));
        return stream;
    }

private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
    std::uint8_t byte() { return static_cast<std::uint8_t>(random_()); }

    Bytes noise(unsigned most)
    {
        // Mostly of the bytes that mean something.
        static const Bytes kTelling = bytes("B5 B5 62 62 06 28 00 01 05 FF 24 0A");
        Bytes result(below(most + 1));
        for (std::uint8_t& value : result)
            value = below(3) == 0 ? byte() : kTelling[below(static_cast<unsigned>(kTelling.size()))];
        return result;
    }

    /// Class and id: known, the last known, acknowledgements, the end marker, any.
    std::string classAndId()
    {
        const protocoltest::KnownMessage& known = knownMessages[below(protocoltest::kKnownMessages)];
        switch (below(8)) {
        case 0:
            return "28 00";
        case 1:
            return below(2) == 0 ? "05 01" : "05 00";
        case 2:
            return "FF FF";
        case 3:
            return hex({byte(), byte()});
        default:
            return hex({static_cast<std::uint8_t>(known.msgClass), static_cast<std::uint8_t>(known.msgId)});
        }
    }

    Bytes frame() { return bytes(testsupport::frame(classAndId(), hex(noise(12)))); }

    void add(Bytes& stream)
    {
        Bytes piece = below(4) == 0 ? noise(10) : frame();
        switch (below(6)) {
        case 0: // one byte changed
            if (!piece.empty()) piece[below(static_cast<unsigned>(piece.size()))] = byte();
            break;
        case 1: // some bytes lost at its end
            piece.resize(below(static_cast<unsigned>(piece.size()) + 1));
            break;
        case 2: // a byte too many somewhere
            piece.insert(piece.begin() + below(static_cast<unsigned>(piece.size()) + 1), below(2) == 0 ? 0xB5 : byte());
            break;
        default:
            break;
        }
        stream.insert(stream.end(), piece.begin(), piece.end());
    }

    std::mt19937 random_;
};

/// A quarter of a hundred thousand streams, with the seed that makes them.
class ParserAgainstReference : public testing::TestWithParam<unsigned>
{};

TEST_P(ParserAgainstReference, AgreesOnTwentyFiveThousandRandomStreams)
{
    Streams streams(GetParam());
    ReceivedBytes place(4096);
    Scan sum; // so that the streams are seen to hold something of everything
    unsigned withResult = 0;

    for (int i = 0; i < 25000; ++i) {
        const Bytes stream = streams.next();
        const Scan expected = referenceScan(stream);

        const Scan actual = parse(stream, place);

        ASSERT_EQ(actual, expected) << "stream " << i << ": " << hex(stream);
        sum.good += actual.good;
        sum.errored += actual.errored;
        sum.unknown += actual.unknown;
        sum.ack += actual.ack;
        sum.nak += actual.nak;
        withResult += actual.result != 0 ? 1 : 0;
    }

    EXPECT_GT(sum.good, 5000U);
    EXPECT_GT(sum.errored, 1250U);
    EXPECT_GT(sum.unknown, 5000U);
    EXPECT_GT(sum.ack, 250U);
    EXPECT_GT(sum.nak, 250U);
    EXPECT_GT(withResult, 2500U);
}

INSTANTIATE_TEST_SUITE_P(Seeds, ParserAgainstReference, testing::Values(19820711, 2, 3, 4));

using Counts = std::map<std::string, unsigned>;

/// How many frames there are of each class and id.
Counts countsOf(const Scan& scan)
{
    Counts counts;
    for (const std::string& frame : scan.frames)
        ++counts[frame.substr(6, 5)];
    return counts;
}

Bytes recording(const std::string& name)
{
    const std::string contents = testsupport::slurp(testsupport::capturesDirectory() / name);
    return Bytes(contents.begin(), contents.end());
}

/// Each holds frames that are not in the catalogue as well; they are passed over.
/// Recordings stand beside the checkout or not at all.
class Recording : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!testsupport::haveCaptures()) GTEST_SKIP() << "no recordings at " << testsupport::capturesDirectory();
    }

    /// The parser finds these frames in the recording, and what the reference scan finds in it and in parts of it.
    static void expectCounts(const std::string& name, const Counts& expected)
    {
        const Bytes whole = recording(name);
        ASSERT_FALSE(whole.empty());
        ReceivedBytes place(whole.size());
        const Scan scan = parse(whole, place);

        EXPECT_EQ(countsOf(scan), expected);
        EXPECT_EQ(scan, referenceScan(whole));
        for (std::size_t begin = 1; begin < whole.size(); begin += 1 + whole.size() / 23) {
            const std::size_t end = std::min(whole.size(), begin + 5120);
            const Bytes part(whole.begin() + static_cast<std::ptrdiff_t>(begin),
                             whole.begin() + static_cast<std::ptrdiff_t>(end));
            ASSERT_EQ(parse(part, place), referenceScan(part)) << "from " << begin << " to " << end;
        }
    }
};

TEST_F(Recording, OfATimingReceiverOfTheNinthGenerationIsUnderstood)
{
    expectCounts("zed-f9t-tim-2.25.log", {{"01 01", 9},
                                          {"01 04", 9},
                                          {"01 07", 9},
                                          {"01 11", 9},
                                          {"01 20", 9},
                                          {"01 22", 9},
                                          {"01 35", 9},
                                          {"01 61", 9}});
}

TEST_F(Recording, OfATimingReceiverOfTheEighthGenerationIsUnderstood)
{
    expectCounts("neo-m8t-timing.log", {{"01 01", 151},
                                        {"01 02", 151},
                                        {"01 03", 151},
                                        {"01 04", 151},
                                        {"01 20", 151},
                                        {"01 21", 151},
                                        {"01 26", 151},
                                        {"01 35", 151},
                                        {"0D 01", 152},
                                        {"0D 04", 151}});
}

TEST_F(Recording, OfATimingModeReplyIsUnderstood)
{
    expectCounts("neo-m8t-tmode2.log", {{"01 01", 29},
                                        {"01 04", 29},
                                        {"01 06", 29},
                                        {"01 11", 29},
                                        {"01 20", 29},
                                        {"01 30", 3},
                                        {"01 32", 3},
                                        {"05 01", 1},
                                        {"06 3D", 1}});
}

TEST_F(Recording, OfVersionRepliesIsUnderstood)
{
    expectCounts("lea-m8f-mon-ver.log", {{"01 01", 23},
                                         {"01 04", 23},
                                         {"01 07", 28},
                                         {"01 11", 23},
                                         {"01 20", 23},
                                         {"01 35", 23},
                                         {"05 00", 4},
                                         {"05 01", 39},
                                         {"06 00", 1},
                                         {"06 60", 1},
                                         {"06 61", 1},
                                         {"0A 04", 4}});
}

TEST_F(Recording, OfAConfigurationSessionIsUnderstood)
{
    expectCounts("zed-f9p-config-session.log", {{"01 07", 2},
                                                {"01 22", 2},
                                                {"01 34", 2},
                                                {"01 35", 2},
                                                {"05 00", 14},
                                                {"05 01", 44},
                                                {"06 01", 33},
                                                {"06 02", 1},
                                                {"06 8B", 48},
                                                {"0A 02", 2},
                                                {"0A 04", 8},
                                                {"0A 06", 2},
                                                {"0A 09", 2}});
}

} // namespace
