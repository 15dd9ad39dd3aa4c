#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-RXM: power mode.
namespace ubx::cfgRxm
{

inline constexpr Field<std::uint8_t> lpMode{1};
inline constexpr std::uint8_t kContinuous = 0;
inline constexpr std::uint8_t kPowerSave = 1;
inline constexpr std::uint8_t kEco = 4;

} // namespace ubx::cfgRxm
