#pragma once

#include "controller/legacy/LegacyProfile.h"

/// Words of the text arguments and the values of their configuration items.
namespace ubx::items
{

inline constexpr Word kAntennaTypes[] = {{"unknown", 0}, {"passive", 1}, {"active", 2}};
inline constexpr Word kTimingModes[] = {{"DYNAMIC", 0}, {"AUTO", 1}, {"STATIC", 2}};
inline constexpr Word kTimeReferences[] = {{"UTC", 0}, {"GPS", 1}, {"GLO", 2}, {"BDS", 3}, {"GAL", 4}};

} // namespace ubx::items
