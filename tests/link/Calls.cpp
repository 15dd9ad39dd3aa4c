#include "Calls.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstring>
#include <mutex>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/time.h>
#include <termios.h>
#include <unistd.h>

#define UBX_IN_PLACE_OF_THE_SYSTEMS extern "C" __attribute__((visibility("default")))

namespace calls
{

namespace
{

std::atomic<bool> watching{false};
std::atomic<unsigned long> readCount{0};
std::atomic<unsigned long> readBytes{0};
std::atomic<unsigned long> opensToInterrupt{0};
std::atomic<unsigned long> readsToInterrupt{0};

// The device numbers that Linux gives to the near ends of pseudo terminals.
constexpr unsigned kFirstMajor = 136;
constexpr unsigned kLastMajor = 143;

std::mutex mutex;
std::vector<std::string> done;
std::vector<std::string> withSignals;
Refusals refusals;
std::optional<long> microseconds;

bool isWatched(int fd)
{
    if (!watching) return false;
    const int before = errno;
    struct stat status
    {};
    const bool isTerminal = ::fstat(fd, &status) == 0 && S_ISCHR(status.st_mode) &&
                            major(status.st_rdev) >= kFirstMajor && major(status.st_rdev) <= kLastMajor;
    errno = before;
    return isTerminal;
}

void note(std::string call)
{
    const std::lock_guard lock(mutex);
    done.push_back(std::move(call));
}

void noteSignals(const char* call)
{
    const int before = errno;
    sigset_t mask;
    ::pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    const bool held = ::sigismember(&mask, SIGALRM) == 1 && ::sigismember(&mask, SIGTERM) == 1;
    errno = before;
    const std::lock_guard lock(mutex);
    withSignals.push_back(std::string(call) + (held ? " held" : " open to signals"));
}

/// Whether this call is one of those.
bool isInterrupted(std::atomic<unsigned long>& left)
{
    if (left == 0) return false;
    --left;
    return true;
}

Refusals present()
{
    const std::lock_guard lock(mutex);
    return refusals;
}

/// The function that would have been called without this program's own.
template <typename Function>
Function* systems(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

int fail(int reason)
{
    errno = reason;
    return -1;
}

} // namespace

void watch()
{
    const std::lock_guard lock(mutex);
    watching = true;
    readCount = 0;
    readBytes = 0;
    done.clear();
    withSignals.clear();
}

unsigned long reads()
{
    return readCount;
}

unsigned long bytesRead()
{
    return readBytes;
}

std::vector<std::string> log()
{
    const std::lock_guard lock(mutex);
    return done;
}

void clearLog()
{
    const std::lock_guard lock(mutex);
    done.clear();
}

std::vector<std::string> signalLog()
{
    const std::lock_guard lock(mutex);
    return withSignals;
}

void interruptOpens(unsigned long times)
{
    opensToInterrupt = times;
}

void interruptReads(unsigned long times)
{
    readsToInterrupt = times;
}

void refuse(const Refusals& wanted)
{
    const std::lock_guard lock(mutex);
    refusals = wanted;
}

void setMicroseconds(std::optional<long> wanted)
{
    const std::lock_guard lock(mutex);
    microseconds = wanted;
}

void reset()
{
    watching = false;
    interruptOpens(0);
    interruptReads(0);
    refuse({});
    setMicroseconds({});
}

} // namespace calls

UBX_IN_PLACE_OF_THE_SYSTEMS int open(const char* path, int flags, ...)
{
    static auto* const original = calls::systems<int(const char*, int, ...)>("open");
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    if (calls::watching && std::strcmp(path, "/dev/tty_gps") == 0) {
        calls::noteSignals("open");
        if (calls::isInterrupted(calls::opensToInterrupt)) return calls::fail(EINTR);
    }
    return original(path, flags, mode);
}

UBX_IN_PLACE_OF_THE_SYSTEMS int close(int fd)
{
    static auto* const original = calls::systems<int(int)>("close");
    if (calls::isWatched(fd)) calls::noteSignals("close");
    return original(fd);
}

UBX_IN_PLACE_OF_THE_SYSTEMS ssize_t read(int fd, void* buffer, std::size_t size)
{
    static auto* const original = calls::systems<ssize_t(int, void*, std::size_t)>("read");
    const bool isWatched = calls::isWatched(fd);
    const bool interrupted = isWatched && calls::isInterrupted(calls::readsToInterrupt);
    const ssize_t count = interrupted ? calls::fail(EINTR) : original(fd, buffer, size);
    if (isWatched) {
        if (count > 0) calls::readBytes += static_cast<unsigned long>(count);
        ++calls::readCount;
    }
    return count;
}

UBX_IN_PLACE_OF_THE_SYSTEMS ssize_t write(int fd, const void* buffer, std::size_t size)
{
    static auto* const original = calls::systems<ssize_t(int, const void*, std::size_t)>("write");
    if (!calls::isWatched(fd)) return original(fd, buffer, size);
    calls::note("write " + std::to_string(size));
    calls::noteSignals("write");
    const calls::Refusals refusals = calls::present();
    if (refusals.write != 0) return calls::fail(refusals.write);
    return original(fd, buffer, std::min(size, refusals.writeAtMost.value_or(size)));
}

UBX_IN_PLACE_OF_THE_SYSTEMS int fsync(int fd)
{
    static auto* const original = calls::systems<int(int)>("fsync");
    if (!calls::isWatched(fd)) return original(fd);
    calls::note("fsync");
    const int reason = calls::present().fsync;
    return reason != 0 ? calls::fail(reason) : original(fd);
}

UBX_IN_PLACE_OF_THE_SYSTEMS int tcgetattr(int fd, termios* settings) noexcept
{
    static auto* const original = calls::systems<int(int, termios*)>("tcgetattr");
    const int reason = calls::isWatched(fd) ? calls::present().tcgetattr : 0;
    return reason != 0 ? calls::fail(reason) : original(fd, settings);
}

UBX_IN_PLACE_OF_THE_SYSTEMS int tcsetattr(int fd, int when, const termios* settings) noexcept
{
    static auto* const original = calls::systems<int(int, int, const termios*)>("tcsetattr");
    if (!calls::isWatched(fd)) return original(fd, when, settings);
    calls::note(when == TCSANOW ? "tcsetattr now" : "tcsetattr later");
    const int reason = calls::present().tcsetattr;
    return reason != 0 ? calls::fail(reason) : original(fd, when, settings);
}

UBX_IN_PLACE_OF_THE_SYSTEMS int gettimeofday(timeval* now, void* zone) noexcept
{
    static auto* const original = calls::systems<int(timeval*, void*)>("gettimeofday");
    const int result = original(now, zone);
    const std::lock_guard lock(calls::mutex);
    if (calls::microseconds) now->tv_usec = *calls::microseconds;
    return result;
}
