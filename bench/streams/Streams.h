#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// What a receiver sends, in any amount. The same seed gives the same bytes.
///
/// Messages stand in random order, with random lengths and contents: a stream that repeats itself teaches the processor
/// what comes next, and makes a parser look faster than it is.
namespace bench
{

struct FramePlace
{
    std::size_t start;
    std::size_t length;
};

struct Stream
{
    std::vector<std::uint8_t> bytes;
    std::vector<FramePlace> frames; ///< Where the undamaged frames lie.
};

/// NMEA sentences and UBX messages as a timing receiver puts them out every second.
Stream mixedStream(std::size_t size, std::uint32_t seed = 1);

/// The UBX messages of it alone.
Stream ubxStream(std::size_t size, std::uint32_t seed = 2);

/// The NMEA sentences of it alone.
Stream nmeaStream(std::size_t size, std::uint32_t seed = 3);

/// Pairs of sync chars with any class, id and length behind them, among random bytes. There is no frame in it.
Stream falseSyncStream(std::size_t size, std::uint32_t seed = 4);

/// ubxStream() with one changed byte in 2 % of its frames.
Stream damagedStream(std::size_t size, std::uint32_t seed = 2);

} // namespace bench
