#include "InterposedLibrary.h"

#include <termios.h>

time_t timeAsALibrarySeesIt()
{
    return time(nullptr);
}

int flushAsALibraryDoes(int fd, int queue)
{
    return tcflush(fd, queue);
}
