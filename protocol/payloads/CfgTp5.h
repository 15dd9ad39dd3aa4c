#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-TP5: time pulse.
namespace ubx::cfgTp5
{

inline constexpr Field<std::uint8_t> tpIdx{0};
inline constexpr Field<std::int16_t> antCableDelay{4}; // ns
inline constexpr Field<std::uint8_t> flags{28};        // low byte
inline constexpr std::size_t size = 32;

inline constexpr Field<std::uint8_t> pollTpIdx{0};
inline constexpr std::size_t pollSize = 1;

inline constexpr std::uint8_t kActive = 0x01;
inline constexpr std::uint8_t kLockGnssFreq = 0x02;
inline constexpr std::uint8_t kLockedOtherSet = 0x04;
inline constexpr std::uint8_t kIsLength = 0x10;
inline constexpr std::uint8_t kAlignToTow = 0x20;
inline constexpr std::uint8_t kRisingEdge = 0x40;
inline constexpr std::uint8_t kGridGps = 0x80; // clear: UTC

inline constexpr int kUtcGrid = kLockGnssFreq | kLockedOtherSet | kIsLength | kAlignToTow | kRisingEdge;
inline constexpr int kGpsGrid = kUtcGrid | kGridGps;
static_assert(kUtcGrid == 0x76 && kGpsGrid == 0xF6);

inline constexpr std::uint8_t kSecondPulse = 1;

} // namespace ubx::cfgTp5
