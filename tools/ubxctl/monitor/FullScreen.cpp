#include "monitor/FullScreen.h"

#include <poll.h>
#include <unistd.h>

namespace ubxctl
{

FullScreen::FullScreen(Console& console)
    : console_(console), keyboard_(::isatty(STDIN_FILENO) == 1 && ::tcgetattr(STDIN_FILENO, &original_) == 0)
{
    if (keyboard_) {
        termios keys = original_;
        keys.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
        // Stopped or quit by a key, it could not put the terminal right.
        keys.c_cc[VSUSP] = _POSIX_VDISABLE;
        keys.c_cc[VQUIT] = _POSIX_VDISABLE;
        ::tcsetattr(STDIN_FILENO, TCSANOW, &keys);
    }
    console_.write("\x1b[?1049h\x1b[?25l\x1b[2J"); // the other screen, without a cursor
}

FullScreen::~FullScreen()
{
    try {
        console_.write("\x1b[?25h\x1b[?1049l");
    } catch (...) {
        // The terminal is gone; there is nothing to put right.
    }
    if (keyboard_) ::tcsetattr(STDIN_FILENO, TCSANOW, &original_);
}

void FullScreen::show(const std::vector<std::string>& lines)
{
    std::string picture = "\x1b[H";
    for (std::size_t i = 0; i < lines.size(); ++i)
        picture += lines[i] + "\x1b[K" + (i + 1 < lines.size() ? "\r\n" : "");
    console_.write(picture + "\x1b[J");
}

bool FullScreen::wantsToEnd()
{
    if (!keyboard_) return false;
    pollfd keys{STDIN_FILENO, POLLIN, 0};
    while (::poll(&keys, 1, 0) == 1) {
        char key = 0;
        if (::read(STDIN_FILENO, &key, 1) != 1) return true; // the terminal is gone
        if (key == 'q' || key == 'Q') return true;
    }
    return false;
}

} // namespace ubxctl
