#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-NAV-POSLLH: geodetic position.
namespace ubx::navPosllh
{

inline constexpr Field<std::int32_t> lon{4};     // 1e-7 degrees
inline constexpr Field<std::int32_t> lat{8};     // 1e-7 degrees
inline constexpr Field<std::int32_t> height{12}; // mm above the ellipsoid

} // namespace ubx::navPosllh
