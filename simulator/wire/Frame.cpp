#include "simulator/wire/Frame.h"

#include <algorithm>

namespace ubxsim
{

namespace
{

constexpr std::uint8_t kSync1 = 0xB5;
constexpr std::uint8_t kSync2 = 0x62;
constexpr std::size_t kHeaderSize = 6;

// No request is longer: 64 keys with eight-byte values take 772 bytes. A larger length field is noise, and waiting for
// that many bytes would make the receiver deaf.
constexpr std::size_t kLongestPayload = 4096;

struct Checksum
{
    std::uint8_t a = 0;
    std::uint8_t b = 0;

    void add(std::uint8_t value)
    {
        a = static_cast<std::uint8_t>(a + value);
        b = static_cast<std::uint8_t>(b + a);
    }
};

} // namespace

Bytes frame(std::uint16_t classId, const Bytes& payload)
{
    Bytes whole;
    whole.reserve(kFrameOverhead + payload.size());
    whole = {kSync1,
             kSync2,
             static_cast<std::uint8_t>(classId >> 8),
             static_cast<std::uint8_t>(classId & 0xFF),
             static_cast<std::uint8_t>(payload.size() & 0xFF),
             static_cast<std::uint8_t>((payload.size() >> 8) & 0xFF)};
    whole.insert(whole.end(), payload.begin(), payload.end());

    Checksum checksum;
    std::for_each(whole.begin() + 2, whole.end(), [&](std::uint8_t value) { checksum.add(value); });
    whole.push_back(checksum.a);
    whole.push_back(checksum.b);
    return whole;
}

void FrameScanner::feed(const std::uint8_t* data, std::size_t size)
{
    pending_.insert(pending_.end(), data, data + size);
}

void FrameScanner::drop(std::size_t count)
{
    pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(count));
}

void FrameScanner::giveUpPartialFrame()
{
    giveUp_ = true;
}

std::optional<Frame> FrameScanner::next()
{
    for (;;) {
        const auto sync = std::find(pending_.begin(), pending_.end(), kSync1);
        const auto before = static_cast<std::size_t>(sync - pending_.begin());
        strayBytes_ += before;
        drop(before);
        if (pending_.empty()) {
            giveUp_ = false;
            return std::nullopt;
        }

        const bool falseSync = pending_.size() > 1 && pending_[1] != kSync2;
        std::size_t payloadSize = 0;
        bool complete = false;
        if (!falseSync && pending_.size() >= kHeaderSize) {
            payloadSize = static_cast<std::size_t>(pending_[4]) | static_cast<std::size_t>(pending_[5]) << 8;
            complete = pending_.size() >= payloadSize + kFrameOverhead;
        }
        if (!falseSync && payloadSize <= kLongestPayload) {
            if (!complete && !giveUp_) {
                return std::nullopt;
            }
            if (complete) {
                const auto payloadBegin = pending_.begin() + kHeaderSize;
                Frame found;
                found.classId = static_cast<std::uint16_t>(pending_[2] << 8 | pending_[3]);
                found.payload.assign(payloadBegin, payloadBegin + static_cast<std::ptrdiff_t>(payloadSize));
                const Bytes whole = frame(found.classId, found.payload);
                if (std::equal(whole.begin(), whole.end(), pending_.begin())) {
                    drop(whole.size());
                    return found;
                }
            }
        }
        strayBytes_ += 1;
        drop(1);
    }
}

} // namespace ubxsim
