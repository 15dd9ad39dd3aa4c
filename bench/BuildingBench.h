#pragma once

#include <vector>

#include "bench/table/Table.h"

namespace bench
{

/// Setting bytes of messages, and looking names up. @return the lines of the table.
std::vector<Line> building(const Effort& effort);

} // namespace bench
