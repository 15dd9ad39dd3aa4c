// How ubxctl cuts what a receiver sends into pieces.

#include <gtest/gtest.h>

#include "Bytes.h"
#include "trace/Trace.h"
#include "wire/Stream.h"

using testsupport::bytes;
using ubxctl::Piece;

namespace
{

// ACK-ACK for CFG-VALSET and NAV-POSLLH poll, checksums worked out by hand.
const ubxctl::Bytes kAck = bytes("B5 62 05 01 02 00 06 8A 98 C1");
const ubxctl::Bytes kPoll = bytes("B5 62 01 02 00 00 03 0A");

ubxctl::Bytes operator+(ubxctl::Bytes one, const ubxctl::Bytes& other)
{
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

ubxctl::Bytes text(const std::string& characters)
{
    return ubxctl::Bytes(characters.begin(), characters.end());
}

std::vector<Piece> piecesOf(const ubxctl::Bytes& all, std::size_t step)
{
    ubxctl::Stream stream;
    std::vector<Piece> pieces;
    for (std::size_t at = 0; at < all.size(); at += step) {
        stream.add(all.data() + at, std::min(step, all.size() - at));
        while (const auto piece = stream.next())
            pieces.push_back(*piece);
    }
    if (const auto rest = stream.rest()) pieces.push_back(*rest);
    return pieces;
}

} // namespace

TEST(Stream, GivesAFrameAsSoonAsItsLastByteHasCome)
{
    ubxctl::Stream stream;

    stream.add(kAck.data(), kAck.size() - 1);
    EXPECT_FALSE(stream.next().has_value());
    stream.add(kAck.data() + kAck.size() - 1, 1);
    const auto piece = stream.next();

    ASSERT_TRUE(piece.has_value());
    EXPECT_EQ(piece->kind, Piece::Kind::ubx);
    EXPECT_EQ(piece->classId(), 0x0501);
    EXPECT_EQ(piece->payload(), bytes("06 8A"));
}

TEST(Stream, GivesTheSamePiecesHoweverTheBytesCome)
{
    const ubxctl::Bytes all = kAck + text("$GNZDA,,,,,,*56\r\n") + kPoll + kAck;
    for (std::size_t step = 1; step <= all.size(); ++step) {
        const auto pieces = piecesOf(all, step);
        ASSERT_EQ(pieces.size(), 4U) << step;
        EXPECT_EQ(pieces[0].bytes, kAck);
        EXPECT_EQ(pieces[1].kind, Piece::Kind::nmea);
        EXPECT_EQ(pieces[2].bytes, kPoll);
        EXPECT_EQ(pieces[3].bytes, kAck);
    }
}

TEST(Stream, FindsTheFrameWithinADamagedOne)
{
    // Its length byte came as 40: the frame that follows lies inside what it claims.
    const ubxctl::Bytes all = bytes("B5 62 05 01 28 00 06 8A 98 C1") + kPoll + ubxctl::Bytes(60, 0x00);

    const auto pieces = piecesOf(all, all.size());

    ASSERT_GE(pieces.size(), 2U);
    EXPECT_EQ(pieces[0].kind, Piece::Kind::damaged);
    EXPECT_EQ(pieces[1].kind, Piece::Kind::ubx);
    EXPECT_EQ(pieces[1].bytes, kPoll);
}

TEST(Stream, TakesNoFalseSyncForAFrameThatItWouldWaitFor)
{
    // A class that no receiver has, and a length that none sends.
    for (const char* noise : {"B5 62 99 01 02 00", "B5 62 05 01 FF FF"}) {
        const auto pieces = piecesOf(bytes(noise) + kPoll, 3);
        ASSERT_FALSE(pieces.empty());
        EXPECT_EQ(pieces.back().kind, Piece::Kind::ubx) << noise;
        EXPECT_EQ(pieces.back().bytes, kPoll) << noise;
    }
}

TEST(Stream, GivesEveryByteBackInItsPlace)
{
    const ubxctl::Bytes all =
        text("*56\r\n$GN") + kPoll + bytes("B5 B5 62") + text("$GNGLL,*00\r\n") + bytes("B5 62 01");
    ubxctl::Bytes again;
    for (const Piece& piece : piecesOf(all, 2))
        again = again + piece.bytes;
    EXPECT_EQ(again, all);
}

TEST(Trace, NamesFramesFromTheCatalogue)
{
    const auto pieces = piecesOf(kAck + kPoll, 4);
    EXPECT_EQ(ubxctl::describe(pieces[0]).substr(0, 13), "UBX   05 01  ");
    EXPECT_NE(ubxctl::describe(pieces[0]).find("2 bytes  06 8A"), std::string::npos);
}

TEST(Trace, ShowsASentenceAndWhetherItsChecksumIsRight)
{
    const auto pieces = piecesOf(text("$GNZDA,,,,,,*56\r\n$GNZDA,,,,,,*57\r\n"), 5);
    EXPECT_EQ(ubxctl::describe(pieces[0]), "NMEA  $GNZDA,,,,,,*56");
    EXPECT_EQ(ubxctl::describe(pieces[1]), "NMEA  $GNZDA,,,,,,*57  (wrong checksum)");
}

TEST(Trace, ShowsNoControlCharacterOfTheReceiverToATerminal)
{
    const auto pieces = piecesOf(text("\x1b[2J$GN\x1b[2JZDA*00\r\n"), 3);
    for (const Piece& piece : pieces)
        EXPECT_EQ(ubxctl::describe(piece).find('\x1b'), std::string::npos);
}
