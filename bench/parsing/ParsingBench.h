#pragma once

#include <vector>

#include "bench/table/Table.h"

namespace bench
{

/// Parsing whole streams, in pieces of any size, and into lists that are full already. @return the lines of the table.
std::vector<Line> parsing(const Effort& effort);

} // namespace bench
