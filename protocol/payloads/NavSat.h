#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-NAV-SAT: a header, then one block for each tracked satellite.
namespace ubx::navSat
{

inline constexpr Field<std::uint8_t> numSvs{5};
inline constexpr std::size_t headerSize = 8;

namespace block
{
inline constexpr Field<std::uint8_t> gnssId{0};
inline constexpr Field<std::uint8_t> svId{1};
inline constexpr Field<std::uint8_t> cno{2}; // dBHz
inline constexpr Field<std::uint32_t> flags{8};
inline constexpr std::size_t size = 12;
static_assert(flags.end() == size);
} // namespace block

inline constexpr std::uint32_t kQualityInd = 0x07;
inline constexpr std::uint32_t kSvUsed = 0x08;

constexpr std::size_t blockOffset(std::size_t index)
{
    return headerSize + index * block::size;
}

} // namespace ubx::navSat
