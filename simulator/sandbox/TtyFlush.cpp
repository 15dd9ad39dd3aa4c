#include "TtyFlush.h"

#include <sys/ioctl.h>
#include <termios.h>

namespace sandbox
{

int flushLikeRealPort(int fd, int queue) noexcept
{
    if (queue == TCIOFLUSH) return ::ioctl(fd, TCFLSH, TCIFLUSH);
    if (queue != TCOFLUSH) return ::ioctl(fd, TCFLSH, queue);

    termios unused{};
    return ::tcgetattr(fd, &unused); // Nothing to do, but what is no terminal is refused as ever.
}

} // namespace sandbox
