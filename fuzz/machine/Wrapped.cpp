// The C library's functions as the code under test finds them: the linker replaces foo by __wrap_foo and offers the
// real one as __real_foo. See wrapped_functions in fuzz/CMakeLists.txt.

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include "machine/Machine.h"

namespace
{

// Descriptors that no process has.
constexpr int kPort = 1 << 20;
constexpr int kChipInfo = kPort + 1;

constexpr std::string_view kPortPath = "/dev/tty_gps";
constexpr std::string_view kChipInfoPath = "/tmp/ubloxChip-info.txt";
constexpr std::string_view kUsbNodes = "/dev/usb-ublox-";
constexpr std::string_view kLogs = "/var/log/";

constexpr std::time_t kLongerThanAnyLimit = 60;

bool startsWith(std::string_view text, std::string_view beginning)
{
    return text.substr(0, beginning.size()) == beginning;
}

bool isOurs(int fd)
{
    return fd == kPort || fd == kChipInfo;
}

int opened(int fd)
{
    ++fuzz::machine().openDescriptors;
    return fd;
}

int refused(int error)
{
    errno = error;
    return -1;
}

const char* logOrNowhere(const char* path)
{
    return startsWith(path, kLogs) ? "/dev/null" : path;
}

} // namespace

extern "C" {

int __real_open(const char* path, int flags, ...);
int __real_close(int fd);
ssize_t __real_read(int fd, void* buffer, size_t size);
ssize_t __real_write(int fd, const void* data, size_t size);
int __real_fsync(int fd);
int __real_tcgetattr(int fd, termios* settings);
int __real_tcsetattr(int fd, int when, const termios* settings);
int __real_tcflush(int fd, int queue);
int __real_stat(const char* path, struct stat* info);
int __real_unlink(const char* path);
FILE* __real_fopen(const char* path, const char* mode);
FILE* __real_fopen64(const char* path, const char* mode);

int __wrap_open(const char* path, int flags, ...);
int __wrap_close(int fd);
ssize_t __wrap_read(int fd, void* buffer, size_t size);
ssize_t __wrap_write(int fd, const void* data, size_t size);
int __wrap_fsync(int fd);
int __wrap_tcgetattr(int fd, termios* settings);
int __wrap_tcsetattr(int fd, int when, const termios* settings);
int __wrap_tcflush(int fd, int queue);
int __wrap_stat(const char* path, struct stat* info);
int __wrap_unlink(const char* path);
FILE* __wrap_fopen(const char* path, const char* mode);
FILE* __wrap_fopen64(const char* path, const char* mode);
std::time_t __wrap_time(std::time_t* result);

int __wrap_open(const char* path, int flags, ...)
{
    if (path == kPortPath) return opened(kPort);
    if (path == kChipInfoPath) {
        fuzz::Machine& machine = fuzz::machine();
        if (machine.chipInfoIsThere && (flags & O_EXCL) != 0) return refused(EEXIST);
        machine.chipInfoIsThere = true;
        return opened(kChipInfo);
    }
    if (startsWith(path, kUsbNodes)) return refused(ENOENT);
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = static_cast<mode_t>((flags & O_CREAT) != 0 ? va_arg(arguments, int) : 0);
    va_end(arguments);
    return __real_open(path, flags, mode);
}

int __wrap_close(int fd)
{
    if (!isOurs(fd)) return __real_close(fd);
    fuzz::require(fuzz::machine().openDescriptors != 0, "a descriptor was closed twice");
    --fuzz::machine().openDescriptors;
    return 0;
}

ssize_t __wrap_read(int fd, void* buffer, size_t size)
{
    if (fd != kPort) return __real_read(fd, buffer, size);
    fuzz::Machine& machine = fuzz::machine();
    const std::size_t count = std::min({size, machine.bytesPerRead, machine.incoming.size()});
    if (count == 0) {
        machine.now += kLongerThanAnyLimit;
        return refused(EAGAIN);
    }
    const auto end = machine.incoming.begin() + static_cast<std::ptrdiff_t>(count);
    std::copy(machine.incoming.begin(), end, static_cast<std::uint8_t*>(buffer));
    machine.incoming.erase(machine.incoming.begin(), end);
    return static_cast<ssize_t>(count);
}

ssize_t __wrap_write(int fd, const void* data, size_t size)
{
    const auto* const bytes = static_cast<const std::uint8_t*>(data);
    if (fd == kPort) {
        if (fuzz::machine().onWrite) fuzz::machine().onWrite(fuzz::Bytes(bytes, bytes + size));
    } else if (fd == kChipInfo) {
        fuzz::machine().chipInfo.append(static_cast<const char*>(data), size);
    } else {
        return __real_write(fd, data, size);
    }
    return static_cast<ssize_t>(size);
}

int __wrap_fsync(int fd)
{
    return isOurs(fd) ? 0 : __real_fsync(fd);
}

int __wrap_tcgetattr(int fd, termios* settings)
{
    if (fd != kPort) return __real_tcgetattr(fd, settings);
    std::memset(settings, 0, sizeof *settings);
    return 0;
}

int __wrap_tcsetattr(int fd, int when, const termios* settings)
{
    return fd == kPort ? 0 : __real_tcsetattr(fd, when, settings);
}

int __wrap_tcflush(int fd, int queue)
{
    if (fd != kPort) return __real_tcflush(fd, queue);
    if (queue != TCOFLUSH) fuzz::machine().incoming.clear();
    return 0;
}

int __wrap_stat(const char* path, struct stat* info)
{
    if (path != kChipInfoPath) return __real_stat(path, info);
    std::memset(info, 0, sizeof *info);
    return fuzz::machine().chipInfoIsThere ? 0 : refused(ENOENT);
}

int __wrap_unlink(const char* path)
{
    if (path != kChipInfoPath) return __real_unlink(path);
    fuzz::machine().chipInfoIsThere = false;
    return 0;
}

FILE* __wrap_fopen(const char* path, const char* mode)
{
    return __real_fopen(logOrNowhere(path), mode);
}

FILE* __wrap_fopen64(const char* path, const char* mode)
{
    return __real_fopen64(logOrNowhere(path), mode);
}

std::time_t __wrap_time(std::time_t* result)
{
    if (result != nullptr) *result = fuzz::machine().now;
    return fuzz::machine().now;
}

} // extern "C"
