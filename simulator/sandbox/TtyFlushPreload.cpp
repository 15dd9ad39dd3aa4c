// Loaded before the C library into every command of a sandbox.

#include <termios.h>

#include "TtyFlush.h"

extern "C" __attribute__((visibility("default"))) int tcflush(int fd, int queue) noexcept
{
    return sandbox::flushLikeRealPort(fd, queue);
}
