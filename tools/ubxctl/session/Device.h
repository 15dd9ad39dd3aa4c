#pragma once

#include <chrono>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <sys/types.h>

namespace ubxctl
{

inline constexpr const char* kDevicePath = "/dev/tty_gps";

/// A process that has the receiver's device open.
struct DeviceUser
{
    pid_t pid;
    std::string command;

    std::string description() const; ///< "process 1234 (gpsd -n /dev/tty_gps)"
};

/// The claim on the receiver: two commands at once would read each other's replies.
///
/// An advisory lock on the device itself, as terminal programs take one. It goes with the process, however that ends.
class Device
{
public:
    /// @param patience  how long to wait for another process to be done.
    /// @throws Failure where there is no device, it may not be opened, or is in use.
    explicit Device(std::chrono::duration<double> patience);
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

private:
    int fd_;
};

/// Who holds the claim; empty when it is free or can't be told.
std::vector<DeviceUser> claimants(const struct stat& device);

/// Who has the device open, as far as this user may see; not this process.
std::vector<DeviceUser> usersOf(const struct stat& device);

} // namespace ubxctl
