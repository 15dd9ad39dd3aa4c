#include "I2CDev.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace
{

constexpr int kDone = 0;
constexpr int kFailed = -1;
constexpr unsigned char kHighestAddress = 0x7F;

/// All messages in one transfer, so that no other master's and no other process's traffic comes in between. The address
/// travels with each message: the bus need not be told of it, and a driver bound to the chip does not stand in the way.
int transfer(int bus, i2c_msg* messages, std::size_t count)
{
    i2c_rdwr_ioctl_data request{messages, static_cast<unsigned int>(count)};
    int done = kFailed;
    do // A signal may end a transfer half-way; registers take the same bytes twice.
        done = ::ioctl(bus, I2C_RDWR, &request);
    while (done < 0 && errno == EINTR);
    return done == static_cast<int>(count) ? kDone : kFailed;
}

/// A message's length has 16 bits.
bool fits(unsigned long length)
{
    return length <= std::numeric_limits<decltype(i2c_msg::len)>::max();
}

i2c_msg message(unsigned char address, unsigned short flags, unsigned char* bytes, unsigned long length)
{
    return {address, flags, static_cast<decltype(i2c_msg::len)>(length), bytes};
}

} // namespace

I2CDev::I2CDev(std::string bus) : bus_(std::move(bus)), handle_(kFailed) {}

I2CDev::~I2CDev()
{
    if (handle_ >= 0) ::close(handle_);
}

int I2CDev::open(unsigned char address)
{
    if (handle_ >= 0) ::close(std::exchange(handle_, kFailed));
    if (address > kHighestAddress) return kFailed;
    address_ = address;
    handle_ = ::open(bus_.c_str(), O_RDWR | O_CLOEXEC);
    return handle_ < 0 ? kFailed : kDone;
}

int I2CDev::read(unsigned char* data, unsigned long len, unsigned char* reg, unsigned long reglen)
{
    if (handle_ < 0 || !fits(len) || !fits(reglen)) return kFailed;
    // Not into the caller's own bytes: a transfer that fails half-way must leave them alone.
    std::vector<unsigned char> received(len);
    std::array messages{message(address_, 0, reg, reglen), message(address_, I2C_M_RD, received.data(), len)};
    if (transfer(handle_, messages.data(), messages.size()) == kFailed) return kFailed;
    std::copy(received.begin(), received.end(), data);
    return kDone;
}

int I2CDev::write(unsigned char* data, unsigned long len)
{
    if (handle_ < 0 || !fits(len)) return kFailed;
    i2c_msg single = message(address_, 0, data, len);
    return transfer(handle_, &single, 1);
}
