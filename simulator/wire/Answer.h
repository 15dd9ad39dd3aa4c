#pragma once

#include "simulator/wire/Frame.h"

#include <vector>

namespace ubxsim
{

enum class Acknowledge
{
    none,
    ack,
    nak
};

/// What a receiver says to one request, in the order in which it says it.
struct Answer
{
    std::vector<Bytes> notices; // sentences ahead of the rest
    std::vector<Frame> replies;
    Acknowledge acknowledge = Acknowledge::none;

    static Answer acked() { return {{}, {}, Acknowledge::ack}; }
    static Answer refused() { return {{}, {}, Acknowledge::nak}; }
    static Answer silence() { return {}; }
    static Answer acked(Frame reply) { return {{}, {std::move(reply)}, Acknowledge::ack}; }
    static Answer only(Frame reply) { return {{}, {std::move(reply)}, Acknowledge::none}; }
};

} // namespace ubxsim
