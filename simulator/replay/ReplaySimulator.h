#pragma once

#include "simulator/replay/Recording.h"

#include <memory>

namespace ubxsim
{

struct ReplayOptions
{
    std::chrono::microseconds epoch{1000000}; // wall time of one second of the recording
    Bytes trailer;                            // sent after each answer to a poll
};

/// Streams a recording over a pseudo terminal at its own pace, over and over. A poll is answered with the next recorded
/// frame of its class and id; where there is none it stays silent. Everything else is ignored.
class ReplaySimulator
{
public:
    explicit ReplaySimulator(Recording recording, ReplayOptions options = {});
    ~ReplaySimulator();
    ReplaySimulator(const ReplaySimulator&) = delete;
    ReplaySimulator& operator=(const ReplaySimulator&) = delete;

    std::string devicePath() const;
    /// A symbolic link to the terminal; replaces an older link, is removed by the destructor.
    void linkAt(const std::string& path);

    /// What the host sent: whole frames, in order of arrival.
    std::vector<Bytes> receivedFrames() const;
    bool waitForFrames(std::size_t atLeast, std::chrono::milliseconds limit = std::chrono::milliseconds(2000)) const;

private:
    class Player;
    std::unique_ptr<Player> player_;
};

} // namespace ubxsim
