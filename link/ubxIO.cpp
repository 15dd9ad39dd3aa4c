#include <ubxIO.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <iostream>
#include <memory>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include "link/ReceiveWindow.h"
#include "link/SignalsHeld.h"

namespace
{

constexpr const char* kDevice = "/dev/tty_gps";
constexpr int kOpenFlags = O_RDWR | O_NOCTTY | O_NONBLOCK | O_SYNC;
constexpr int kClosed = -1;

constexpr std::size_t kReadAtOnce = 1024;
constexpr std::size_t kWindowBytesPerSecond = 1024;
constexpr int kWidestWindowSeconds = 65; // 65 KiB hold the longest frame; a longer wait needs no wider window

// A line is written as one piece, so that it stays one when others write too.
void report(const char* line)
{
    std::cerr << line;
}

int openDevice()
{
    const ubx::SignalsHeld held;
    return open(kDevice, kOpenFlags);
}

void closeDevice(int fd)
{
    const ubx::SignalsHeld held; // it waits until the line has taken everything
    close(fd);
}

ssize_t writeOnce(int fd, const UBXMessage& message)
{
    const ubx::SignalsHeld held;
    return write(fd, message.getPacketData(), message.getPacketLength());
}

std::size_t windowSize(int timeLimit)
{
    return static_cast<std::size_t>(std::clamp(timeLimit, 0, kWidestWindowSeconds)) * kWindowBytesPerSecond;
}

} // namespace

ubxIO::ubxIO()
{
    fd_ = openDevice();
    if (fd_ < 0) {
        report("Could not open tty_gps, cannot communicate with the ublox device.\n");
        fd_ = kClosed;
        return;
    }
    if (!SetupUART(fd_)) {
        closeDevice(fd_);
        fd_ = kClosed;
        return;
    }
    messageList_.emplace();
    messageBuilder_.emplace(&*messageList_);
}

ubxIO::~ubxIO()
{
    if (fd_ != kClosed) closeDevice(fd_);
}

bool ubxIO::SetupUART(int fd)
{
    termios settings{};
    if (tcgetattr(fd, &settings) != 0) {
        report("Can't get gps_tty settings\n");
        return false;
    }
    cfmakeraw(&settings);
    settings.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS);
    tcflush(fd, TCIOFLUSH);
    if (tcsetattr(fd, TCSANOW, &settings) != 0) {
        report("Can't configure tty_gps raw mode\n");
        return false;
    }
    return true;
}

long ubxIO::ReadFromUART(unsigned char* buffer, long length)
{
    if (fd_ == kClosed || length < 0) return 0;
    const ssize_t count = read(fd_, buffer, static_cast<std::size_t>(length));
    return std::max<ssize_t>(count, 0);
}

int ubxIO::SendMessage(UBXMessage* message)
{
    if (fd_ < 0) {
        report("Cannot send message to the ublox, the device is not open!\n");
        return -1;
    }
    const ssize_t written = writeOnce(fd_, *message);
    fsync(fd_);
    return static_cast<std::uint32_t>(written) == static_cast<std::uint32_t>(message->getPacketLength()) ? 0 : -1;
}

UBXMessage* ubxIO::ReceiveMessage(unsigned short classId, int timeLimit)
{
    if (fd_ < 0) {
        report("ubxIO::ReceiveMessage Could not receive data from the ublox, device is not open!\n");
        return nullptr;
    }
    const auto wanted = static_cast<UBXMessageClassIdValues>(classId);
    ubx::ReceiveWindow window(windowSize(timeLimit));
    std::unique_ptr<UBXMessage> candidate;
    const bool othersLeft = !messageList_->isEmpty(); // by an earlier wait; the first look takes them in

    // Compared as they are: difftime() costs more than all else of a round where long double has no hardware.
    const std::time_t end = std::time(nullptr) + timeLimit;
    bool firstLook = true;
    bool listIsOutdated = false;
    bool found = false;
    do {
        bool look = firstLook;
        if (window.isFull()) {
            if (window.makeRoom()) look = true;
            listIsOutdated = true;
        }
        const std::size_t room = std::min(kReadAtOnce, window.freeBytes());
        const long received = ReadFromUART(window.freeSpace(), static_cast<long>(room));
        window.added(static_cast<std::size_t>(received));
        if (received > 0 || look) {
            // The list has what the window holds, in its order: the messages that precede the reply stay for a later
            // wait. As long as nothing is damaged, only the new bytes have to be looked at for that.
            const bool damaged = messageBuilder_->getErroredMessageCount() != 0;
            if (!firstLook && (listIsOutdated || damaged)) {
                messageList_->Empty();
                window.startAgain();
            }
            unsigned long resumeAt = 0;
            messageBuilder_->scan(window.unfinished(), window.unfinishedBytes(), resumeAt);
            window.finish(resumeAt);
            UBXMessage* const newest = messageList_->findFirstOfMessage(wanted);
            found = newest != nullptr;
            if (found) candidate.reset(newest);
            listIsOutdated = firstLook && othersLeft;
            firstLook = false;
        }
        if (messageBuilder_->getErroredMessageCount() != 0) {
            report("ubxIO::ReceiveMessage Errored messages returned from u-blox.\n");
        } else if (candidate != nullptr) {
            return candidate.release();
        }
    } while (std::time(nullptr) < end);

    if (!found) messageList_->Empty();
    report("ubxIO::ReceiveMessage Timed out waiting for rx from u-blox.\n");
    return candidate.release();
}
