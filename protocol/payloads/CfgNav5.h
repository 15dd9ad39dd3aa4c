#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-NAV5: navigation engine. Only what the mask names is applied.
namespace ubx::cfgNav5
{

inline constexpr Field<std::uint16_t> mask{0};
inline constexpr Field<std::uint8_t> dynModel{2};
inline constexpr Field<std::uint8_t> fixMode{3};
inline constexpr Field<std::uint8_t> minElev{12}; // degrees
inline constexpr Field<std::uint8_t> utcStandard{30};
inline constexpr std::size_t size = 36;

inline constexpr std::uint16_t kApplyDynModel = 0x0001;
inline constexpr std::uint16_t kApplyMinElev = 0x0002;
inline constexpr std::uint16_t kApplyFixMode = 0x0004;
inline constexpr std::uint16_t kApplyUtcStandard = 0x0400;

} // namespace ubx::cfgNav5
