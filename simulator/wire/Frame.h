#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace ubxsim
{

using Bytes = std::vector<std::uint8_t>;

// The simulator has its own frame code and does not link the library on purpose: an error made in one of them would
// cancel out if both shared it.

/// A UBX frame taken apart. The class stands in the high byte of `classId`, the id in the low byte.
struct Frame
{
    std::uint16_t classId = 0;
    Bytes payload;
};

/// The whole frame, sync characters to checksum.
Bytes frame(std::uint16_t classId, const Bytes& payload);

inline constexpr std::size_t kFrameOverhead = 8;

/// Cuts frames out of bytes that arrive in arbitrary pieces.
class FrameScanner
{
public:
    void feed(const std::uint8_t* data, std::size_t size);

    /// The next frame whose checksum is right; empty when there is none yet.
    std::optional<Frame> next();

    /// Gives up a frame whose end never came, so that what follows is looked at again.
    void giveUpPartialFrame();
    bool holdsPartialFrame() const { return !pending_.empty(); }

    /// Bytes that belonged to no good frame.
    std::size_t strayBytes() const { return strayBytes_; }

private:
    void drop(std::size_t count);

    Bytes pending_;
    std::size_t strayBytes_ = 0;
    bool giveUp_ = false;
};

} // namespace ubxsim
