#pragma once

#include "simulator/wire/Frame.h"

#include <string>

namespace ubxsim
{

/// "B5 62 06": two upper-case digits a byte.
std::string hexText(const Bytes& bytes);

/// Digits in pairs, blanks between pairs as one likes. Throws std::invalid_argument for anything else.
Bytes bytesFromHex(const std::string& text);

} // namespace ubxsim
