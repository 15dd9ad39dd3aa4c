#include "simulator/wire/OutputLine.h"

#include <algorithm>

namespace ubxsim
{

using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::nanoseconds;

namespace
{

constexpr std::int64_t kNanosecondsPerSecond = 1000000000;
constexpr std::int64_t kBitsPerByte = 10; // start bit, eight data bits, stop bit

// A UART hands over what came in since the last interrupt; less often than every 2 ms would be seen as jerks.
constexpr milliseconds kPumpInterval{2};

// A host that reads gets this long to make room, even when something else has its processor. One that does not read
// loses whole frames.
constexpr milliseconds kRoomPatience{200};
constexpr milliseconds kRoomRetry{1};

// A transmission of up to this size is written whole or not at all.
constexpr std::size_t kWholeFrameRoom = 4000;

} // namespace

void OutputLine::enqueue(Transmission transmission, WallTime now)
{
    if (transmission.bytes.empty()) {
        return;
    }
    if (queue_.empty()) {
        lineFree_ = std::max(lineFree_, now);
    }
    waiting_ += transmission.bytes.size();
    queue_.push_back(std::move(transmission));
}

void OutputLine::clear()
{
    queue_.clear();
    waiting_ = 0;
    position_ = 0;
    frontLost_ = false;
    blockedSince_.reset();
}

// How many bytes of the front transmission may leave now.
std::size_t OutputLine::allowance(WallTime now) const
{
    const Transmission& front = queue_.front();
    const std::size_t left = front.bytes.size() - position_;
    std::size_t count = front.pieceSize == 0 ? left : std::min(left, front.pieceSize - position_ % front.pieceSize);
    if (bitsPerSecond_ != 0) {
        const auto late = std::chrono::duration_cast<nanoseconds>(now - lineFree_).count();
        const auto due = 1 + late * (static_cast<std::int64_t>(bitsPerSecond_) / kBitsPerByte) / kNanosecondsPerSecond;
        count = std::min(count, static_cast<std::size_t>(due));
    }
    return count;
}

// Bytes that have left; 0 while there is still hope that the host makes room.
std::size_t OutputLine::writeFront(Pty& pty, std::size_t count, WallTime now)
{
    if (frontLost_) {
        return count;
    }
    const Transmission& front = queue_.front();
    const std::size_t needed = position_ == 0 ? std::min(front.bytes.size(), kWholeFrameRoom) : 1;
    const std::size_t room = pty.room();
    const std::size_t written = room >= needed ? pty.write(front.bytes.data() + position_, std::min(count, room)) : 0;
    if (written > 0) {
        if (position_ == 0 && onSent) {
            onSent(front);
        }
        hostReads_ = true;
        blockedSince_.reset();
        return written;
    }
    if (!blockedSince_) {
        blockedSince_ = now;
    }
    if (pty.isOpen() && hostReads_ && now - *blockedSince_ < kRoomPatience) {
        return 0;
    }
    hostReads_ = false;
    blockedSince_.reset();
    frontLost_ = true;
    ++lost_;
    return count;
}

void OutputLine::pump(Pty& pty, WallTime now)
{
    while (!queue_.empty() && lineFree_ <= now) {
        const Transmission& front = queue_.front();
        const std::size_t count = writeFront(pty, allowance(now), now);
        if (count == 0) {
            return;
        }
        position_ += count;
        waiting_ -= count;
        if (bitsPerSecond_ != 0) {
            lineFree_ += nanoseconds(static_cast<std::int64_t>(count) * kBitsPerByte * kNanosecondsPerSecond /
                                     static_cast<std::int64_t>(bitsPerSecond_));
        }
        if (position_ == front.bytes.size()) {
            queue_.pop_front();
            position_ = 0;
            frontLost_ = false;
        } else if (front.pieceSize != 0 && position_ % front.pieceSize == 0) {
            lineFree_ = std::max(lineFree_, now) + front.gap;
        }
    }
}

std::optional<WallTime> OutputLine::nextDue() const
{
    if (queue_.empty()) {
        return std::nullopt;
    }
    if (blockedSince_) {
        return WallClock::now() + kRoomRetry;
    }
    return bitsPerSecond_ == 0 ? lineFree_ : std::max(lineFree_, WallClock::now() + kPumpInterval);
}

} // namespace ubxsim
