#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-ITFM: interference monitor. A config word at 0, a config2 word at 4.
namespace ubx::cfgItfm
{

// The antenna setting: the low half of config2.
inline constexpr Field<std::uint16_t> config2Low{4};
inline constexpr Field<std::uint8_t> antSettingByte{5};
inline constexpr unsigned kAntSettingShift = 4; // within that byte
inline constexpr unsigned kAntSettingMask = 0x03;
inline constexpr std::uint16_t kGeneralBits = 0x031E;
inline constexpr unsigned kAntSettingInConfig2 = 12;

// The config word with its enable bit on top, as it is stored: from its second byte on one place too far, so that the
// enable bit falls into the low byte of config2, and its second byte not at all. Kept on purpose, it is read back from
// there.
inline constexpr Field<std::uint8_t> jammingByte0{0};
inline constexpr Field<std::uint8_t> jammingByte1{2};
inline constexpr Field<std::uint8_t> jammingByte2{3};
inline constexpr Field<std::uint8_t> jammingByte3{4};
inline constexpr std::uint32_t kConfigOn = 0xAD62ACF3;
inline constexpr std::uint32_t kConfigOff = 0x2D62ACF3;
inline constexpr std::uint8_t kEnableInByte3 = 0x80;

} // namespace ubx::cfgItfm
