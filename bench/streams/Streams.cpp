#include "bench/streams/Streams.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "bench/streams/Frame.h"
#include "bench/streams/Random.h"

namespace bench
{

namespace
{

/// A UBX message of a receiver's output: so many times in a hundred messages, its payload `fixed` bytes and up to
/// `mostBlocks` blocks of `block` bytes.
struct Kind
{
    unsigned share;
    std::uint8_t messageClass;
    std::uint8_t id;
    std::size_t fixed;
    std::size_t block;
    std::uint32_t mostBlocks;
};

constexpr Kind kKinds[] = {
    {12, 0x01, 0x07, 92, 0, 0},  // NAV-PVT
    {8, 0x01, 0x35, 8, 12, 40},  // NAV-SAT
    {8, 0x01, 0x02, 28, 0, 0},   // NAV-POSLLH
    {8, 0x01, 0x03, 16, 0, 0},   // NAV-STATUS
    {8, 0x01, 0x04, 18, 0, 0},   // NAV-DOP
    {8, 0x01, 0x21, 20, 0, 0},   // NAV-TIMEUTC
    {8, 0x01, 0x22, 20, 0, 0},   // NAV-CLOCK
    {8, 0x0D, 0x01, 16, 0, 0},   // TIM-TP
    {8, 0x0D, 0x04, 28, 0, 0},   // TIM-SVIN
    {6, 0x02, 0x15, 16, 32, 30}, // RXM-RAWX
    {6, 0x0A, 0x09, 60, 0, 0},   // MON-HW
    {4, 0x06, 0x8B, 8, 5, 20},   // CFG-VALGET
    {4, 0x05, 0x01, 2, 0, 0},    // ACK-ACK
    {4, 0x0A, 0x04, 40, 30, 7},  // MON-VER
};

constexpr std::string_view kSentences[] = {
    "$GNRMC,######.00,A,####.#####,N,#####.#####,E,0.0##,,2##123,,,D,V*##\r\n",
    "$GNVTG,,T,,M,0.0##,N,0.0##,K,D*##\r\n",
    "$GNGGA,######.00,####.#####,N,#####.#####,E,2,12,0.##,#5#.#,M,47.#,M,,0000*##\r\n",
    "$GNGSA,A,3,0#,1#,2#,3#,2#,1#,0#,1#,2#,3#,,,1.##,0.##,0.##,#*##\r\n",
    "$GPGSV,4,#,14,0#,##,1##,4#,1#,##,2##,3#,2#,##,0##,4#,3#,##,3##,2#,#*##\r\n",
    "$GAGSV,3,#,10,0#,##,1##,4#,1#,##,2##,3#,2#,##,0##,4#,3#,##,3##,2#,#*##\r\n",
    "$GLGSV,3,#,09,6#,##,1##,4#,7#,##,2##,3#,8#,##,0##,4#,#*##\r\n",
    "$GNGLL,####.#####,N,#####.#####,E,######.00,A,D*##\r\n",
    "$GNZDA,######.00,##,11,20##,00,00*##\r\n",
};

void appendSentence(Stream& stream, Random& random)
{
    for (const char c : kSentences[random.below(std::size(kSentences))])
        stream.bytes.push_back(static_cast<std::uint8_t>(c == '#' ? '0' + random.below(10) : static_cast<unsigned>(c)));
}

void appendFrame(Stream& stream, Random& random, std::uint8_t messageClass, std::uint8_t id, std::size_t payloadLength)
{
    Bytes payload(payloadLength);
    for (std::uint8_t& byte : payload)
        byte = random.byte();
    const Bytes frame = makeFrame(messageClass, id, payload);
    stream.frames.push_back({stream.bytes.size(), frame.size()});
    stream.bytes.insert(stream.bytes.end(), frame.begin(), frame.end());
}

void appendMessage(Stream& stream, Random& random)
{
    unsigned choice = random.below(100);
    const Kind* kind = std::begin(kKinds);
    while (choice >= kind->share)
        choice -= kind++->share;
    const std::size_t blocks = kind->block == 0 ? 0 : random.below(kind->mostBlocks + 1);
    appendFrame(stream, random, kind->messageClass, kind->id, kind->fixed + blocks * kind->block);
}

// Whole messages only, and a line end behind the last one, without which a parser would wait for more.
template <typename Append>
Stream fill(std::size_t size, std::uint32_t seed, Append append)
{
    Random random(seed);
    Stream stream;
    stream.bytes.reserve(size + 4096);
    while (stream.bytes.size() < size)
        append(stream, random);
    stream.bytes.insert(stream.bytes.end(), {'\r', '\n', '\r', '\n'});
    return stream;
}

} // namespace

Stream mixedStream(std::size_t size, std::uint32_t seed)
{
    // Seventeen sentences and nine messages are what a second brings: half of the bytes each.
    return fill(size, seed, [](Stream& stream, Random& random) {
        if (random.below(26) < 17) {
            appendSentence(stream, random);
        } else {
            appendMessage(stream, random);
        }
    });
}

Stream ubxStream(std::size_t size, std::uint32_t seed)
{
    return fill(size, seed, appendMessage);
}

Stream nmeaStream(std::size_t size, std::uint32_t seed)
{
    return fill(size, seed, appendSentence);
}

Stream falseSyncStream(std::size_t size, std::uint32_t seed)
{
    return fill(size, seed, [](Stream& stream, Random& random) {
        stream.bytes.insert(stream.bytes.end(),
                            {0xB5, 0x62, random.byte(), random.byte(), random.byte(), random.byte()});
        for (std::uint32_t i = random.below(32); i > 0; --i)
            stream.bytes.push_back(random.byte());
    });
}

Stream damagedStream(std::size_t size, std::uint32_t seed)
{
    Stream stream = ubxStream(size, seed);
    Random random(seed + 1);
    const auto isHit = [&](const FramePlace& frame) {
        if (random.below(100) >= 2) return false;
        stream.bytes[frame.start + random.below(static_cast<std::uint32_t>(frame.length))] ^= 0x10;
        return true;
    };
    stream.frames.erase(std::remove_if(stream.frames.begin(), stream.frames.end(), isHit), stream.frames.end());
    return stream;
}

} // namespace bench
