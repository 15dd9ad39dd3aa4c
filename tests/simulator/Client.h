#pragma once

#include "Bytes.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// A host at frame level: opens the simulator's terminal as a program would, sends bytes, takes the stream apart again.
/// It has its own frame code, so that an error of the simulator's can't hide in it.
namespace client
{

using testsupport::Bytes;
using namespace std::chrono_literals;

/// One whole frame or sentence, or what lay between.
struct Item
{
    enum class Kind
    {
        frame,
        sentence,
        noise
    };
    Kind kind = Kind::noise;
    std::uint16_t classId = 0; // of a frame
    Bytes payload;             // of a frame
    std::string text;          // of a sentence, without its line end
    Bytes raw;
};

/// Takes a stream apart, from this offset on. Only frames with a right checksum are frames.
std::vector<Item> split(const Bytes& stream, std::size_t from = 0);

/// The frames of a stream as "0623:40 0501:2", with payload lengths.
std::string outline(const std::vector<Item>& items);

/// What is sure to come gets this long, on the busiest machine.
constexpr std::chrono::milliseconds kPatience = 10s;

class Client
{
public:
    explicit Client(const std::string& devicePath);
    ~Client();
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    /// Bytes typed as "06 23" for the class and id, and the payload; the checksum is computed here.
    void send(std::string_view classAndId, std::string_view payload = "");
    /// Bytes written; fewer when the line is full.
    std::size_t sendRaw(const Bytes& bytes);

    /// Reads until a frame of this class and id has come, and gives its payload; empty after the limit.
    std::optional<Bytes> waitFor(std::uint16_t classId, std::chrono::milliseconds limit = kPatience);
    /// Sends a poll and waits for its reply, and for the acknowledgement where one follows.
    std::optional<Bytes> poll(std::string_view classAndId, std::string_view payload = "",
                              std::chrono::milliseconds limit = kPatience);
    /// Sends and waits for the acknowledgement: true for ACK-ACK, false for ACK-NAK.
    std::optional<bool> set(std::string_view classAndId, std::string_view payload);

    /// All that has come so far and comes until the line has been quiet for this time.
    std::vector<Item> collect(std::chrono::milliseconds quiet = 100ms);
    /// All that comes within this time.
    std::vector<Item> listen(std::chrono::milliseconds time);
    /// Reads until a sentence contains this text.
    bool waitForText(const std::string& text, std::chrono::milliseconds limit = kPatience);
    /// Bytes read at once; -1 as read(2) gives it.
    long readOnce(Bytes& bytes);

    int descriptor() const { return descriptor_; }

private:
    bool readMore(std::chrono::milliseconds limit);
    std::optional<Item> waitForFrame(const std::function<bool(const Item&)>& isWanted, std::chrono::milliseconds limit);

    int descriptor_;
    Bytes pending_;
};

/// A little-endian number of a payload.
std::uint64_t number(const Bytes& payload, std::size_t offset, std::size_t width);
std::int64_t signedNumber(const Bytes& payload, std::size_t offset, std::size_t width);

} // namespace client
