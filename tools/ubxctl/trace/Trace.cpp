#include "trace/Trace.h"

#include <algorithm>
#include <cstdio>

#include <UBXMessage.h>
#include <UBXMessageCatalogue.h>

namespace ubxctl
{

namespace
{

constexpr std::size_t kShownBytes = 24;

std::string hexOf(const Bytes& bytes, std::size_t most)
{
    std::string text;
    for (std::size_t i = 0; i < std::min(most, bytes.size()); ++i) {
        char pair[4];
        std::snprintf(pair, sizeof pair, "%s%02X", i == 0 ? "" : " ", static_cast<unsigned int>(bytes[i]));
        text += pair;
    }
    return bytes.size() > most ? text + " ..." : text;
}

std::string nameOf(const Piece& frame)
{
    return ubxGetMessageDescription({frame.bytes.at(2), frame.bytes.at(3)},
                                    static_cast<unsigned short>(frame.payload().size()));
}

/// What a terminal can be shown without harm.
std::string textOf(const Bytes& sentence)
{
    std::string text;
    for (const std::uint8_t byte : sentence) {
        if (byte >= 0x20 && byte < 0x7F) text += static_cast<char>(byte);
    }
    return text;
}

const char* kindOf(Piece::Kind kind)
{
    switch (kind) {
    case Piece::Kind::ubx:
        return "ubx";
    case Piece::Kind::damaged:
        return "damaged";
    case Piece::Kind::nmea:
        return "nmea";
    case Piece::Kind::other:
        break;
    }
    return "other";
}

int hexDigit(std::uint8_t character)
{
    if (character >= '0' && character <= '9') return character - '0';
    if (character >= 'A' && character <= 'F') return character - 'A' + 10;
    return -1;
}

} // namespace

bool hasGoodChecksum(const Bytes& sentence)
{
    const auto star = std::find(sentence.begin(), sentence.end(), '*');
    if (sentence.end() - star < 3) return false;
    unsigned int sum = 0;
    for (auto byte = sentence.begin() + 1; byte != star; ++byte)
        sum ^= *byte;
    return hexDigit(star[1]) == static_cast<int>(sum >> 4) && hexDigit(star[2]) == static_cast<int>(sum & 0xF);
}

std::string describe(const Piece& piece)
{
    switch (piece.kind) {
    case Piece::Kind::ubx: {
        const Bytes payload = piece.payload();
        return "UBX   " + hexOf({piece.bytes[2], piece.bytes[3]}, 2) + "  " + nameOf(piece) + ", " +
               std::to_string(payload.size()) + " bytes" + (payload.empty() ? "" : "  " + hexOf(payload, kShownBytes));
    }
    case Piece::Kind::nmea:
        return "NMEA  " + textOf(piece.bytes) + (hasGoodChecksum(piece.bytes) ? "" : "  (wrong checksum)");
    case Piece::Kind::damaged:
        return "UBX?  wrong checksum  " + hexOf(piece.bytes, kShownBytes);
    case Piece::Kind::other:
        break;
    }
    return "?     " + std::to_string(piece.bytes.size()) + " bytes  " + hexOf(piece.bytes, kShownBytes);
}

Json jsonOf(const Piece& piece, const std::string& time)
{
    Json object{{"command", "trace"}, {"time", time}, {"kind", kindOf(piece.kind)}};
    if (piece.kind == Piece::Kind::ubx) {
        object["class"] = piece.bytes[2];
        object["id"] = piece.bytes[3];
        object["name"] = nameOf(piece);
        object["payload"] = hexOf(piece.payload(), piece.bytes.size());
    } else if (piece.kind == Piece::Kind::nmea) {
        object["text"] = textOf(piece.bytes);
        object["checksum_ok"] = hasGoodChecksum(piece.bytes);
    } else {
        object["bytes"] = hexOf(piece.bytes, piece.bytes.size());
    }
    return object;
}

} // namespace ubxctl
