#include "bench/instructions/ScriptedLine.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <ctime>

#include <fcntl.h>
#include <sys/syscall.h>
#include <termios.h>
#include <unistd.h>

#define UBX_IN_PLACE_OF_THE_SYSTEMS extern "C" __attribute__((visibility("default")))

namespace
{

constexpr int kLine = 1000; // no descriptor of the system's
constexpr const char* kDevice = "/dev/tty_gps";
constexpr std::time_t kStart = 1'700'000'000;

struct State
{
    std::vector<scriptedline::Bytes> pending;
    std::vector<scriptedline::Bytes> answer;
    bool overAndOver = false;
    std::size_t next = 0;   // of `pending`
    std::size_t offset = 0; // in it
    std::size_t looks = 0;
    std::size_t looksInASecond = 0;
};

State state;

} // namespace

namespace scriptedline
{

void bring(std::vector<Bytes> looks)
{
    state = State{};
    state.pending = std::move(looks);
}

void bringOverAndOver(std::vector<Bytes> looks)
{
    bring(std::move(looks));
    state.overAndOver = true;
}

void answerEveryFrame(std::vector<Bytes> looks)
{
    state = State{};
    state.answer = std::move(looks);
}

void secondEvery(std::size_t looks)
{
    state.looksInASecond = looks;
}

std::size_t looks()
{
    return state.looks;
}

} // namespace scriptedline

UBX_IN_PLACE_OF_THE_SYSTEMS int open(const char* path, int flags, ...)
{
    if (std::strcmp(path, kDevice) == 0) return kLine;
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

UBX_IN_PLACE_OF_THE_SYSTEMS int close(int fd)
{
    return fd == kLine ? 0 : static_cast<int>(::syscall(SYS_close, fd));
}

UBX_IN_PLACE_OF_THE_SYSTEMS ssize_t read(int fd, void* buffer, std::size_t size)
{
    if (fd != kLine) return ::syscall(SYS_read, fd, buffer, size);
    ++state.looks;
    if (state.overAndOver && state.next == state.pending.size()) state.next = 0;
    if (state.next == state.pending.size()) {
        errno = EAGAIN;
        return -1;
    }
    const scriptedline::Bytes& bytes = state.pending[state.next];
    const std::size_t count = std::min(size, bytes.size() - state.offset);
    if (count != 0) std::memcpy(buffer, bytes.data() + state.offset, count);
    state.offset += count;
    if (state.offset == bytes.size()) {
        ++state.next;
        state.offset = 0;
    }
    if (count != 0) return static_cast<ssize_t>(count);
    errno = EAGAIN;
    return -1;
}

UBX_IN_PLACE_OF_THE_SYSTEMS ssize_t write(int fd, const void* buffer, std::size_t size)
{
    if (fd != kLine) return ::syscall(SYS_write, fd, buffer, size);
    if (!state.answer.empty()) {
        state.pending = state.answer;
        state.next = 0;
        state.offset = 0;
    }
    return static_cast<ssize_t>(size);
}

UBX_IN_PLACE_OF_THE_SYSTEMS int fsync(int)
{
    return 0;
}

UBX_IN_PLACE_OF_THE_SYSTEMS int tcgetattr(int, termios* settings) noexcept
{
    *settings = {};
    return 0;
}

UBX_IN_PLACE_OF_THE_SYSTEMS int tcsetattr(int, int, const termios*) noexcept
{
    return 0;
}

UBX_IN_PLACE_OF_THE_SYSTEMS int tcflush(int, int) noexcept
{
    return 0;
}

UBX_IN_PLACE_OF_THE_SYSTEMS std::time_t time(std::time_t* result) noexcept
{
    const std::size_t seconds = state.looksInASecond == 0 ? 0 : state.looks / state.looksInASecond;
    const std::time_t now = kStart + static_cast<std::time_t>(seconds);
    if (result != nullptr) *result = now;
    return now;
}
