#pragma once

#include <string>
#include <vector>

#include "monitor/Snapshot.h"
#include "output/Console.h"

namespace ubxctl
{

/// How a terminal wants it.
struct ScreenStyle
{
    Console::Size size;
    bool colours;
    bool blocks;        ///< Whether it can show the bars as block characters.
    bool stays = false; ///< Whether the picture stays until a key is pressed.
};

/// The lines of the monitor, at most as many and as wide as the terminal has room for.
std::vector<std::string> monitorScreen(const Identity& identity, const Snapshot& snapshot, const ScreenStyle& style);

/// A bar for one satellite: a block character, or a digit of tens of dBHz.
std::string signalBar(int signal, bool blocks);

} // namespace ubxctl
