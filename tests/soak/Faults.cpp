#include "Faults.h"

#include <cstdio>
#include <iterator>

namespace soak
{

namespace
{

// MSG stands for the message.
struct Words
{
    Group group;
    const char* before;
    const char* alsoBefore = nullptr;
};

constexpr Words kForPolls[] = {
    {Group::harmless, "twice MSG polls x1"},
    {Group::harmless, "pieces MSG 3 1ms polls x1"},
    {Group::harmless, "late MSG 20ms polls x1"},
    {Group::harmless, "precede MSG nmea 5 polls x1"},
    {Group::harmless, "precede MSG false-sync 40 polls x1"},
    {Group::harmless, "precede MSG frame NAV-EOE 00 00 00 00 polls x1"},
    {Group::goodCopy, "checksum MSG polls x1", "twice MSG polls x1"},
    {Group::noReply, "ignore MSG polls"},
    {Group::noReply, "refuse MSG polls"},
    {Group::noReply, "checksum MSG polls"},
    {Group::noReply, "truncate MSG 9 polls"},
    {Group::noReply, "wrong-length MSG 200 polls"},
    {Group::noReply, "late MSG 400ms polls"},
    {Group::shortReply, "answer MSG 00 polls"},
    {Group::restart, "restart MSG polls x1"},
};

constexpr Words kForSets[] = {
    {Group::setLost, "ignore MSG sets"},
    {Group::setLost, "refuse MSG sets"},
    {Group::setLost, "keep-value MSG sets"},
};

// Of an operation that polls nothing. (A reset counts neither as a poll nor as a set.)
constexpr Words kForSetsAlone[] = {
    {Group::setLost, "ignore MSG"},
    {Group::setLost, "refuse MSG"},
    {Group::restart, "restart MSG x1"},
};

template <std::size_t size>
const Words& one(const Words (&words)[size], std::mt19937& random)
{
    return words[random() % size];
}

std::string wordsFor(const char* words, std::uint16_t classId)
{
    char message[8];
    std::snprintf(message, sizeof message, "%04X", static_cast<unsigned>(classId));
    std::string result = words;
    result.replace(result.find("MSG"), 3, message);
    return result;
}

Fault fault(const Words& words, std::uint16_t classId)
{
    Fault result{words.group, {wordsFor(words.before, classId)}, {"clear-faults"}};
    if (words.alsoBefore != nullptr) result.before.push_back(wordsFor(words.alsoBefore, classId));
    return result;
}

Fault aroundTheReceiver(std::mt19937& random)
{
    switch (random() % 5) {
    case 0:
        return {Group::lineFull, {"stop-reading"}, {"resume-reading"}};
    case 1:
        return {Group::deviceGone, {"hang-up"}, {"come-back"}};
    case 2:
        return {Group::deviceGone, {}, {}, true};
    case 3:
        return {Group::powerFailure, {"power-loss no-battery"}, {}};
    default:
        return {Group::powerFailure, {"restart"}, {}};
    }
}

} // namespace

const char* nameOf(Group group)
{
    static constexpr const char* kNames[kGroups] = {"none",
                                                    "harmless to the reply",
                                                    "damaged, then a good copy",
                                                    "no reply in time",
                                                    "set not applied",
                                                    "short reply",
                                                    "line full",
                                                    "device gone",
                                                    "restart",
                                                    "power failure"};
    return kNames[static_cast<std::size_t>(group)];
}

Fault chooseFault(const Operation& operation, std::mt19937& random)
{
    const auto chance = random() % 20;
    if (chance < 8) return {};
    if (chance < 10) return aroundTheReceiver(random);
    if (operation.poll == 0) return fault(one(kForSetsAlone, random), operation.set);
    if (operation.set != 0 && chance < 13) return fault(one(kForSets, random), operation.set);
    const Words& words = one(kForPolls, random);
    // Its version is asked for three times at once: when the receiver is back, it may answer the last one.
    if (operation.kind == Kind::identification && words.group == Group::restart) return {};
    return fault(words, operation.poll);
}

} // namespace soak
