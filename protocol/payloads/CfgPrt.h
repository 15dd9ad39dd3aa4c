#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-PRT: a port and its protocols.
namespace ubx::cfgPrt
{

inline constexpr Field<std::uint8_t> portId{0};
inline constexpr Field<std::uint8_t> inProtoMask{12};  // low byte
inline constexpr Field<std::uint8_t> outProtoMask{14}; // low byte

inline constexpr std::uint8_t kUsbPort = 3;
inline constexpr std::uint8_t kUbxAndNmea = 0x03;

} // namespace ubx::cfgPrt
