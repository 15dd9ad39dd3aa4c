#include "queries/Asking.h"

#include <algorithm>
#include <cstdio>

#include "protocol/ReferenceScan.h"

namespace fuzz
{

namespace
{

constexpr int kDone = 0;
constexpr int kNoReply = 4;
constexpr int kEveryStatus = 1 | 4 | 8;
constexpr int kNotSent = 8;

constexpr std::size_t kHeader = 6;
constexpr std::size_t kChecksum = 2;

constexpr std::size_t kFlood = 8192; // a wait of five seconds has room for 5 KiB

Bytes manyTimes(const Bytes& bytes)
{
    Bytes many;
    while (!bytes.empty() && many.size() < kFlood)
        many.insert(many.end(), bytes.begin(), bytes.end());
    return many;
}

/// The n-th write is answered by the n-th answer.
void answerInTurn(const Conversation& conversation)
{
    machine().reset();
    machine().bytesPerRead = conversation.bytesPerRead;
    machine().onWrite = [&conversation, writes = std::size_t{0}](const Bytes&) mutable {
        const Bytes& answer = conversation.answer(writes++);
        machine().receive(conversation.flood ? manyTimes(answer) : answer);
    };
}

void afterwards()
{
    machine().onWrite = nullptr;
    require(machine().openDescriptors == 0, "the port was left open");
}

/// The newest message of this class and id, if there is one.
std::optional<Plain> newest(const protocoltest::Scan& scan, std::uint16_t classId)
{
    for (auto frame = scan.frames.rbegin(); frame != scan.frames.rend(); ++frame) {
        const Bytes bytes = testsupport::bytes(*frame);
        if (bytes[2] * 256U + bytes[3] != classId) continue;
        return Plain(Bytes(bytes.begin() + kHeader, bytes.end() - kChecksum));
    }
    return std::nullopt;
}

} // namespace

std::uint32_t Plain::number(std::size_t at) const
{
    return byte(at) + 256U * byte(at + 1) + 65536U * byte(at + 2) + 16777216U * byte(at + 3);
}

std::string Plain::text(std::size_t at, std::size_t most) const
{
    std::string result;
    while (result.size() < most && byte(at + result.size()) != 0) {
        result += static_cast<char>(byte(at + result.size()));
    }
    return result;
}

std::optional<Plain> awaited(const Bytes& bytes, std::size_t bytesPerRead, std::uint16_t classId)
{
    std::optional<Plain> found;
    bool errored = false;
    for (std::size_t end = 0; end < bytes.size();) {
        end = std::min(bytes.size(), end + bytesPerRead);
        const protocoltest::Scan scan =
            protocoltest::referenceScan(Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(end)));
        found = newest(scan, classId);
        errored = errored || scan.errored != 0;
        if (found.has_value() && !errored) break;
    }
    return found;
}

void check(const Query& query, UBXControlInterface& control, const Conversation& conversation)
{
    answerInTurn(conversation);
    std::string shown;
    const int status = query.ask(control, shown);
    afterwards();
    if (conversation.flood) {
        require(status == kDone || status == kNoReply, std::string(query.name) + " gave " + std::to_string(status));
        return;
    }

    const auto reply = awaited(conversation.answer(0), conversation.bytesPerRead, query.reply);
    const int expectedStatus = reply.has_value() ? kDone : kNoReply;
    const std::string expected = reply.has_value() ? query.expected(*reply) : query.withoutReply;
    require(status == expectedStatus, std::string(query.name) + " gave the status " + std::to_string(status) +
                                          ", not " + std::to_string(expectedStatus));
    require(shown == expected, std::string(query.name) + " gave \"" + shown + "\", not \"" + expected + "\"");
}

void checkSurveyInfo(UBXControlInterface& control, const Conversation& conversation)
{
    constexpr std::uint16_t kCfgTmode2 = 0x063D;
    constexpr std::uint16_t kNavPosllh = 0x0102;

    answerInTurn(conversation);
    unsigned char mode = 99;
    double latitude = 99, longitude = 99, height = 99, accuracy = 99;
    unsigned int duration = 99;
    float limit = 99;
    const int status = control.getSurveyInfo(mode, latitude, longitude, height, accuracy, duration, limit);
    afterwards();
    if (conversation.flood) return;

    const auto settings = awaited(conversation.answer(0), conversation.bytesPerRead, kCfgTmode2);
    const auto position =
        settings.has_value() ? awaited(conversation.answer(1), conversation.bytesPerRead, kNavPosllh) : std::nullopt;
    const auto text = [](unsigned m, double lat, double lon, double h, double acc, unsigned dur, double lim) {
        char line[300];
        std::snprintf(line, sizeof line, "%u %.9g %.9g %.9g %.9g %u %.9g", m, lat, lon, h, acc, dur, lim);
        return std::string(line);
    };
    const auto limitOf = [](const Plain& reply) { return static_cast<float>(reply.number(24)) / 1000.0F; };
    const std::string shown = text(mode, latitude, longitude, height, accuracy, duration, static_cast<double>(limit));
    std::string expected = text(99, 99, 99, 99, 99, 99, 99);
    if (position.has_value()) {
        expected = text(settings->byte(0), position->signedNumber(8) / 1e7, position->signedNumber(4) / 1e7,
                        position->signedNumber(12) / 1000.0, settings->number(16) / 1000.0, settings->number(20),
                        static_cast<double>(limitOf(*settings)));
    } else if (settings.has_value()) {
        expected = text(settings->byte(0), 99, 99, 99, settings->number(16) / 1000.0, settings->number(20),
                        static_cast<double>(limitOf(*settings)));
    }
    require(status == (position.has_value() ? kDone : kNoReply), "getSurveyInfo gave " + std::to_string(status));
    require(shown == expected, "getSurveyInfo gave " + shown + ", not " + expected);
}

void run(Operation operation, UBXControlInterface& control, const Conversation& conversation)
{
    answerInTurn(conversation);
    const int status = operation(control);
    afterwards();
    require((status & ~kEveryStatus) == 0, "no operation has the status " + std::to_string(status));
    require((status & kNotSent) == 0, "all was written, and yet the status is " + std::to_string(status));
}

} // namespace fuzz
