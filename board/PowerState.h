#pragma once

#include <string>

namespace ubx
{

enum class PowerState
{
    on,
    off,
    unknown
};

/// Reads "ON" or "OFF" in upper or lower case letters.
PowerState powerStateOf(std::string word);

} // namespace ubx
