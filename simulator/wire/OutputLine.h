#pragma once

#include "simulator/wire/Pty.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>

namespace ubxsim
{

using WallClock = std::chrono::steady_clock;
using WallTime = WallClock::time_point;

/// What leaves the receiver in one go: one frame or one sentence.
struct Transmission
{
    Bytes bytes;
    /// 0: in one piece; otherwise in pieces of this many bytes, `gap` apart.
    std::size_t pieceSize = 0;
    std::chrono::microseconds gap{0};
};

/// The receiver's transmit line: bytes leave in order, at the line's pace or at once.
class OutputLine
{
public:
    /// 0 means unlimited.
    void setBitsPerSecond(std::uint32_t bitsPerSecond) { bitsPerSecond_ = bitsPerSecond; }
    void enqueue(Transmission transmission, WallTime now);
    void clear();

    /// Bytes that wait for the line.
    std::size_t waiting() const { return waiting_; }
    /// Whole transmissions lost because nobody read.
    std::size_t lost() const { return lost_; }

    /// Writes what is due.
    void pump(Pty& pty, WallTime now);
    /// When `pump` has something to do again; empty when nothing waits.
    std::optional<WallTime> nextDue() const;

    /// Called with each transmission when its first byte leaves.
    std::function<void(const Transmission&)> onSent;

private:
    std::size_t allowance(WallTime now) const;
    std::size_t writeFront(Pty& pty, std::size_t count, WallTime now);

    std::deque<Transmission> queue_;
    std::size_t waiting_ = 0;
    std::size_t position_ = 0; // bytes of the front transmission that have left
    bool frontLost_ = false;
    bool hostReads_ = true;
    std::optional<WallTime> blockedSince_;
    WallTime lineFree_{}; // when the next byte may leave
    std::uint32_t bitsPerSecond_ = 0;
    std::size_t lost_ = 0;
};

} // namespace ubxsim
