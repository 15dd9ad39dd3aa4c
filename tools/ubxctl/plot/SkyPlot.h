#pragma once

#include <string>
#include <vector>

#include "messages/Navigation.h"

namespace ubxctl
{

/// A map of the sky and a chart of the signals, as an SVG picture.
/// @param time      UTC, for the title; may be empty.
/// @param receiver  the model, for the title.
std::string skyPlot(const std::vector<Satellite>& satellites, const std::string& time, const std::string& receiver);

} // namespace ubxctl
