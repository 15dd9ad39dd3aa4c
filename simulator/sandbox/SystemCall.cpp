#include "SystemCall.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/mount.h>

namespace sandbox
{

void attempt(int result, const char* step, const std::string& path)
{
    if (result >= 0) return;
    const int reason = errno;
    throw std::system_error(reason, std::generic_category(), path.empty() ? step : step + (" " + path));
}

Descriptor openPlace(const std::string& path, int extraFlags)
{
    return Descriptor(::open(path.c_str(), O_PATH | O_CLOEXEC | extraFlags));
}

void bind(const std::string& source, const std::string& target)
{
    // Whole trees, since a mount below the source that belongs to another owner may not be left out.
    attempt(::mount(source.c_str(), target.c_str(), "none", MS_BIND | MS_REC, nullptr), "bind", target);
}

void mountEmpty(const std::string& directory, const char* options)
{
    attempt(::mount("tmpfs", directory.c_str(), "tmpfs", MS_NOSUID, options), "mount tmpfs on", directory);
}

void makeFile(const std::string& path)
{
    const Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0644));
    attempt(file.get(), "create", path);
}

} // namespace sandbox
