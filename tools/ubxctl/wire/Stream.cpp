#include "wire/Stream.h"

#include <algorithm>
#include <iterator>

#include <UBXMessage.h>
#include <UBXMessageCatalogue.h>

namespace ubxctl
{

namespace
{

constexpr std::uint8_t kSync1 = 0xB5;
constexpr std::uint8_t kSync2 = 0x62;
constexpr std::size_t kHeaderLength = 6;
constexpr std::size_t kFrameOverhead = 8;
constexpr std::size_t kLengthOffset = 4;
constexpr std::size_t kLongestPayload = 8192; // far beyond what these receivers send: a longer one is a false sync

constexpr std::uint8_t kSentenceStart = '$';
constexpr std::uint8_t kLineEnd = '\n';
constexpr std::size_t kLongestSentence = 256; // the boot screen's are longer than the standard's 82

// Frames of classes that the catalogue has none of.
constexpr std::uint8_t kFurtherClasses[] = {0x21, 0x27, 0x28, 0x29, 0xF0, 0xF1};

bool isClass(std::uint8_t byte)
{
    return std::any_of(std::begin(UBXClassID), std::end(UBXClassID),
                       [byte](const UBXClassRow& row) { return row.msgClass == byte; }) ||
           std::find(std::begin(kFurtherClasses), std::end(kFurtherClasses), byte) != std::end(kFurtherClasses);
}

bool isText(std::uint8_t byte)
{
    return (byte >= 0x20 && byte < 0x7F) || byte == '\r' || byte == kLineEnd;
}

} // namespace

std::uint16_t Piece::classId() const
{
    return static_cast<std::uint16_t>(bytes.at(2) << 8 | bytes.at(3));
}

Bytes Piece::payload() const
{
    return Bytes(bytes.begin() + kHeaderLength, bytes.end() - 2);
}

void Stream::add(const std::uint8_t* bytes, std::size_t count)
{
    bytes_.insert(bytes_.end(), bytes, bytes + count);
}

std::optional<Piece> Stream::next()
{
    if (bytes_.empty()) return std::nullopt;
    if (mayBeginPiece(0)) return bytes_.front() == kSync1 ? nextFrame() : nextSentence();
    return take(Piece::Kind::other, lengthOfOther());
}

std::optional<Piece> Stream::rest()
{
    if (bytes_.empty()) return std::nullopt;
    return take(Piece::Kind::other, bytes_.size());
}

Piece Stream::take(Piece::Kind kind, std::size_t count)
{
    const auto end = bytes_.begin() + static_cast<std::ptrdiff_t>(count);
    Piece piece{kind, Bytes(bytes_.begin(), end)};
    bytes_.erase(bytes_.begin(), end);
    return piece;
}

bool Stream::mayBeginPiece(std::size_t position) const
{
    if (bytes_[position] == kSentenceStart) return true;
    if (bytes_[position] != kSync1) return false;
    if (position + 1 < bytes_.size() && bytes_[position + 1] != kSync2) return false;
    if (position + 2 < bytes_.size() && !isClass(bytes_[position + 2])) return false;
    return position + kHeaderLength > bytes_.size() ||
           numberAt<std::uint16_t>(bytes_, position + kLengthOffset) <= kLongestPayload;
}

std::size_t Stream::lengthOfOther() const
{
    std::size_t length = 1;
    while (length < bytes_.size() && !mayBeginPiece(length))
        ++length;
    return length;
}

std::optional<Piece> Stream::nextFrame()
{
    if (bytes_.size() < kHeaderLength) return std::nullopt;
    const std::size_t length = numberAt<std::uint16_t>(bytes_, kLengthOffset) + kFrameOverhead;
    if (bytes_.size() < length) return std::nullopt;

    const std::uint16_t checksum = ubxComputeChecksum(bytes_.data() + 2, length - 4);
    if (checksum == numberAt<std::uint16_t>(bytes_, length - 2)) return take(Piece::Kind::ubx, length);
    // Its length may be what is wrong: what begins within it is looked at by itself.
    std::size_t end = 2;
    while (end < length && !mayBeginPiece(end))
        ++end;
    return take(Piece::Kind::damaged, end);
}

std::optional<Piece> Stream::nextSentence()
{
    const std::size_t limit = std::min(bytes_.size(), kLongestSentence);
    std::size_t end = 1;
    while (end < limit && isText(bytes_[end]) && bytes_[end] != kSentenceStart && bytes_[end - 1] != kLineEnd)
        ++end;
    if (bytes_[end - 1] == kLineEnd) return take(Piece::Kind::nmea, end);
    if (end == bytes_.size() && end < kLongestSentence) return std::nullopt;
    return take(Piece::Kind::other, end);
}

} // namespace ubxctl
