#include "Expectation.h"

namespace soak
{

namespace
{

// Bits of the status.
constexpr int kMismatch = 1;
constexpr int kNoReply = 4;
constexpr int kNotSent = 8;

/// What a read-back finds.
enum class Found
{
    whatIsThere,
    zeros,
    nothing
};

struct Row
{
    Group group;
    int query, itemQuery, set, verifiedSet, verifiedItemSet, pollModifySend;
    bool isSet;         ///< whether what a command sends is applied
    bool isModifiedSet; ///< the same of a poll-modify-send command
    Found found;
    double clockSpeed;
};

constexpr int kLost = kNoReply;
constexpr double kNormal = 1;
constexpr double kFast = 200;     // nothing will come
constexpr double kRatherFast = 4; // something will come, and is taken at the end: leave it the time on a busy machine

constexpr Row kRows[kGroups] = {
    {Group::none, 0, 0, 0, 0, 0, 0, true, true, Found::whatIsThere, kNormal},
    {Group::harmless, 0, 0, 0, 0, 0, 0, true, true, Found::whatIsThere, kNormal},
    {Group::goodCopy, 0, 0, 0, 0, 0, 0, true, true, Found::whatIsThere, kRatherFast},
    {Group::noReply, kLost, kLost, 0, kLost, kLost, kLost, true, false, Found::nothing, kFast},
    {Group::setLost, 0, 0, 0, 0, 0, 0, false, false, Found::whatIsThere, kNormal},
    {Group::shortReply, 0, 0, 0, 0, 0, 0, true, false, Found::zeros, kNormal},
    {Group::lineFull, kNotSent, kLost, 0, kNotSent, kLost, kNotSent, false, false, Found::nothing, kFast},
    {Group::deviceGone, kNotSent, kLost, 0, kNotSent, kLost, kNotSent, false, false, Found::nothing, kFast},
    {Group::restart, kLost, kLost, 0, kLost, kLost, kLost, false, false, Found::nothing, kFast},
    {Group::powerFailure, 0, 0, 0, 0, 0, 0, true, true, Found::whatIsThere, kNormal},
};

int statusOf(const Row& row, Kind kind)
{
    switch (kind) {
    case Kind::query:
        return row.query;
    case Kind::itemQuery:
        return row.itemQuery;
    case Kind::set:
        return row.set;
    case Kind::verifiedSet:
        return row.verifiedSet;
    case Kind::verifiedItemSet:
        return row.verifiedItemSet;
    case Kind::pollModifySend:
        return row.pollModifySend;
    case Kind::identification:
        break;
    }
    return 0;
}

void apply(const Operation& operation, Arguments arguments, const Knowledge& before, Settings& settings)
{
    if (operation.change != nullptr) operation.change(settings, arguments);
    if (operation.special == Operation::Special::load) settings = before.saved;
}

bool readsAsWanted(const Operation& operation, Arguments arguments, Found found, const Settings& settings)
{
    const Settings zeros{};
    switch (found) {
    case Found::whatIsThere:
        return operation.asWanted(settings, arguments);
    case Found::zeros:
        return operation.asWanted(zeros, arguments);
    case Found::nothing:
        break;
    }
    return operation.readsNumber && operation.asWanted(zeros, arguments);
}

} // namespace

Expectation expectationOf(const Operation& operation, Arguments arguments, Group group, const Knowledge& before)
{
    const Row& row = kRows[static_cast<std::size_t>(group)];
    Expectation expected;
    expected.clockSpeed = row.clockSpeed;
    expected.settings = group == Group::powerFailure ? before.saved : before.settings;

    const bool isWritten = group != Group::lineFull && group != Group::deviceGone;
    const bool isApplied = operation.kind == Kind::pollModifySend ? row.isModifiedSet : row.isSet;
    if (isApplied) apply(operation, arguments, before, expected.settings);
    // The time pulses have messages of their own, which no fault concerns.
    if (operation.special == Operation::Special::setsTimePulses && isWritten) {
        expected.settings[cableDelay] = before.templateDelay;
    }

    expected.status = statusOf(row, operation.kind);
    if (operation.asWanted != nullptr && !readsAsWanted(operation, arguments, row.found, expected.settings)) {
        expected.status |= kMismatch;
    }
    if (group == Group::restart) expected.settings = before.saved;
    expected.isFound = row.query == 0 && row.found == Found::whatIsThere;
    expected.shows = expected.isFound && operation.expected != nullptr;
    return expected;
}

} // namespace soak
