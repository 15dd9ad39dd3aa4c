#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-NAVX5: navigation engine, expert settings. Only what the mask names is applied.
namespace ubx::cfgNavx5
{

inline constexpr Field<std::uint16_t> version{0};
inline constexpr Field<std::uint16_t> mask1{2};
inline constexpr Field<std::uint8_t> minCNO{12}; // dBHz
inline constexpr std::size_t size = 40;

inline constexpr std::uint16_t kVersion = 2;
inline constexpr std::uint16_t kApplyMinCno = 0x0008;

} // namespace ubx::cfgNavx5
