#pragma once

#include <vector>

#include "bench/table/Table.h"

namespace bench
{

/// Exchanges with a receiver that answers at once, and start-up. To be called inside a sandbox.
/// @return the lines of the table.
std::vector<Line> exchanges(const Effort& effort);

} // namespace bench
