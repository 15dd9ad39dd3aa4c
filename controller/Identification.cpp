#include <cerrno>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ubloxChipInfo.h>
#include <ubxController_NEOM8T.h>
#include <ubxController_ZEDF9T.h>

#include "controller/FacadeParts.h"

namespace
{

constexpr std::string_view kZedF9tHardware = "00190000";
constexpr std::string_view kNeoM8tHardware = "00080000";

constexpr const char* kChipInfoFile = "/tmp/ubloxChip-info.txt";

bool startsWith(const std::string& text, std::string_view beginning)
{
    return text.compare(0, beginning.size(), beginning) == 0;
}

bool writeWhole(int fd, const std::string& text)
{
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t count = write(fd, text.data() + done, text.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        done += static_cast<std::size_t>(count);
    }
    return true;
}

} // namespace

const char* ubxController::Parts::chipName() const
{
    return hardwareVersion == kZedF9tHardware ? "ZEDF9T" : "NEOM8T";
}

int ubxController::parserGnssChipInfo(std::string& info)
{
    constexpr std::string_view kSeparator = ": ";

    std::size_t start = 0;
    for (std::size_t end = info.find(kSeparator); end != std::string::npos; end = info.find(kSeparator, start)) {
        const std::string field = info.substr(start, end - start);
        if (isVersionValid(field)) {
            parts_->hardwareVersion = field;
        } else if (startsWith(field, "FWVER")) {
            parts_->firmwareVersion = field;
        } else if (startsWith(field, "PROT")) {
            parts_->protocolVersion = field;
        } else if (startsWith(field, "MOD")) {
            parts_->moduleName = field;
        }
        start = end + kSeparator.size();
    }
    info.erase(0, start); // what follows the last separator stays, unread

    // Off with "FWVER=", "PROTVER=" and "MOD=". Once more at every call, on purpose, whether or not a field was found.
    parts_->firmwareVersion.erase(0, 6);
    parts_->protocolVersion.erase(0, 8);
    parts_->moduleName.erase(0, 4);
    return 0;
}

bool ubxController::isVersionValid(std::string hardwareVersion)
{
    return hardwareVersion == kZedF9tHardware || hardwareVersion == kNeoM8tHardware;
}

bool ubxController::isZedF9t()
{
    return parts_->hardwareVersion == kZedF9tHardware;
}

bool ubxController::isNeoM8t()
{
    return parts_->hardwareVersion == kNeoM8tHardware;
}

std::string ubxController::getZedF9t()
{
    return std::string(kZedF9tHardware);
}

std::string ubxController::getNeoM8t()
{
    return std::string(kNeoM8tHardware);
}

void ubxController::checkUbloxCheckId()
{
    std::string info;
    getDefaultInfo(info);
    parserGnssChipInfo(info);

    if (isZedF9t()) {
        parts_->model = std::make_shared<ubxController_ZEDF9T>(parts_->firmwareVersion, true);
    } else {
        parts_->model = std::make_shared<ubxController_NEOM8T>();
    }
    saveUbloxChipInfo();
}

void ubxController::saveUbloxChipInfo()
{
    struct stat present
    {};
    if (stat(kChipInfoFile, &present) == 0) return;

    ubloxChipInfo::setUbloxChipName(parts_->chipName());

    // The folder is open to all: a link left there by somebody else is not followed.
    const int fd = open(kChipInfoFile, O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (fd < 0) return;
    bool whole = true;
    for (const std::string& line :
         {std::string("UBLOX_Chip=") + parts_->chipName(), "UBLOX_HwVer=" + parts_->hardwareVersion,
          "UBLOX_SwVer=" + parts_->firmwareVersion, "UBLOX_ProtVer=" + parts_->protocolVersion,
          "UBLOX_ModName=" + parts_->moduleName}) {
        whole = whole && writeWhole(fd, line + '\n');
    }
    close(fd);
    // A file that exists is never written again: half a one, on a full disk, would stay so.
    if (!whole) unlink(kChipInfoFile);
}
