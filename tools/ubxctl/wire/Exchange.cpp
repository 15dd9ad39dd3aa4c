#include "wire/Exchange.h"

#include <algorithm>
#include <array>
#include <thread>

#include <UBXMessage.h>
#include <ubxIO.h>

#include "session/Failure.h"
#include "wire/Stream.h"

namespace ubxctl
{

namespace
{

constexpr auto kPause = std::chrono::milliseconds(5);

/// Which poll a frame settles, and how.
void settle(const Piece& frame, const std::vector<Poll>& polls, std::vector<std::optional<Answer>>& answers)
{
    const bool refusal = frame.classId() == UBX_ACK_NAK;
    const Bytes payload = frame.payload();
    const auto refused =
        static_cast<std::uint16_t>(numberAt<std::uint8_t>(payload, 0) << 8 | numberAt<std::uint8_t>(payload, 1));
    for (std::size_t i = 0; i < polls.size(); ++i) {
        if (answers[i].has_value() || polls[i].classId != (refusal ? refused : frame.classId())) continue;
        answers[i] = refusal ? Answer{kRefused} : Answer{kDone, payload};
        return;
    }
}

} // namespace

SerialExchange::SerialExchange(Clock::duration timeLimit, std::function<bool()> interrupted)
    : timeLimit_(timeLimit), interrupted_(std::move(interrupted))
{}

std::vector<Answer> SerialExchange::askAll(const std::vector<Poll>& polls)
{
    std::vector<std::optional<Answer>> answers(polls.size());
    ubxIO port;
    for (std::size_t i = 0; i < polls.size(); ++i) {
        UBXMessage message(polls[i].classId, polls[i].payload.size(), polls[i].payload.data());
        if (port.SendMessage(&message) != 0) answers[i] = Answer{kNotWritten};
    }

    const auto settled = [&] {
        return std::all_of(answers.begin(), answers.end(), [](const auto& answer) { return answer.has_value(); });
    };
    Stream stream;
    std::array<unsigned char, 4096> buffer;
    const auto deadline = Clock::now() + timeLimit_;
    while (!settled() && Clock::now() < deadline && !interrupted_()) {
        const long count = port.ReadFromUART(buffer.data(), static_cast<long>(buffer.size()));
        stream.add(buffer.data(), static_cast<std::size_t>(count));
        while (const auto piece = stream.next()) {
            if (piece->kind == Piece::Kind::ubx) settle(*piece, polls, answers);
        }
        if (count == 0) std::this_thread::sleep_for(kPause);
    }

    std::vector<Answer> all;
    all.reserve(answers.size());
    for (const auto& answer : answers)
        all.push_back(answer.value_or(Answer{kNoReply}));
    return all;
}

} // namespace ubxctl
