#include <ubloxChipInfo.h>

#include <utility>

#include <fcntl.h>
#include <unistd.h>

std::string ubloxChipInfo::sChipName;
std::string ubloxChipInfo::sHwVer;
std::string ubloxChipInfo::sSwVer;
std::string ubloxChipInfo::sProtVer;
std::string ubloxChipInfo::sModeName;

void ubloxChipInfo::setUbloxChipName(std::string name)
{
    sChipName = std::move(name);
}

void ubloxChipInfo::setUbloxHwVer(std::string version)
{
    sHwVer = std::move(version);
}

void ubloxChipInfo::setUbloxSwVer(std::string version)
{
    sSwVer = std::move(version);
}

void ubloxChipInfo::setUbloxProtVer(std::string version)
{
    sProtVer = std::move(version);
}

void ubloxChipInfo::setUbloxModeName(std::string name)
{
    sModeName = std::move(name);
}

std::string ubloxChipInfo::getUbloxChipName()
{
    return sChipName;
}

std::string ubloxChipInfo::getUbloxHwVer()
{
    return sHwVer;
}

std::string ubloxChipInfo::getUbloxSwVer()
{
    return sSwVer;
}

std::string ubloxChipInfo::getUbloxProtVer()
{
    return sProtVer;
}

std::string ubloxChipInfo::getUbloxModeName()
{
    return sModeName;
}

int ubloxChipInfo::getUbloxInterfaceInfo()
{
    for (const char* const node : {"/dev/usb-ublox-f9t", "/dev/usb-ublox-m8t"}) {
        const int fd = open(node, O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        if (fd < 0) continue;
        close(fd);
        return 0;
    }
    return 1;
}
