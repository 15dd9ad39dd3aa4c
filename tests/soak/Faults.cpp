#include "Faults.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "Changes.h"

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
    {Group::harmless, "pieces MSG 9 1ms polls x1"},
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
    {Group::restart, "restart MSG polls"},
};

// Of a poll that is the only one and the last of all.
constexpr Words kDeviceLeaves = {Group::deviceLeaves, "hang-up MSG polls x1"};

constexpr Words kForSets[] = {
    {Group::setLost, "ignore MSG sets"},
    {Group::setLost, "refuse MSG sets"},
    {Group::setLost, "keep-value MSG sets"},
};

// Of a message that counts neither as a poll nor as a set, too.
constexpr Words kForSetsOfAllSorts[] = {
    {Group::setLost, "ignore MSG"},
    {Group::setLost, "refuse MSG"},
};

constexpr Words kRestartsInSet = {Group::restart, "restart MSG"};
// At each message anew: on a busy machine the receiver could be back before the last ones.
const Fault kRestartsInAll = {Group::restart, Part::everything, 0, {"restart *"}, {}};

constexpr Words kSaveCutShort = {Group::saveCutShort, "power-loss MSG sets x1"};

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

Fault fault(const Words& words, Part part, std::uint16_t classId)
{
    Fault result{words.group, part, classId, {wordsFor(words.before, classId)}};
    if (words.alsoBefore != nullptr) result.before.push_back(wordsFor(words.alsoBefore, classId));
    if (words.group == Group::deviceLeaves) result.after.push_back("come-back");
    return result;
}

Fault aroundTheReceiver(std::mt19937& random)
{
    constexpr Part part = Part::everything;
    switch (random() % 5) {
    case 0:
        return {Group::lineFull, part, 0, {"stop-reading"}, {"resume-reading"}};
    case 1:
        return {Group::deviceGone, part, 0, {"hang-up"}, {"come-back"}};
    case 2:
        return {Group::deviceGone, part, 0, {}, {}, true};
    case 3:
        return {Group::powerFailure, part, 0, {"power-loss no-battery"}, {}};
    default:
        return {Group::powerFailure, part, 0, {"restart"}, {}};
    }
}

/// Those of all steps, one for each.
std::vector<std::uint16_t> messagesOf(const Operation& operation, bool (Step::*belongs)() const)
{
    std::vector<std::uint16_t> messages;
    for (const Step& step : operation.steps)
        if ((step.*belongs)()) messages.push_back(step.message);
    return messages;
}

bool isOneMessage(Steps::const_iterator first, Steps::const_iterator end)
{
    return std::all_of(first, end, [first](const Step& step) { return step.message == first->message; });
}

Fault faultOfSet(const Operation& operation, std::uint16_t message, bool isAlone, std::mt19937& random)
{
    const auto& steps = operation.steps;
    const bool saves =
        std::any_of(steps.begin(), steps.end(), [](const Step& step) { return step.change == changes::saves; });
    const auto chance = random() % 3;
    if (saves && chance == 0) return fault(kSaveCutShort, Part::sets, kCfg);
    if (isAlone && chance == 1) {
        return isOneMessage(steps.begin(), steps.end()) ? fault(kRestartsInSet, Part::sets, message) : kRestartsInAll;
    }
    if (isAlone || message == kRst) return fault(one(kForSetsOfAllSorts, random), Part::sets, message);
    return fault(one(kForSets, random), Part::sets, message);
}

Fault faultOfPoll(const Operation& operation, const std::vector<std::uint16_t>& polls, std::mt19937& random)
{
    const Words& words = one(kForPolls, random);
    const bool isIdentification = operation.steps[0].kind == Step::Kind::identification;
    if (words.group == Group::restart) {
        // Its version is asked for three times at once: when the receiver is back, it may answer the last one.
        if (isIdentification) return {};
        // No poll is answered then, so that all time limits can be short.
        const auto& steps = operation.steps;
        const auto first = std::find_if(steps.begin(), steps.end(), [](const Step& step) { return step.isPoll(); });
        if (!isOneMessage(first, steps.end())) return kRestartsInAll;
        const bool isLast = polls.size() == 1 && operation.steps.back().isPoll();
        // A reset is written twice, and the second one counts.
        const bool mayLeave = isLast && polls[0] != kRst;
        return fault(mayLeave && random() % 2 == 0 ? kDeviceLeaves : words, Part::polls, polls[0]);
    }
    const bool isMixed =
        std::any_of(polls.begin(), polls.end(), [&](std::uint16_t message) { return message != polls[0]; });
    // Where other replies are waited for, the time limit is longer than a late one takes.
    if (isMixed && std::string(words.before).rfind("late MSG 400ms", 0) == 0) return {};
    return fault(words, Part::polls, polls[random() % polls.size()]);
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
                                                    "device leaves",
                                                    "restart",
                                                    "power failure",
                                                    "save cut short"};
    return kNames[static_cast<std::size_t>(group)];
}

Fault chooseFault(const Operation& operation, const Settings& settings, std::mt19937& random)
{
    const auto chance = random() % 20;
    if (chance < 8) return {};
    if (chance < 10) return aroundTheReceiver(random);
    const std::vector<std::uint16_t> polls = messagesOf(operation, &Step::isPoll);
    const std::vector<std::uint16_t> sets = messagesOf(operation, &Step::isSet);
    if (!sets.empty() && (polls.empty() || chance < 13)) {
        return faultOfSet(operation, sets[random() % sets.size()], polls.empty(), random);
    }
    if (polls.empty()) return {};
    // What the receiver reports by itself comes whatever becomes of the poll.
    if (polls[0] == kSat && settings[satelliteRate] != 0) return {};
    return faultOfPoll(operation, polls, random);
}

} // namespace soak
