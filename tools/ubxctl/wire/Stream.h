#pragma once

#include <cstdint>
#include <optional>

#include "wire/Bytes.h"

namespace ubxctl
{

/// Something whole that the receiver sent.
struct Piece
{
    enum class Kind
    {
        ubx,     ///< A frame with the right checksum.
        damaged, ///< What begins like a frame but has a wrong checksum.
        nmea,    ///< A sentence with its line end, whatever its checksum.
        other    ///< Anything else.
    };

    Kind kind;
    Bytes bytes;

    // Of a frame.
    std::uint16_t classId() const;
    Bytes payload() const;
};

/// Cuts what a receiver sends into pieces, each as soon as it is whole. Every byte comes out again, in its place.
class Stream
{
public:
    void add(const std::uint8_t* bytes, std::size_t count);

    /// The next piece; nothing while it is unfinished.
    std::optional<Piece> next();

    /// At the end: what is left, as it is.
    std::optional<Piece> rest();

private:
    Piece take(Piece::Kind kind, std::size_t count);
    std::optional<Piece> nextFrame();
    std::optional<Piece> nextSentence();
    std::size_t lengthOfOther() const;
    bool mayBeginPiece(std::size_t position) const;

    Bytes bytes_;
};

} // namespace ubxctl
