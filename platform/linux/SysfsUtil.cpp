#include "SysfsUtil.h"

#include <string>

#include <fcntl.h>
#include <unistd.h>

SysfsUtil::SysfsUtil() = default;

SysfsUtil::~SysfsUtil() = default;

int SysfsUtil::setGpioValue(int gpio, bool value)
{
    // Whoever sets up the board exports the GPIO and makes it an output: there is no value file before that.
    const std::string path = "/sys/class/gpio/gpio" + std::to_string(gpio) + "/value";
    const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (file < 0) return -1;
    const bool written = ::write(file, value ? "1" : "0", 1) == 1;
    ::close(file);
    return written ? 0 : -1;
}
