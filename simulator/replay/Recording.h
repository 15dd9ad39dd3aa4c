#pragma once

#include "simulator/wire/Frame.h"

#include <chrono>
#include <map>
#include <optional>
#include <string>

namespace ubxsim
{

/// What a receiver put out once: raw bytes as they came over the line, or a trace of the simulator.
class Recording
{
public:
    struct Chunk
    {
        std::chrono::microseconds time{0};
        Bytes bytes;
    };

    /// Throws std::runtime_error when the file can't be read or holds nothing.
    static Recording fromFile(const std::string& path);
    /// Raw bytes are cut where the time of week changes, one second each; without any, where the NMEA time does.
    static Recording fromBytes(const Bytes& bytes);
    static Recording fromTrace(const std::string& text);

    /// In the order of their times.
    const std::vector<Chunk>& chunks() const { return chunks_; }
    /// When it starts over.
    std::chrono::microseconds duration() const { return duration_; }

    /// The next recorded frame of this class and id that can be an answer, round and round; empty when there is none.
    std::optional<Frame> nextFrame(std::uint16_t classId);
    std::size_t frameCount() const { return frames_.size(); }

private:
    void indexFrames();

    std::vector<Chunk> chunks_;
    std::chrono::microseconds duration_{0};
    std::vector<Frame> frames_;
    std::map<std::uint16_t, std::size_t> positions_; // where to look next
};

} // namespace ubxsim
