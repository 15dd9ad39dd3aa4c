#include "bench/streams/Frame.h"

#include <algorithm>

namespace bench
{

Bytes makeFrame(std::uint8_t messageClass, std::uint8_t id, const Bytes& payload)
{
    constexpr std::size_t kHeader = 6;
    constexpr std::size_t kChecksum = 2;
    const std::size_t length = payload.size();
    Bytes frame(kHeader + length + kChecksum);
    frame[0] = 0xB5;
    frame[1] = 0x62;
    frame[2] = messageClass;
    frame[3] = id;
    frame[4] = static_cast<std::uint8_t>(length % 256);
    frame[5] = static_cast<std::uint8_t>(length / 256);
    std::copy(payload.begin(), payload.end(), frame.begin() + kHeader);

    unsigned a = 0;
    unsigned b = 0;
    for (std::size_t i = 2; i < kHeader + length; ++i) {
        a += frame[i];
        b += a;
    }
    frame[kHeader + length] = static_cast<std::uint8_t>(a % 256);
    frame[kHeader + length + 1] = static_cast<std::uint8_t>(b % 256);
    return frame;
}

} // namespace bench
