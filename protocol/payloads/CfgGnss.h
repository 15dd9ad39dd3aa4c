#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-GNSS: constellations. A header, then one block for each satellite system.
namespace ubx::cfgGnss
{

inline constexpr Field<std::uint8_t> msgVer{0};
inline constexpr Field<std::uint8_t> numTrkChHw{1};
inline constexpr Field<std::uint8_t> numTrkChUse{2};
inline constexpr Field<std::uint8_t> numConfigBlocks{3};
inline constexpr std::size_t headerSize = 4;

namespace block
{
inline constexpr Field<std::uint8_t> gnssId{0};
inline constexpr Field<std::uint8_t> resTrkCh{1};
inline constexpr Field<std::uint8_t> maxTrkCh{2};
inline constexpr Field<std::uint8_t> enable{4};     // flags, byte 0
inline constexpr Field<std::uint8_t> sigCfgMask{6}; // flags, byte 2
inline constexpr Field<std::uint8_t> flagsTop{7};   // flags, byte 3
inline constexpr std::size_t size = 8;
static_assert(flagsTop.end() == size);
} // namespace block

inline constexpr std::size_t kSystems = 7; // gnssId 0 to 6, one block each
inline constexpr std::size_t size = headerSize + kSystems * block::size;
static_assert(size == 60);

inline constexpr std::uint8_t kTrackingChannels = 32;

constexpr std::size_t blockOffset(std::size_t index)
{
    return headerSize + index * block::size;
}

} // namespace ubx::cfgGnss
