#include "session/Device.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "session/Failure.h"

namespace fs = std::filesystem;

namespace ubxctl
{

namespace
{

constexpr auto kPause = std::chrono::milliseconds(50);
constexpr const char* kUnknown = "unknown";

std::string commandOf(pid_t pid)
{
    std::ifstream file("/proc/" + std::to_string(pid) + "/cmdline", std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    while (!text.empty() && text.back() == '\0')
        text.pop_back();
    // Whatever a process calls itself stays one line.
    for (char& character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte == 0x7F) character = ' ';
    }
    return text.empty() ? kUnknown : text;
}

std::string whyNotOpen()
{
    const std::string path = kDevicePath;
    switch (errno) {
    case ENOENT:
        return path + " is not there: is the receiver fitted and its device rule installed? try: ubxctl doctor";
    case EACCES:
    case EPERM:
        return path + " may not be opened by this user: try with sudo, or join the group of the device";
    case ENXIO:
    case ENODEV:
    case EIO:
        return path + " is there, but nothing is behind it: is the receiver powered? try: ubxctl doctor";
    default:
        return path + " can't be opened: " + std::strerror(errno) + "; try: ubxctl doctor";
    }
}

/// Who has the other end of a pseudo terminal is the receiver, or stands in for it.
bool isOtherEnd(const fs::path& descriptor)
{
    std::error_code gone;
    return fs::read_symlink(descriptor, gone).filename() == "ptmx";
}

bool isSame(const struct stat& one, const struct stat& other)
{
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

} // namespace

std::string DeviceUser::description() const
{
    return "process " + std::to_string(pid) + " (" + command + ")";
}

std::vector<DeviceUser> claimants(const struct stat& device)
{
    // "1: FLOCK  ADVISORY  WRITE 1234 00:16:5 0 EOF": numbers of the file system in hexadecimal, then the inode.
    std::vector<DeviceUser> users;
    std::ifstream locks("/proc/locks");
    for (std::string line; std::getline(locks, line);) {
        std::istringstream words(line);
        std::string number, kind, advisory, access, file;
        pid_t pid = 0;
        words >> number >> kind >> advisory >> access >> pid >> file;
        unsigned int major = 0, minor = 0;
        unsigned long inode = 0;
        // NOLINTNEXTLINE(cert-err34-c): the kernel has written these numbers
        if (kind != "FLOCK" || std::sscanf(file.c_str(), "%x:%x:%lu", &major, &minor, &inode) != 3) continue;
        if (makedev(major, minor) == device.st_dev && inode == device.st_ino) users.push_back({pid, commandOf(pid)});
    }
    return users;
}

std::vector<DeviceUser> usersOf(const struct stat& device)
{
    std::vector<DeviceUser> users;
    std::error_code notAllowed;
    for (const fs::directory_entry& process : fs::directory_iterator("/proc", notAllowed)) {
        const std::string name = process.path().filename();
        if (!std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; })) continue;
        const auto pid = static_cast<pid_t>(std::stol(name));
        if (pid == ::getpid()) continue;
        bool hasDevice = false, isReceiver = false;
        std::error_code gone;
        for (fs::directory_iterator entry(process.path() / "fd", gone), end; !gone && entry != end;
             entry.increment(gone)) {
            struct stat file
            {};
            hasDevice = hasDevice || (::stat(entry->path().c_str(), &file) == 0 && isSame(file, device));
            isReceiver = isReceiver || isOtherEnd(entry->path());
        }
        if (hasDevice && !isReceiver) users.push_back({pid, commandOf(pid)});
    }
    return users;
}

Device::Device(std::chrono::duration<double> patience)
    : fd_(::open(kDevicePath, O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
{
    if (fd_ < 0) throw Failure(kDevice, whyNotOpen());
    struct stat device
    {};
    if (::fstat(fd_, &device) != 0 || ::isatty(fd_) != 1) {
        ::close(fd_);
        throw Failure(kDevice,
                      std::string(kDevicePath) + " is no serial port: look at what the device rule links it to");
    }

    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (::flock(fd_, LOCK_EX | LOCK_NB) != 0) {
        if (std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(kPause);
            continue;
        }
        std::vector<DeviceUser> holders = claimants(device);
        // A process may have left its claim to another that it started.
        if (holders.empty() || holders.front().command == kUnknown) holders = usersOf(device);
        ::close(fd_);
        throw Busy(std::string(kDevicePath) + " is in use by " +
                   (holders.empty() ? "another process" : holders.front().description()) +
                   "; wait for it with --wait-lock SECONDS");
    }
}

Device::~Device()
{
    ::close(fd_);
}

} // namespace ubxctl
