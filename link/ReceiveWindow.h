#pragma once

#include <cstddef>
#include <memory>

namespace ubx
{

/// The bytes that a wait has received. Full or not, it never refuses what comes next.
class ReceiveWindow
{
public:
    /// @param capacity  bytes; the longest frame that can be received is one byte shorter.
    explicit ReceiveWindow(std::size_t capacity);

    unsigned char* freeSpace() { return bytes_.get() + filled_; }
    std::size_t freeBytes() const { return capacity_ - filled_; }
    void added(std::size_t count) { filled_ += count; }

    /// All that it holds.
    const unsigned char* bytes() const { return bytes_.get(); }
    std::size_t size() const { return filled_; }

    /// The first `count` bytes are done with. They stay until room is needed.
    void finish(std::size_t count) { finished_ = count; }

    /// When no space is free: gives up what is finished with. An unfinished frame that fills the whole window can't
    /// become whole in it, so its sync chars are given up.
    /// @return whether they were: what lies behind them has to be looked at anew.
    bool makeRoom();

private:
    std::unique_ptr<unsigned char[]> bytes_;
    std::size_t capacity_;
    std::size_t filled_ = 0;
    std::size_t finished_ = 0;
};

} // namespace ubx
