#pragma once

#include <chrono>
#include <cstddef>

namespace ubxctl
{

/// What a receiver says of its own accord.
struct Heard
{
    std::size_t bytes = 0;
    std::size_t sentences = 0; ///< NMEA with the right checksum
    std::size_t frames = 0;    ///< UBX
    std::size_t noise = 0;     ///< bytes of neither
    std::chrono::milliseconds duration{};
};

/// Listens on the receiver's port, so long at most: some messages are enough.
Heard listen(std::chrono::milliseconds limit);

} // namespace ubxctl
