#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-RST: reset, stop and start.
namespace ubx::cfgRst
{

inline constexpr Field<std::uint16_t> navBbrMask{0}; // navigation data to be dropped
inline constexpr Field<std::uint8_t> resetMode{2};
inline constexpr std::size_t size = 4;

inline constexpr std::uint16_t kKeepAll = 0x0000; // hot start
inline constexpr std::uint16_t kDropAll = 0xFFFF; // cold start

inline constexpr std::uint8_t kHardwareReset = 0x00;
inline constexpr std::uint8_t kGnssStop = 0x08;
inline constexpr std::uint8_t kGnssStart = 0x09;

} // namespace ubx::cfgRst
