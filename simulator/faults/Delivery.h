#pragma once

#include "simulator/faults/Script.h"
#include "simulator/wire/Answer.h"
#include "simulator/wire/OutputLine.h"

namespace ubxsim
{

/// An answer made ready for the line.
struct Delivery
{
    std::vector<Transmission> transmissions;
    std::chrono::microseconds delay{0};
    bool afterTheNext = false; // out of order
};

/// The answer to a request of this class and id as the faults have it. `trailer` follows a reply without
/// acknowledgement.
Delivery prepare(std::uint16_t classId, const Answer& answer, const std::vector<Fault>& faults, const Bytes& trailer);

} // namespace ubxsim
