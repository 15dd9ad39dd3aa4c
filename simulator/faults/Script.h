#pragma once

#include "simulator/wire/Frame.h"

#include <chrono>
#include <list>
#include <optional>

namespace ubxsim
{

enum class FaultKind
{
    // What becomes of the request. At most one of these counts per request.
    ignore,      // neither applied nor answered
    refuse,      // not applied, ACK-NAK
    keepValue,   // a set is acknowledged and not applied
    answerWith,  // a poll is answered with `bytes` as the payload
    answerRaw,   // `bytes` instead of any answer
    losePower,   // the supply fails in the middle of the save that this request asks for
    hangUp,      // the device goes away instead of an answer
    restart,     // the receiver starts anew instead of answering
                 // How the answer is delivered. One of each kind counts per answer.
    checksum,    // the first frame of the answer has a wrong checksum
    truncate,    // the first frame ends after `size` bytes
    wrongLength, // the length field of the first frame is `size` too large
    precede,     // `bytes` come before the answer
    late,        // the answer comes after `delay`
    twice,       // the whole answer is sent again
    outOfOrder,  // the answer comes after the answer to the next request
    pieces,      // the answer comes in pieces of `size` bytes, `delay` apart
};

enum class RequestKind
{
    any,
    poll,
    set
};

inline constexpr std::uint16_t kEveryMessage = 0;

/// A fault to play for requests of one class and id.
struct Fault
{
    std::uint16_t classId = kEveryMessage;
    FaultKind kind = FaultKind::ignore;
    int times = -1; // for ever when negative
    RequestKind requests = RequestKind::any;
    Bytes bytes;
    std::size_t size = 0;
    std::chrono::microseconds delay{0};
};

/// The faults still to be played, in the order given.
class Script
{
public:
    void add(Fault fault);
    void clear() { faults_.clear(); }

    /// What becomes of this request: the first fault of that sort; empty for the usual thing.
    std::optional<Fault> takeOutcome(std::uint16_t classId, bool isPoll);
    /// How the answer to it is delivered.
    std::vector<Fault> takeDelivery(std::uint16_t classId, bool isPoll);

private:
    std::list<Fault> faults_;
};

} // namespace ubxsim
