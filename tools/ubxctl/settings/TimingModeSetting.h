#pragma once

#include "settings/Setting.h"

namespace ubxctl
{

/// Timing mode with all that belongs to it, from CFG-TMODE2 or from the items.
Reading getTimingMode(Receiver& receiver);
int setTimingMode(Receiver& receiver, const Value& value);

} // namespace ubxctl
