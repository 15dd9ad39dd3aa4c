#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-MSG: output rate of a message on the current port.
namespace ubx::cfgMsg
{

inline constexpr Field<std::uint8_t> msgClass{0};
inline constexpr Field<std::uint8_t> msgId{1};
inline constexpr Field<std::uint8_t> rate{2};
inline constexpr std::size_t size = 3;
static_assert(rate.end() == size);

} // namespace ubx::cfgMsg
