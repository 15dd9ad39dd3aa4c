#include "bench/exchange/Bare.h"

#include <cerrno>
#include <csignal>
#include <system_error>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include "bench/exchange/Peer.h"

namespace bench
{

namespace
{

// As the library does around what a signal would cut short.
template <typename Call>
auto withoutSignals(Call call)
{
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    const auto result = call();
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return result;
}

} // namespace

BarePort::BarePort()
    : fd_(withoutSignals([] { return ::open("/dev/tty_gps", O_RDWR | O_NOCTTY | O_NONBLOCK | O_SYNC); }))
{
    if (fd_ < 0) throw std::system_error(errno, std::generic_category(), "/dev/tty_gps");
    termios settings{};
    ::tcgetattr(fd_, &settings);
    ::cfmakeraw(&settings);
    settings.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS);
    ::tcflush(fd_, TCIOFLUSH);
    ::tcsetattr(fd_, TCSANOW, &settings);
}

BarePort::~BarePort()
{
    withoutSignals([this] { return ::close(fd_); });
}

void BarePort::write(const Bytes& frame) const
{
    const ssize_t written = withoutSignals([&] { return ::write(fd_, frame.data(), frame.size()); });
    if (written != static_cast<ssize_t>(frame.size()))
        throw std::system_error(errno, std::generic_category(), "/dev/tty_gps took only a part");
    ::fsync(fd_);
}

void BarePort::awaitAndOneMore(std::size_t length) const
{
    unsigned char buffer[1024];
    std::size_t received = 0;
    while (received <= length) {
        const ssize_t count = ::read(fd_, buffer, sizeof buffer);
        if (count > 0) received += static_cast<std::size_t>(count);
    }
}

void barePoll(const Bytes& poll, std::size_t answerLength)
{
    const BarePort port;
    port.write(poll);
    port.awaitAndOneMore(answerLength);
}

void barePollThroughSecondPort(const Bytes& poll, std::size_t answerLength)
{
    const BarePort port;
    bareCommand(poll);
    port.awaitAndOneMore(answerLength);
}

void bareCommand(const Bytes& command)
{
    const BarePort port;
    port.write(command);
}

void bareStartUp()
{
    static const Bytes portPoll = makeFrame(0x06, 0x00, {});
    static const Bytes portSet = makeFrame(0x06, 0x00, Bytes(20, 1));
    static const Bytes versionPoll = makeFrame(0x0A, 0x04, {});
    {
        const BarePort port;
        port.write(portPoll);
        port.awaitAndOneMore(Peer::kPortLength);
        port.write(portSet);
    }
    const BarePort port;
    for (int i = 0; i < 3; ++i)
        port.write(versionPoll);
    port.awaitAndOneMore(Peer::kVersionLength);
}

} // namespace bench
