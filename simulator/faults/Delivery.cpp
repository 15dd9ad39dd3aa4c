#include "simulator/faults/Delivery.h"

#include <algorithm>

namespace ubxsim
{

namespace
{

constexpr std::uint16_t kAckNak = 0x0500;
constexpr std::uint16_t kAckAck = 0x0501;
constexpr std::size_t kLengthOffset = 4;

void spoil(Bytes& whole, const std::vector<Fault>& faults)
{
    for (const Fault& fault : faults) {
        if (fault.kind == FaultKind::checksum) {
            whole.back() = static_cast<std::uint8_t>(whole.back() ^ 0xFF);
        } else if (fault.kind == FaultKind::wrongLength) {
            whole[kLengthOffset] = static_cast<std::uint8_t>(whole[kLengthOffset] + fault.size);
        }
    }
    for (const Fault& fault : faults) {
        if (fault.kind == FaultKind::truncate) {
            whole.resize(std::min(whole.size(), fault.size));
        }
    }
}

Bytes joined(const std::vector<Transmission>& transmissions)
{
    Bytes all;
    for (const Transmission& transmission : transmissions) {
        all.insert(all.end(), transmission.bytes.begin(), transmission.bytes.end());
    }
    return all;
}

const Fault* find(const std::vector<Fault>& faults, FaultKind kind)
{
    const auto found =
        std::find_if(faults.begin(), faults.end(), [kind](const Fault& fault) { return fault.kind == kind; });
    return found != faults.end() ? &*found : nullptr;
}

} // namespace

Delivery prepare(std::uint16_t classId, const Answer& answer, const std::vector<Fault>& faults, const Bytes& trailer)
{
    std::vector<Transmission> good;
    for (const Frame& reply : answer.replies) {
        good.push_back({frame(reply.classId, reply.payload)});
    }
    if (answer.acknowledge != Acknowledge::none) {
        const Bytes which = {static_cast<std::uint8_t>(classId >> 8), static_cast<std::uint8_t>(classId & 0xFF)};
        good.push_back({frame(answer.acknowledge == Acknowledge::ack ? kAckAck : kAckNak, which)});
    }

    Delivery delivery;
    if (const Fault* precede = find(faults, FaultKind::precede)) {
        delivery.transmissions.push_back({precede->bytes});
    }
    for (const Bytes& notice : answer.notices) {
        delivery.transmissions.push_back({notice});
    }
    std::vector<Transmission> first = good;
    if (!first.empty()) {
        spoil(first.front().bytes, faults);
    }
    delivery.transmissions.insert(delivery.transmissions.end(), first.begin(), first.end());
    if (find(faults, FaultKind::twice) != nullptr) {
        delivery.transmissions.insert(delivery.transmissions.end(), good.begin(), good.end());
    }
    if (!answer.replies.empty() && answer.acknowledge == Acknowledge::none) {
        delivery.transmissions.push_back({trailer});
    }
    if (const Fault* pieces = find(faults, FaultKind::pieces)) {
        delivery.transmissions = {
            {joined(delivery.transmissions), std::max<std::size_t>(1, pieces->size), pieces->delay}};
    }
    if (const Fault* late = find(faults, FaultKind::late)) {
        delivery.delay = late->delay;
    }
    delivery.afterTheNext = find(faults, FaultKind::outOfOrder) != nullptr;
    return delivery;
}

} // namespace ubxsim
