#pragma once

#include "simulator/faults/Action.h"

#include <istream>
#include <string>
#include <vector>

namespace ubxsim
{

/// Reads one action as people write it, for example
///
///     late CFG-NAVX5 300ms x1
///     precede MON-VER nmea 6
///     at 20s antenna open
///
/// Throws std::invalid_argument with a text that says what is wrong.
Action parseAction(const std::string& line);

/// Reads a script: an action a line, '#' begins a comment. Errors name the line.
std::vector<Action> parseScript(std::istream& script, const std::string& name);

/// The words and what they mean, for people.
std::string actionHelp();

} // namespace ubxsim
