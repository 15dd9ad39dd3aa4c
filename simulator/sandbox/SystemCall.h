#pragma once

#include <string>
#include <utility>

#include <unistd.h>

namespace sandbox
{

/// A descriptor that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor()
    {
        if (fd_ >= 0) ::close(fd_);
    }
    Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;

    int get() const { return fd_; }
    bool isOpen() const { return fd_ >= 0; }

    /// A path that leads to the very thing this descriptor was opened on, whatever has been mounted over it since.
    std::string path() const { return "/proc/self/fd/" + std::to_string(fd_); }

private:
    int fd_;
};

/// Throws a std::system_error that says which step was refused, where result is that of a failed system call.
/// Call it as attempt(::call(...), ...): it reads errno, so nothing may come between.
void attempt(int result, const char* step, const std::string& path = {});

/// Opens a place for mounting only: nothing can be read through it, and a device is not touched. Closed when not there.
Descriptor openPlace(const std::string& path, int extraFlags = 0);

/// Shows what lies at source (directory, file or device) at target as well; target must be there.
void bind(const std::string& source, const std::string& target);

/// Puts an empty file system in memory over a directory.
void mountEmpty(const std::string& directory, const char* options);

/// Makes an empty file, or leaves the one that is there.
void makeFile(const std::string& path);

} // namespace sandbox
