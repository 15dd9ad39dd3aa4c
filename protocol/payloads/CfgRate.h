#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-RATE: measurement rate and time reference.
namespace ubx::cfgRate
{

inline constexpr Field<std::uint8_t> timeRef{4}; // low byte
inline constexpr std::uint8_t kUtc = 0;
inline constexpr std::uint8_t kGps = 1;

} // namespace ubx::cfgRate
