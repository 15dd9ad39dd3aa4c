#pragma once

#include <array>
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

    unsigned char* freeSpace() { return bytes_ + filled_; }
    std::size_t freeBytes() const { return capacity_ - filled_; }
    bool isFull() const { return filled_ == capacity_; }
    void added(std::size_t count) { filled_ += count; }

    /// What it holds and has not been finished with.
    const unsigned char* unfinished() const { return bytes_ + finished_; }
    std::size_t unfinishedBytes() const { return filled_ - finished_; }

    /// The first `count` of these bytes are done with. They stay until room is needed.
    void finish(std::size_t count) { finished_ += count; }

    /// Nothing of what it holds is done with.
    void startAgain() { finished_ = 0; }

    /// Of a full window, gives up what is finished with. An unfinished frame that fills the whole window can't become
    /// whole in it, so its sync chars are given up.
    /// @return whether they were: what lies behind them has to be looked at anew.
    bool makeRoom();

private:
    // Room for the usual wait of five seconds, so that it costs no allocation.
    static constexpr std::size_t kOwnRoom = std::size_t{5} * 1024;

    std::array<unsigned char, kOwnRoom> own_; // not initialised: nothing is read that was not received
    std::unique_ptr<unsigned char[]> allocated_;
    unsigned char* bytes_;
    std::size_t capacity_;
    std::size_t filled_ = 0;
    std::size_t finished_ = 0;
};

} // namespace ubx
