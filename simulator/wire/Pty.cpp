#include "simulator/wire/Pty.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <system_error>
#include <termios.h>

namespace ubxsim
{

namespace
{

// What the kernel's line discipline keeps for a reader; beyond it bytes would pile up where a flush does not reach.
constexpr std::size_t kInputBufferSize = 4095;

// How long filling the line may take at most on a busy machine.
constexpr std::chrono::milliseconds kStuffingPatience{200};

// Bytes that wait to be read from this end; a line that does not tell counts as full.
std::size_t unread(int end)
{
    int count = 0;
    return ::ioctl(end, FIONREAD, &count) == 0 && count >= 0 ? static_cast<std::size_t>(count) : kInputBufferSize;
}

[[noreturn]] void fail(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

} // namespace

void Pty::open()
{
    close();
    Descriptor master(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!master.valid()) {
        fail("cannot open a pseudo terminal (/dev/ptmx)");
    }
    std::array<char, 64> name{};
    if (::grantpt(master.get()) != 0 || ::unlockpt(master.get()) != 0 ||
        ::ptsname_r(master.get(), name.data(), name.size()) != 0) {
        fail("cannot set up the pseudo terminal");
    }
    Descriptor slave(::ioctl(master.get(), TIOCGPTPEER, O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!slave.valid()) {
        fail("cannot open the far end of the pseudo terminal");
    }
    termios attributes{};
    if (::tcgetattr(slave.get(), &attributes) != 0) {
        fail("cannot read the terminal settings of the pseudo terminal");
    }
    // Raw from the start: an echo would come back to the simulator as input.
    ::cfmakeraw(&attributes);
    if (::tcsetattr(slave.get(), TCSANOW, &attributes) != 0) {
        fail("cannot set the pseudo terminal to raw mode");
    }
    master_ = std::move(master);
    slave_ = std::move(slave);
    path_ = name.data();
    stuffed_ = 0;
}

void Pty::close()
{
    slave_.reset();
    master_.reset();
}

std::size_t Pty::room() const
{
    return slave_.valid() ? kInputBufferSize - std::min(kInputBufferSize, unread(slave_.get())) : 0;
}

std::size_t Pty::write(const std::uint8_t* data, std::size_t size)
{
    if (!master_.valid()) {
        return 0;
    }
    const ssize_t written = ::write(master_.get(), data, size);
    return written > 0 ? static_cast<std::size_t>(written) : 0;
}

std::size_t Pty::read(std::uint8_t* data, std::size_t size)
{
    if (!master_.valid()) {
        return 0;
    }
    const ssize_t count = ::read(master_.get(), data, size);
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void Pty::stuffInput()
{
    if (!slave_.valid()) {
        return;
    }
    // What is written reaches the reader's buffer a little later and leaves room behind: full is full when that
    // buffer was full before.
    const auto end = std::chrono::steady_clock::now() + kStuffingPatience;
    bool wasFull = false;
    do {
        wasFull = unread(master_.get()) >= kInputBufferSize;
    } while ((stuffOnce() > 0 || !wasFull) && std::chrono::steady_clock::now() < end);
}

std::size_t Pty::stuffOnce()
{
    const std::size_t before = stuffed_;
    const std::array<std::uint8_t, 256> zeros{};
    for (std::size_t size = zeros.size(); size > 0; size /= 2) {
        ssize_t written = 0;
        while ((written = ::write(slave_.get(), zeros.data(), size)) > 0) {
            stuffed_ += static_cast<std::size_t>(written);
        }
    }
    return stuffed_ - before;
}

Bytes Pty::removeStuffing()
{
    Bytes rest;
    std::array<std::uint8_t, 1024> buffer{};
    while (stuffed_ > 0) {
        const std::size_t count = read(buffer.data(), std::min(buffer.size(), stuffed_));
        if (count == 0) {
            break;
        }
        // A flush by the host may have removed part of the stuffing; a frame never begins with a zero byte.
        const auto end = buffer.begin() + static_cast<std::ptrdiff_t>(count);
        const auto first = std::find_if(buffer.begin(), end, [](std::uint8_t value) { return value != 0; });
        stuffed_ -= count;
        if (first != end) {
            rest.assign(first, end);
            break;
        }
    }
    stuffed_ = 0;
    return rest;
}

} // namespace ubxsim
