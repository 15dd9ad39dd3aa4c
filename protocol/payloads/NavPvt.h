#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-NAV-PVT: navigation solution, time in UTC.
namespace ubx::navPvt
{

inline constexpr Field<std::uint16_t> year{4};
inline constexpr Field<std::uint8_t> month{6};
inline constexpr Field<std::uint8_t> day{7};
inline constexpr Field<std::uint8_t> hour{8};
inline constexpr Field<std::uint8_t> min{9};
inline constexpr Field<std::uint8_t> sec{10};
inline constexpr Field<std::uint8_t> fixType{20};
inline constexpr Field<std::uint8_t> numSV{23};
inline constexpr Field<std::int32_t> lon{24};    // 1e-7 degrees
inline constexpr Field<std::int32_t> lat{28};    // 1e-7 degrees
inline constexpr Field<std::int32_t> height{32}; // mm above the ellipsoid

} // namespace ubx::navPvt
