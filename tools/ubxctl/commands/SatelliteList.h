#pragma once

#include <string>

#include "output/Report.h"

namespace ubxctl
{

/// Adds the library's satellite report: lines of number, system, use, quality and C/N0, with tabs between.
void addSatelliteTable(Report& report, const std::string& lines);

} // namespace ubxctl
