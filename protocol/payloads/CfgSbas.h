#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-SBAS: use of SBAS satellites.
namespace ubx::cfgSbas
{

inline constexpr Field<std::uint8_t> mode{0};
inline constexpr Field<std::uint8_t> usage{1};
inline constexpr Field<std::uint8_t> maxSbas{2};
inline constexpr Field<std::uint8_t> scanmode2{3};
inline constexpr Field<std::uint32_t> scanmode1{4};
inline constexpr std::size_t size = 8;
static_assert(scanmode1.end() == size);

inline constexpr std::uint8_t kEnabled = 0x01;
inline constexpr std::uint8_t kRangingAndCorrections = 0x03;
inline constexpr std::uint8_t kMaxSbas = 3;
inline constexpr std::uint32_t kPrnMask = 0x0037A3E9; // 120, 123, 125 to 129, 133, 135 to 138, 140, 141

} // namespace ubx::cfgSbas
