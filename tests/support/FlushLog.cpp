#include "FlushLog.h"

#include <mutex>

#include <termios.h>

#include "sandbox/TtyFlush.h"

namespace flushlog
{

namespace
{

std::mutex mutex;
std::vector<int> selectors;

void note(int queue)
{
    const std::lock_guard lock(mutex);
    selectors.push_back(queue);
}

} // namespace

std::vector<int> asked()
{
    const std::lock_guard lock(mutex);
    return selectors;
}

void clear()
{
    const std::lock_guard lock(mutex);
    selectors.clear();
}

} // namespace flushlog

// Takes the place of the C library's in this program and in the shared libraries that it uses.
extern "C" __attribute__((visibility("default"))) int tcflush(int fd, int queue) noexcept
{
    flushlog::note(queue);
    return sandbox::flushLikeRealPort(fd, queue);
}
