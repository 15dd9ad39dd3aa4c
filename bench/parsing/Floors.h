#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "bench/streams/Streams.h"

/// The least that a parser has to do, done without one.
namespace bench
{

/// The checksum of a frame, over these bytes.
std::uint16_t fastChecksum(const std::uint8_t* data, std::size_t length);

/// How many bytes are 0xB5: each is looked for with memchr from the one before.
std::size_t countFirstSyncChars(const std::uint8_t* data, std::size_t length);

/// What a frame costs however it is found: its checksum, a block for the message, one for the bytes, and a copy of
/// them.
class FramesTakenOut
{
public:
    explicit FramesTakenOut(std::size_t most) { messages_.reserve(most); }
    ~FramesTakenOut() { clear(); }
    FramesTakenOut(const FramesTakenOut&) = delete;
    FramesTakenOut& operator=(const FramesTakenOut&) = delete;

    /// Takes frames whose places are known. @return how many had the right checksum.
    std::size_t take(const std::uint8_t* data, const FramePlace* first, const FramePlace* last);
    void clear();

private:
    // As large as a message that knows class, id and both lengths.
    struct Message
    {
        std::size_t payloadLength;
        std::size_t length;
        std::uint16_t classId;
        std::uint8_t* bytes;
    };
    std::vector<Message*> messages_;
};

} // namespace bench
