#pragma once

#include <string>
#include <vector>

#include <termios.h>

#include "output/Console.h"

namespace ubxctl
{

/// Takes over the terminal and leaves it as it was, whatever way the monitor ends.
class FullScreen
{
public:
    explicit FullScreen(Console& console);
    ~FullScreen();
    FullScreen(const FullScreen&) = delete;
    FullScreen& operator=(const FullScreen&) = delete;

    void show(const std::vector<std::string>& lines);

    /// Whether the operator has typed q since the last call.
    bool wantsToEnd();

private:
    Console& console_;
    bool keyboard_;
    termios original_{};
};

} // namespace ubxctl
