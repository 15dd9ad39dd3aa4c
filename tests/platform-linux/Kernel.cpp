#include "Kernel.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <optional>

#include <fcntl.h>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace kernel
{

namespace
{

// Far above what this program has open.
constexpr int kFirst = 1000;
constexpr int kLast = 1099;

struct Answers
{
    int opened = 0;
    int openError = 0;
    int transferError = 0;
    int interruptions = 0;
    int writeError = 0;
    std::optional<int> messages;
    std::optional<std::size_t> taken;
    std::vector<std::uint8_t> brought;
    std::vector<std::string> calls;
};

Answers& answers()
{
    static Answers all;
    return all;
}

bool isOurs(int file)
{
    return file >= kFirst && file <= kLast;
}

bool startsWith(const std::string& text, const std::string& start)
{
    return text.compare(0, start.size(), start) == 0;
}

bool isOurs(const char* path)
{
    return startsWith(path, "/dev/i2c-") || startsWith(path, "/sys/class/gpio/") || std::string(path) == "/dev/";
}

std::string hex(unsigned int byte)
{
    std::array<char, 3> digits{};
    std::snprintf(digits.data(), digits.size(), "%02X", byte & 0xFFU);
    return digits.data();
}

std::string describe(const i2c_msg& message)
{
    if (message.flags == I2C_M_RD) return "read " + hex(message.addr) + ": " + std::to_string(message.len);
    std::string text = message.flags == 0 ? "write " : "flags " + std::to_string(message.flags) + " ";
    text += hex(message.addr) + ":";
    for (int i = 0; i < message.len; ++i)
        text += " " + hex(message.buf[i]);
    return text;
}

int fail(int error)
{
    errno = error;
    return -1;
}

int open(const char* path, int flags)
{
    Answers& all = answers();
    std::string text = std::string("open ") + path;
    switch (flags & O_ACCMODE) {
    case O_RDWR:
        text += " for reading and writing";
        break;
    case O_WRONLY:
        text += " for writing";
        break;
    default:
        text += " for reading";
    }
    if ((flags & O_CLOEXEC) != 0) text += ", not inherited";
    if ((flags & ~(O_ACCMODE | O_CLOEXEC)) != 0) text += ", more flags";
    if (all.openError != 0) {
        all.calls.push_back(text + " failed");
        return fail(all.openError);
    }
    const int file = kFirst + all.opened++;
    all.calls.push_back(text + " = " + std::to_string(file));
    return file;
}

int transfer(int file, unsigned long request, const i2c_rdwr_ioctl_data& data)
{
    Answers& all = answers();
    std::string text = (request == I2C_RDWR ? "transfer " : "unknown request ") + std::to_string(file) + ":";
    for (unsigned int i = 0; i < data.nmsgs; ++i)
        text += (i == 0 ? " " : "; ") + describe(data.msgs[i]);
    all.calls.push_back(text);
    if (request != I2C_RDWR) return fail(ENOTTY);

    // As a controller does that gives up half-way: it may have put bytes into the buffer by then.
    for (unsigned int i = 0; i < data.nmsgs; ++i) {
        const i2c_msg& message = data.msgs[i];
        if (message.flags != I2C_M_RD) continue;
        const std::size_t brought = std::min<std::size_t>(message.len, all.brought.size());
        std::copy_n(all.brought.begin(), brought, message.buf);
    }
    if (all.interruptions > 0) {
        --all.interruptions;
        return fail(EINTR);
    }
    if (all.transferError != 0) return fail(all.transferError);
    return all.messages.value_or(static_cast<int>(data.nmsgs));
}

ssize_t write(int file, const void* bytes, std::size_t count)
{
    Answers& all = answers();
    all.calls.push_back("write " + std::to_string(file) + " \"" + std::string(static_cast<const char*>(bytes), count) +
                        "\"");
    if (all.writeError != 0) return fail(all.writeError);
    return static_cast<ssize_t>(std::min(count, all.taken.value_or(count)));
}

int close(int file)
{
    answers().calls.push_back("close " + std::to_string(file));
    return 0;
}

} // namespace

void reset()
{
    answers() = Answers();
}

void failOpens(int error)
{
    answers().openError = error;
}

void failTransfers(int error)
{
    answers().transferError = error;
}

void interruptTransfers(int times)
{
    answers().interruptions = times;
}

void failWrites(int error)
{
    answers().writeError = error;
}

void stopTransfersAfter(int messages)
{
    answers().messages = messages;
}

void bring(const std::vector<std::uint8_t>& bytes)
{
    answers().brought = bytes;
}

void takeAtMost(std::size_t bytes)
{
    answers().taken = bytes;
}

std::vector<std::string> calls()
{
    return answers().calls;
}

} // namespace kernel

// These take the place of the C library's in this program.

#define IN_PLACE_OF_THE_C_LIBRARYS extern "C" __attribute__((visibility("default")))

IN_PLACE_OF_THE_C_LIBRARYS int open(const char* path, int flags, ...)
{
    if (kernel::isOurs(path)) return kernel::open(path, flags);
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

IN_PLACE_OF_THE_C_LIBRARYS int ioctl(int file, unsigned long request, ...) noexcept
{
    std::va_list arguments;
    va_start(arguments, request);
    void* const data = va_arg(arguments, void*);
    va_end(arguments);
    if (kernel::isOurs(file)) return kernel::transfer(file, request, *static_cast<i2c_rdwr_ioctl_data*>(data));
    return static_cast<int>(::syscall(SYS_ioctl, file, request, data));
}

IN_PLACE_OF_THE_C_LIBRARYS ssize_t write(int file, const void* bytes, size_t count)
{
    if (kernel::isOurs(file)) return kernel::write(file, bytes, count);
    return static_cast<ssize_t>(::syscall(SYS_write, file, bytes, count));
}

IN_PLACE_OF_THE_C_LIBRARYS int close(int file)
{
    if (kernel::isOurs(file)) return kernel::close(file);
    return static_cast<int>(::syscall(SYS_close, file));
}
