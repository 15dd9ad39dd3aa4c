#include "Client.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace client
{

namespace
{

using Clock = std::chrono::steady_clock;

Bytes build(const Bytes& classAndId, const Bytes& payload)
{
    Bytes body = classAndId;
    body.push_back(static_cast<std::uint8_t>(payload.size() % 256));
    body.push_back(static_cast<std::uint8_t>(payload.size() / 256));
    body.insert(body.end(), payload.begin(), payload.end());
    unsigned first = 0;
    unsigned second = 0;
    for (const std::uint8_t value : body) {
        first = (first + value) % 256;
        second = (second + first) % 256;
    }
    body.insert(body.begin(), {0xB5, 0x62});
    body.push_back(static_cast<std::uint8_t>(first));
    body.push_back(static_cast<std::uint8_t>(second));
    return body;
}

// The size of the whole good frame here; 0 for none.
std::size_t frameSize(const Bytes& stream, std::size_t at)
{
    if (stream.size() - at < 8 || stream[at] != 0xB5 || stream[at + 1] != 0x62) {
        return 0;
    }
    const std::size_t payload = stream[at + 4] + 256U * stream[at + 5];
    if (stream.size() - at < payload + 8) {
        return 0;
    }
    const auto begin = stream.begin() + static_cast<long>(at);
    const Bytes good = build(Bytes(begin + 2, begin + 4), Bytes(begin + 6, begin + 6 + static_cast<long>(payload)));
    return std::equal(good.begin(), good.end(), begin) ? good.size() : 0;
}

std::size_t sentenceSize(const Bytes& stream, std::size_t at)
{
    constexpr std::size_t kLongest = 128;
    if (stream[at] != '$') {
        return 0;
    }
    for (std::size_t i = at; i + 1 < stream.size() && i - at < kLongest; ++i) {
        if (stream[i] == '\r' && stream[i + 1] == '\n') {
            return i + 2 - at;
        }
    }
    return 0;
}

} // namespace

std::vector<Item> split(const Bytes& stream, std::size_t from)
{
    std::vector<Item> items;
    for (std::size_t at = from; at < stream.size();) {
        const auto begin = stream.begin() + static_cast<long>(at);
        Item item;
        std::size_t size = frameSize(stream, at);
        if (size != 0) {
            item.kind = Item::Kind::frame;
            item.classId = static_cast<std::uint16_t>(begin[2] * 256 + begin[3]);
            item.payload.assign(begin + 6, begin + static_cast<long>(size) - 2);
        } else if ((size = sentenceSize(stream, at)) != 0) {
            item.kind = Item::Kind::sentence;
            item.text.assign(begin, begin + static_cast<long>(size) - 2);
        } else {
            size = 1;
        }
        item.raw.assign(begin, begin + static_cast<long>(size));
        const bool moreNoise = item.kind == Item::Kind::noise && !items.empty() && items.back().kind == item.kind;
        if (moreNoise) {
            items.back().raw.push_back(*begin);
        } else {
            items.push_back(std::move(item));
        }
        at += size;
    }
    return items;
}

std::string outline(const std::vector<Item>& items)
{
    std::string text;
    for (const Item& item : items) {
        if (item.kind == Item::Kind::frame) {
            std::array<char, 32> word{};
            std::snprintf(word.data(), word.size(), "%s%04X:%zu", text.empty() ? "" : " ", item.classId,
                          item.payload.size());
            text += word.data();
        }
    }
    return text;
}

Client::Client(const std::string& devicePath) : descriptor_(::open(devicePath.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK))
{
    if (descriptor_ < 0) {
        throw std::runtime_error("cannot open " + devicePath);
    }
}

Client::~Client()
{
    ::close(descriptor_);
}

void Client::send(std::string_view classAndId, std::string_view payload)
{
    const Bytes frame = build(testsupport::bytes(classAndId), testsupport::bytes(payload));
    if (sendRaw(frame) != frame.size()) {
        throw std::runtime_error("the line took only part of a frame");
    }
}

std::size_t Client::sendRaw(const Bytes& bytes)
{
    const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
    return written > 0 ? static_cast<std::size_t>(written) : 0;
}

long Client::readOnce(Bytes& bytes)
{
    std::array<std::uint8_t, 4096> buffer{};
    const ssize_t count = ::read(descriptor_, buffer.data(), buffer.size());
    bytes.assign(buffer.begin(), buffer.begin() + std::max<ssize_t>(0, count));
    return count;
}

bool Client::readMore(std::chrono::milliseconds limit)
{
    pollfd waiting{descriptor_, POLLIN, 0};
    if (::poll(&waiting, 1, static_cast<int>(std::max(0ms, limit).count())) <= 0) {
        return false;
    }
    Bytes bytes;
    if (readOnce(bytes) <= 0) {
        return false;
    }
    pending_.insert(pending_.end(), bytes.begin(), bytes.end());
    return true;
}

// What lies before the frame goes with it. Whole frames and sentences are looked at once, however much comes.
std::optional<Item> Client::waitForFrame(const std::function<bool(const Item&)>& isWanted,
                                         std::chrono::milliseconds limit)
{
    const auto end = Clock::now() + limit;
    std::size_t seen = 0;
    for (;;) {
        std::size_t at = seen;
        for (Item& item : split(pending_, seen)) {
            at += item.raw.size();
            if (item.kind == Item::Kind::frame && isWanted(item)) {
                pending_.erase(pending_.begin(), pending_.begin() + static_cast<long>(at));
                return std::move(item);
            }
            if (item.kind != Item::Kind::noise) {
                seen = at;
            }
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        if (left <= 0ms || !readMore(left)) {
            return std::nullopt;
        }
    }
}

std::optional<Bytes> Client::waitFor(std::uint16_t classId, std::chrono::milliseconds limit)
{
    auto frame = waitForFrame([classId](const Item& item) { return item.classId == classId; }, limit);
    return frame ? std::optional(std::move(frame->payload)) : std::nullopt;
}

std::optional<Bytes> Client::poll(std::string_view classAndId, std::string_view payload,
                                  std::chrono::milliseconds limit)
{
    send(classAndId, payload);
    const Bytes which = testsupport::bytes(classAndId);
    auto reply = waitFor(static_cast<std::uint16_t>(which[0] * 256 + which[1]), limit);
    if (reply && which[0] == 0x06) {
        waitFor(0x0501, limit);
    }
    return reply;
}

std::optional<bool> Client::set(std::string_view classAndId, std::string_view payload)
{
    send(classAndId, payload);
    const Bytes which = testsupport::bytes(classAndId);
    const auto answer = waitForFrame(
        [&which](const Item& item) { return item.classId >> 8 == 0x05 && item.payload == which; }, kPatience);
    return answer ? std::optional(answer->classId == 0x0501) : std::nullopt;
}

std::vector<Item> Client::collect(std::chrono::milliseconds quiet)
{
    while (readMore(quiet)) {
    }
    return split(std::exchange(pending_, {}));
}

std::vector<Item> Client::listen(std::chrono::milliseconds time)
{
    const auto end = Clock::now() + time;
    while (Clock::now() < end) {
        readMore(std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()));
    }
    return split(std::exchange(pending_, {}));
}

bool Client::waitForText(const std::string& text, std::chrono::milliseconds limit)
{
    const auto end = Clock::now() + limit;
    while (Clock::now() < end) {
        const std::string all(pending_.begin(), pending_.end());
        if (all.find(text) != std::string::npos) {
            pending_.clear();
            return true;
        }
        readMore(100ms);
    }
    return false;
}

std::uint64_t number(const Bytes& payload, std::size_t offset, std::size_t width)
{
    std::uint64_t value = 0;
    for (std::size_t i = width; i > 0; --i) {
        value = value * 256 + payload.at(offset + i - 1);
    }
    return value;
}

std::int64_t signedNumber(const Bytes& payload, std::size_t offset, std::size_t width)
{
    const std::uint64_t value = number(payload, offset, width);
    const std::uint64_t half = std::uint64_t{1} << (8 * width - 1);
    return value < half ? static_cast<std::int64_t>(value)
                        : static_cast<std::int64_t>(value - half) - static_cast<std::int64_t>(half);
}

} // namespace client
