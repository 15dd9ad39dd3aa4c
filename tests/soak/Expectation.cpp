#include "Expectation.h"

#include <algorithm>

#include "Changes.h"

namespace soak
{

namespace
{

// Bits of the status.
constexpr int kMismatch = 1;
constexpr int kNoReply = 4;
constexpr int kNotSent = 8;

/// What a poll finds.
enum class Found
{
    whatIsThere,
    zeros,
    nothing
};

/// What a fault makes of a step that it meets.
struct Row
{
    Group group;
    int query, itemQuery;
    bool isSet; ///< whether what is sent is applied
    Found found;
    double clockSpeed;
};

constexpr double kNormal = 1;
constexpr double kVeryFast = 1000; // nothing will come, and it must be over before the receiver is there again
constexpr double kFast = 200;      // nothing will come
constexpr double kRatherFast = 2;  // something will come: leave it the time on a busy machine

constexpr Row kRows[kGroups] = {
    {Group::none, 0, 0, true, Found::whatIsThere, kNormal},
    {Group::harmless, 0, 0, true, Found::whatIsThere, kNormal},
    {Group::goodCopy, 0, 0, true, Found::whatIsThere, kRatherFast},
    {Group::noReply, kNoReply, kNoReply, true, Found::nothing, kFast},
    {Group::setLost, 0, 0, false, Found::whatIsThere, kNormal},
    {Group::shortReply, 0, 0, true, Found::zeros, kNormal},
    {Group::lineFull, kNotSent, kNoReply, false, Found::nothing, kFast},
    {Group::deviceGone, kNotSent, kNoReply, false, Found::nothing, kFast},
    {Group::deviceLeaves, kNoReply, kNoReply, false, Found::nothing, kFast},
    {Group::restart, kNoReply, kNoReply, false, Found::nothing, kVeryFast},
    {Group::powerFailure, 0, 0, true, Found::whatIsThere, kNormal},
    {Group::saveCutShort, 0, 0, true, Found::whatIsThere, kNormal},
};

/// Goes through an operation's steps as they come on the line.
class Walk
{
public:
    Walk(const Fault& fault, const Knowledge& before) : fault_(fault)
    {
        expected_.afterwards = before;
        expected_.afterwards.found = {};
        expected_.shows = true;
        expected_.clockSpeed = rowOf(fault.group).clockSpeed;
        if (fault.group == Group::powerFailure) expected_.afterwards.settings = before.saved;
    }

    void take(const Step& step, Arguments arguments)
    {
        if (step.when == Step::When::afterSuccess && lastPoll_ != 0) return;
        if (step.when == Step::When::afterFailure && lastPoll_ == 0) return;
        if (step.kind == Step::Kind::refusal) {
            expected_.status |= kMismatch;
            return;
        }
        const Found found = step.isPoll() ? poll(step, arguments) : Found::whatIsThere;
        if (step.isSet() && found != Found::nothing) send(step, arguments, found);
    }

    Expectation end()
    {
        if (isReadAll()) expected_.messages = messages_;
        // As long as something will come, the time limit must leave it the time.
        if (isAnswered_ && isUnanswered_) expected_.clockSpeed = std::min(expected_.clockSpeed, kRatherFast);
        return expected_;
    }

private:
    // Nobody counts what the identification says, in its three tries.
    bool isReadAll() const
    {
        return !isIdentification_ && fault_.group != Group::lineFull && fault_.group != Group::deviceGone &&
               fault_.group != Group::deviceLeaves;
    }

    static const Row& rowOf(Group group) { return kRows[static_cast<std::size_t>(group)]; }

    const Row& rowOf(Part part, std::uint16_t message)
    {
        if (isDown_) return rowOf(Group::restart);
        const bool isMet = fault_.part == Part::everything || (fault_.part == part && fault_.message == message);
        if (isMet && fault_.group == Group::restart) {
            isDown_ = true;
            expected_.afterwards.settings = expected_.afterwards.saved;
        }
        return rowOf(isMet ? fault_.group : Group::none);
    }

    Found poll(const Step& step, Arguments arguments)
    {
        const Row& row = rowOf(Part::polls, step.message);
        write(step, arguments);
        (row.found == Found::nothing ? isUnanswered_ : isAnswered_) = true;
        if (step.kind == Step::Kind::identification) {
            expected_.isFound = row.found == Found::whatIsThere;
            isIdentification_ = true;
            return row.found;
        }
        lastPoll_ = step.kind == Step::Kind::itemQuery ? row.itemQuery : row.query;
        if (!step.onlyLogged) expected_.status |= lastPoll_;
        if (step.notes != nullptr && row.found == Found::whatIsThere) step.notes(expected_.afterwards, arguments);
        if (step.asWanted != nullptr && !readsAsWanted(step, arguments, row.found)) expected_.status |= kMismatch;
        expected_.shows = expected_.shows && row.found == Found::whatIsThere;
        return row.found;
    }

    bool readsAsWanted(const Step& step, Arguments arguments, Found found) const
    {
        const Settings zeros{};
        switch (found) {
        case Found::whatIsThere:
            return step.asWanted(expected_.afterwards.settings, arguments);
        case Found::zeros:
            return step.asWanted(zeros, arguments);
        case Found::nothing:
            break;
        }
        return step.readsNumber && step.asWanted(zeros, arguments);
    }

    void write(const Step& step, Arguments arguments)
    {
        const unsigned frames = step.frames != nullptr ? step.frames(arguments) : 1;
        messages_.insert(messages_.end(), frames, step.message);
    }

    void send(const Step& step, Arguments arguments, Found changed)
    {
        write(step, arguments);
        if (step.remember != nullptr) step.remember(expected_.afterwards, arguments);
        if (!rowOf(Part::sets, step.message).isSet || step.change == nullptr) return;
        if (changed == Found::zeros) return; // what is too short to be changed is too short to be set
        if (fault_.group == Group::saveCutShort && step.change == changes::saves) {
            expected_.orElse = expected_.afterwards.settings;
            expected_.afterwards.settings = expected_.afterwards.saved;
            isDown_ = true;
            return;
        }
        step.change(expected_.afterwards, arguments);
    }

    const Fault& fault_;
    Expectation expected_;
    std::vector<std::uint16_t> messages_;
    int lastPoll_ = 0;
    bool isIdentification_ = false;
    bool isDown_ = false; ///< the receiver, from now on
    bool isAnswered_ = false;
    bool isUnanswered_ = false;
};

} // namespace

Expectation expectationOf(const Operation& operation, Arguments arguments, const Fault& fault, const Knowledge& before)
{
    Walk walk(fault, before);
    for (const Step& step : operation.steps)
        walk.take(step, step.arguments.value_or(arguments));
    Expectation expected = walk.end();
    expected.shows = expected.shows && operation.expected != nullptr;
    return expected;
}

} // namespace soak
