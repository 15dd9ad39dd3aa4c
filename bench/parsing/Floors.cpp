#include "bench/parsing/Floors.h"

#include <cstring>

namespace bench
{

namespace
{

using Lanes = std::uint8_t __attribute__((vector_size(16)));
using WideLanes = std::uint16_t __attribute__((vector_size(16)));

// Every second lane, the others' bytes gone: both supported machines keep the lower byte first.
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__);
WideLanes even(Lanes lanes)
{
    return reinterpret_cast<WideLanes>(lanes) & 0xFF;
}

WideLanes odd(Lanes lanes)
{
    return reinterpret_cast<WideLanes>(lanes) >> 8;
}

unsigned sumOf(WideLanes lanes)
{
    std::uint64_t halves[2];
    std::memcpy(halves, &lanes, sizeof halves);
    return static_cast<unsigned>((halves[0] + halves[1]) * 0x0001000100010001 >> 48) & 0xFF;
}

} // namespace

std::uint16_t fastChecksum(const std::uint8_t* data, std::size_t length)
{
    if (length < sizeof(Lanes)) {
        unsigned a = 0;
        unsigned b = 0;
        for (std::size_t i = 0; i < length; ++i)
            b += a += data[i];
        return static_cast<std::uint16_t>((a & 0xFF) | (b & 0xFF) << 8);
    }
    const std::size_t rest = length % sizeof(Lanes);
    std::uint8_t padded[2 * sizeof(Lanes)] = {};
    std::memcpy(padded + sizeof(Lanes), data, sizeof(Lanes));
    Lanes a;
    std::memcpy(&a, padded + rest, sizeof a);
    Lanes b{};
    for (std::size_t i = rest; i < length; i += sizeof(Lanes)) {
        Lanes next;
        std::memcpy(&next, data + i, sizeof next);
        b += a;
        a += next;
    }
    constexpr WideLanes kEvenWeights = {16, 14, 12, 10, 8, 6, 4, 2};
    constexpr WideLanes kOddWeights = {15, 13, 11, 9, 7, 5, 3, 1};
    const WideLanes weighted = even(a) * kEvenWeights + odd(a) * kOddWeights + ((even(b) + odd(b)) << 4);
    return static_cast<std::uint16_t>(sumOf(even(a) + odd(a)) | sumOf(weighted & 0xFF) << 8);
}

std::size_t countFirstSyncChars(const std::uint8_t* data, std::size_t length)
{
    std::size_t count = 0;
    const std::uint8_t* const end = data + length;
    while (const void* const found = std::memchr(data, 0xB5, static_cast<std::size_t>(end - data))) {
        ++count;
        data = static_cast<const std::uint8_t*>(found) + 1;
    }
    return count;
}

std::size_t FramesTakenOut::take(const std::uint8_t* data, const FramePlace* first, const FramePlace* last)
{
    const std::size_t before = messages_.size();
    for (const FramePlace* place = first; place != last; ++place) {
        const std::uint8_t* const start = data + place->start;
        const std::uint16_t checksum = fastChecksum(start + 2, place->length - 4);
        if (std::memcmp(&checksum, start + place->length - 2, sizeof checksum) != 0) continue;
        auto* const message = new Message{place->length - 8, place->length, 0, new std::uint8_t[place->length]};
        std::memcpy(message->bytes, start, place->length);
        messages_.push_back(message);
    }
    return messages_.size() - before;
}

void FramesTakenOut::clear()
{
    for (const Message* const message : messages_) {
        delete[] message->bytes;
        delete message;
    }
    messages_.clear();
}

} // namespace bench
