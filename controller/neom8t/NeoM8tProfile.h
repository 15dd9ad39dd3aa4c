#pragma once

#include "controller/legacy/LegacyProfile.h"

namespace ubx
{

extern const LegacyProfile kNeoM8tProfile;

} // namespace ubx
