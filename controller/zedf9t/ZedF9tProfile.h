#pragma once

#include "controller/legacy/LegacyProfile.h"

namespace ubx
{

extern const LegacyProfile kZedF9tProfile;

} // namespace ubx
