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
    termios original_{};
    bool keyboard_; // behind the settings, which are read along with it
};

} // namespace ubxctl
