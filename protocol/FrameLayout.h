#pragma once

#include <cstddef>

/// Where things stand in a UBX frame.
namespace ubx::frame
{

inline constexpr unsigned char kSync1 = 0xB5;
inline constexpr unsigned char kSync2 = 0x62;

inline constexpr std::size_t kSyncLength = 2;
inline constexpr std::size_t kClassOffset = 2; // the checksum runs from here to the end of the payload
inline constexpr std::size_t kIdOffset = 3;
inline constexpr std::size_t kLengthOffset = 4;
inline constexpr std::size_t kPayloadOffset = 6;
inline constexpr std::size_t kChecksumLength = 2;

inline constexpr std::size_t kHeaderUnderChecksum = kPayloadOffset - kClassOffset;
inline constexpr std::size_t kOverhead = kPayloadOffset + kChecksumLength;

} // namespace ubx::frame
