#include "output/Console.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <unistd.h>

#include "session/Failure.h"

namespace ubxctl
{

namespace
{

bool writeWhole(int fd, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t count = ::write(fd, text.data(), text.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

void flushStreams()
{
    std::cout.flush();
    std::cerr.flush();
    std::fflush(stdout);
    std::fflush(stderr);
}

int duplicate(int fd)
{
    return ::fcntl(fd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
}

/// A stream that is closed gets a stand-in. What is opened later, the receiver's port among it, would take its number,
/// and the library would print into that.
void standInForClosedStreams()
{
    int fd = 0;
    while (fd >= 0 && fd <= STDERR_FILENO)
        fd = ::open("/dev/null", O_RDWR);
    if (fd >= 0) ::close(fd);
}

bool wantsColours()
{
    const char* refused = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    return (refused == nullptr || *refused == '\0') && terminal != nullptr && std::strcmp(terminal, "dumb") != 0;
}

} // namespace

Console::Console(bool verbose)
    : verbose_(verbose),
      output_(duplicate(STDOUT_FILENO)),
      errors_(duplicate(STDERR_FILENO)),
      isTerminal_(::isatty(STDOUT_FILENO) == 1),
      hasColours_(isTerminal_ && wantsColours())
{
    flushStreams();
    standInForClosedStreams();
    aside_ = ::memfd_create("ubxctl", MFD_CLOEXEC);
    if (aside_ >= 0) ::dup2(aside_, STDOUT_FILENO);
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (!verbose_ && nowhere >= 0) ::dup2(nowhere, STDERR_FILENO);
    if (nowhere >= 0) ::close(nowhere);
}

Console::~Console()
{
    if (verbose_) takeLibraryOutput();
    flushStreams();
    for (const auto& [mine, original] : {std::pair(output_, STDOUT_FILENO), std::pair(errors_, STDERR_FILENO)}) {
        if (mine < 0) continue; // it was closed when we started
        ::dup2(mine, original);
        ::close(mine);
    }
    if (aside_ >= 0) ::close(aside_);
}

void Console::write(std::string_view text)
{
    if (!writeWhole(output_, text)) {
        throw Failure(kFile, std::string("standard output can't be written: ") + std::strerror(errno));
    }
}

void Console::complain(std::string_view line)
{
    // What was typed or read from a file may be part of it: a terminal must not obey that.
    std::string shown(line);
    for (char& character : shown) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte == 0x7F) character = ' ';
    }
    writeWhole(errors_, shown + "\n"); // there is nobody left to tell when that fails
}

Console::Size Console::size() const
{
    winsize window{};
    if (::ioctl(output_, TIOCGWINSZ, &window) != 0 || window.ws_col == 0 || window.ws_row == 0) return {80, 24};
    return {window.ws_col, window.ws_row};
}

std::string Console::takeLibraryOutput()
{
    flushStreams();
    std::string text;
    std::array<char, 4096> piece;
    ssize_t count = 0;
    ::off_t position = 0;
    while ((count = ::pread(aside_, piece.data(), piece.size(), position)) > 0) {
        text.append(piece.data(), static_cast<std::size_t>(count));
        position += count;
    }
    if (position > 0 && ::ftruncate(aside_, 0) == 0) ::lseek(aside_, 0, SEEK_SET);
    if (verbose_) writeWhole(errors_, text);
    return text;
}

} // namespace ubxctl
