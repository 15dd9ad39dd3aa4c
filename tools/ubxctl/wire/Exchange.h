#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "wire/Bytes.h"

namespace ubxctl
{

struct Poll
{
    std::uint16_t classId;
    Bytes payload = {};
};

/// What came of a poll.
struct Answer
{
    int status = 0; ///< 0; 1 refused by the receiver; 4 no reply; 8 not written
    Bytes payload = {};
};

/// Asks the receiver for messages that the control interface has no operation for. Sleeps while it waits, so that a
/// watch of hours costs nothing, and can be interrupted.
class Exchange
{
public:
    using Clock = std::chrono::steady_clock;

    virtual ~Exchange() = default;

    Answer ask(const Poll& poll) { return askAll({poll}).front(); }

    /// Sends all polls at once and waits for the replies together. The device is open only meanwhile.
    virtual std::vector<Answer> askAll(const std::vector<Poll>& polls) = 0;
};

/// By way of the receiver's serial port.
class SerialExchange : public Exchange
{
public:
    /// @param interrupted  asked now and then; true ends a wait at once.
    explicit SerialExchange(
        Clock::duration timeLimit, std::function<bool()> interrupted = [] { return false; });

    std::vector<Answer> askAll(const std::vector<Poll>& polls) override;

private:
    Clock::duration timeLimit_;
    std::function<bool()> interrupted_;
};

} // namespace ubxctl
