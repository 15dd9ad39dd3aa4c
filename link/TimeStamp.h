#pragma once

#include <string>

namespace ubx
{

/// The local time of day as "14:03:07_042: ", for log lines.
std::string timeStamp();

} // namespace ubx
