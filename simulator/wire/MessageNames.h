#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ubxsim
{

/// "CFG-NAVX5" for 0x0623; four hexadecimal digits for a message without a name here.
std::string messageName(std::uint16_t classId);

/// The reverse; also takes the digits. Empty for anything else.
std::optional<std::uint16_t> messageByName(const std::string& name);

} // namespace ubxsim
