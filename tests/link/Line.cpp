#include "Line.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include "Calls.h"
#include "sandbox/Sandbox.h"

namespace linktest
{

namespace
{

int insistOn(int result, const char* what)
{
    if (result < 0) throw std::system_error(errno, std::generic_category(), what);
    return result;
}

std::size_t unread(int nearEnd)
{
    int count = 0;
    insistOn(::ioctl(nearEnd, FIONREAD, &count), "FIONREAD");
    return static_cast<std::size_t>(count);
}

std::vector<Bytes> pieces(const Bytes& whole, std::size_t size)
{
    std::vector<Bytes> all;
    for (std::size_t at = 0; at < whole.size(); at += size) {
        const auto begin = whole.begin() + static_cast<std::ptrdiff_t>(at);
        all.emplace_back(begin, begin + static_cast<std::ptrdiff_t>(std::min(size, whole.size() - at)));
    }
    return all;
}

void insistOnSoon(const std::function<bool()>& condition, const char* what)
{
    if (!until(condition)) throw std::runtime_error(std::string("waited in vain until ") + what);
}

} // namespace

bool until(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::yield();
    }
    return true;
}

Line::Line()
{
    open();
}

Line::~Line()
{
    close();
    sandbox::removeGps();
    calls::reset();
}

void Line::open()
{
    farEnd_ = insistOn(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC), "posix_openpt");
    insistOn(::grantpt(farEnd_), "grantpt");
    insistOn(::unlockpt(farEnd_), "unlockpt");
    std::array<char, 64> name{};
    insistOn(-::ptsname_r(farEnd_, name.data(), name.size()), "ptsname_r");
    device_ = name.data();
    nearEnd_ = insistOn(::open(name.data(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC), "open");

    termios raw{};
    insistOn(::tcgetattr(nearEnd_, &raw), "tcgetattr");
    ::cfmakeraw(&raw);
    insistOn(::tcsetattr(nearEnd_, TCSANOW, &raw), "tcsetattr");

    calls::watch();
    said_ = 0;
    sandbox::linkGps(device_);
}

void Line::close()
{
    if (nearEnd_ >= 0) ::close(std::exchange(nearEnd_, -1));
    if (farEnd_ >= 0) ::close(std::exchange(farEnd_, -1));
}

void Line::opened()
{
    said_ = calls::bytesRead() + unread(nearEnd_);
}

void Line::say(const Bytes& bytes)
{
    const ssize_t taken = insistOn(static_cast<int>(::write(farEnd_, bytes.data(), bytes.size())), "write");
    if (static_cast<std::size_t>(taken) != bytes.size()) throw std::length_error("more than the line takes at once");
    said_ += bytes.size();
    // In this order: what is read in between must not count twice.
    insistOnSoon(
        [&] {
            const unsigned long read = calls::bytesRead();
            return read + unread(nearEnd_) >= said_;
        },
        "bytes arrived");
}

void Line::sayInPieces(const Bytes& bytes, std::size_t pieceSize)
{
    for (const Bytes& piece : pieces(bytes, pieceSize)) {
        say(piece);
        untilRead();
    }
}

void Line::pour(const Bytes& bytes, std::size_t pieceSize)
{
    for (const Bytes& piece : pieces(bytes, pieceSize)) {
        if (nobodyReads_) return;
        say(piece);
        insistOnSoon([&] { return nobodyReads_ || calls::bytesRead() >= said_; }, "somebody read what was poured");
    }
}

void Line::untilRead()
{
    insistOnSoon([&] { return calls::bytesRead() >= said_; }, "the library had read what was said");
}

void Line::rounds(unsigned long count)
{
    const unsigned long wanted = calls::reads() + count;
    insistOnSoon([&] { return calls::reads() >= wanted; }, "the library had looked at the line");
}

Bytes Line::written(std::size_t count)
{
    Bytes all;
    std::array<unsigned char, 4096> piece{};
    const auto readMore = [&] {
        const ssize_t got = ::read(farEnd_, piece.data(), piece.size());
        if (got > 0) all.insert(all.end(), piece.begin(), piece.begin() + got);
        return got > 0;
    };
    until([&] {
        while (readMore()) {
        }
        return all.size() >= count;
    });
    return all;
}

void Line::hangUp()
{
    close();
}

void Line::comeBack()
{
    open();
}

} // namespace linktest
