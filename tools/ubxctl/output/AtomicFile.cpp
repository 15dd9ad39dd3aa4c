#include "output/AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "session/Failure.h"

namespace ubxctl
{

namespace
{

bool writeWhole(int fd, const std::string& text)
{
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t count = ::write(fd, text.data() + done, text.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        done += static_cast<std::size_t>(count);
    }
    return true;
}

mode_t usualMode()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

[[noreturn]] void fail(const std::string& path, int error)
{
    throw Failure(kFile, path + " can't be written: " + std::strerror(error));
}

/// Where a link leads to: a rename would put a file in the link's place.
std::string behindLinks(const std::string& path)
{
    std::error_code unknown;
    if (!std::filesystem::is_symlink(path, unknown)) return path;
    const std::filesystem::path target = std::filesystem::weakly_canonical(path, unknown);
    return unknown ? path : target.string();
}

/// Whether it is a device or a pipe, which nothing may be put in the place of.
bool isDeviceOrPipe(const std::string& path)
{
    struct stat there
    {};
    return ::stat(path.c_str(), &there) == 0 && !S_ISREG(there.st_mode) && !S_ISDIR(there.st_mode);
}

void writeThrough(const std::string& path, const std::string& contents)
{
    const int fd = ::open(path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    const bool good = fd >= 0 && writeWhole(fd, contents);
    const int error = errno;
    if (fd >= 0) ::close(fd);
    if (!good) fail(path, error);
}

} // namespace

void writeAtomically(const std::string& name, const std::string& contents)
{
    if (isDeviceOrPipe(name)) {
        writeThrough(name, contents);
        return;
    }
    const std::string path = behindLinks(name);

    // Beside it, since a rename can't cross file systems; with a dot before and no known ending, so that what collects
    // files of a kind from the directory passes it over.
    const std::size_t slash = path.rfind('/');
    const std::string directory = slash == std::string::npos ? "" : path.substr(0, slash + 1);
    std::string temporary = directory + "." + path.substr(directory.size()) + ".XXXXXX";

    const int fd = ::mkstemp(temporary.data());
    bool good = fd >= 0;
    if (good) {
        good = writeWhole(fd, contents) && ::fchmod(fd, usualMode()) == 0 && ::fsync(fd) == 0;
        good = ::close(fd) == 0 && good;
        good = good && ::rename(temporary.c_str(), path.c_str()) == 0;
    }
    if (good) return;
    const int error = errno;
    if (fd >= 0) ::unlink(temporary.c_str());
    fail(path, error);
}

} // namespace ubxctl
