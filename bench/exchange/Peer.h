#pragma once

#include <string>

#include <sys/types.h>

namespace bench
{

/// A receiver that answers at once: a process of its own behind a pseudo terminal.
///
/// It has an answer to CFG-PRT, CFG-NAVX5, CFG-VALGET of one key and MON-VER, acknowledges all other CFG frames, and
/// puts a line end behind what no acknowledgement follows. It ends with this process.
class Peer
{
public:
    /// @param hardware  what its MON-VER says: "00080000" is a NEO-M8T, "00190000" a ZED-F9T.
    explicit Peer(const char* hardware);
    ~Peer();
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    const std::string& device() const { return device_; }

    /// Room for the answer to a poll of CFG-NAVX5, CFG-VALGET (one byte of value) and MON-VER.
    static constexpr std::size_t kNavx5Length = 48;
    static constexpr std::size_t kValgetLength = 17;
    static constexpr std::size_t kVersionLength = 228;
    static constexpr std::size_t kPortLength = 28;

private:
    pid_t process_;
    std::string device_;
};

/// Lets the calling thread run on this processor only, where the machine has more than one.
void runOn(unsigned processor);

} // namespace bench
