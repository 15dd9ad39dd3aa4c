#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-PM2: extended power management, version 1.
namespace ubx::cfgPm2
{

inline constexpr Field<std::uint8_t> version{0};
inline constexpr Field<std::uint8_t> maxStartupStateDur{1};
inline constexpr Field<std::uint32_t> flags{4};
inline constexpr Field<std::uint32_t> updatePeriod{8};  // ms
inline constexpr Field<std::uint32_t> searchPeriod{12}; // ms
// Bytes that the receiver calls reserved; it wants them just so.
inline constexpr Field<std::uint16_t> tail24{24};
inline constexpr Field<std::uint32_t> tail28{28};
inline constexpr Field<std::uint32_t> tail32{32};
inline constexpr Field<std::uint32_t> tail36{36};
inline constexpr Field<std::uint32_t> tail40{40};
inline constexpr std::size_t size = 44;
static_assert(tail40.end() == size);

} // namespace ubx::cfgPm2
