#include "simulator/faults/Script.h"

#include <algorithm>

namespace ubxsim
{

namespace
{

bool isDelivery(FaultKind kind)
{
    return kind >= FaultKind::checksum;
}

bool concerns(const Fault& fault, std::uint16_t classId, bool isPoll)
{
    const bool request = fault.requests == RequestKind::any || (fault.requests == RequestKind::poll) == isPoll;
    return request && (fault.classId == kEveryMessage || fault.classId == classId);
}

// A fault that speaks of polls or sets only can't wait for the other sort.
bool canHappen(const Fault& fault, bool isPoll)
{
    switch (fault.kind) {
    case FaultKind::keepValue:
        return !isPoll;
    case FaultKind::answerWith:
        return isPoll;
    default:
        return true;
    }
}

} // namespace

void Script::add(Fault fault)
{
    if (fault.times != 0) {
        faults_.push_back(std::move(fault));
    }
}

std::optional<Fault> Script::takeOutcome(std::uint16_t classId, bool isPoll)
{
    const auto found = std::find_if(faults_.begin(), faults_.end(), [&](const Fault& fault) {
        return !isDelivery(fault.kind) && concerns(fault, classId, isPoll) && canHappen(fault, isPoll);
    });
    if (found == faults_.end()) {
        return std::nullopt;
    }
    Fault taken = *found;
    if (found->times > 0 && --found->times == 0) {
        faults_.erase(found);
    }
    return taken;
}

std::vector<Fault> Script::takeDelivery(std::uint16_t classId, bool isPoll)
{
    std::vector<Fault> taken;
    for (auto fault = faults_.begin(); fault != faults_.end();) {
        const bool sameKindTaken =
            std::any_of(taken.begin(), taken.end(), [&](const Fault& other) { return other.kind == fault->kind; });
        if (!isDelivery(fault->kind) || sameKindTaken || !concerns(*fault, classId, isPoll)) {
            ++fault;
            continue;
        }
        taken.push_back(*fault);
        fault = fault->times > 0 && --fault->times == 0 ? faults_.erase(fault) : std::next(fault);
    }
    return taken;
}

} // namespace ubxsim
