#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "Knowledge.h"

namespace soak
{

using Change = void (*)(Knowledge& knowledge, Arguments arguments);
using Check = bool (*)(const Settings& settings, Arguments arguments);

/// One thing that an operation does on the line. It decides what a fault makes of the status.
struct Step
{
    enum class Kind
    {
        query,          ///< polls a message
        itemQuery,      ///< polls an item: a poll that can't be written counts as one without a reply
        set,            ///< sends, and looks at nothing
        modify,         ///< polls, and sends what came with a change
        identification, ///< a new facade asks which model it has: a failure only means the older one
        refusal         ///< nothing is sent, and the status is 1
    };
    enum class When
    {
        always,
        afterSuccess, ///< only when the poll before it was answered
        afterFailure  ///< only when it was not
    };

    Kind kind = Kind::query;
    std::uint16_t message = 0;

    /// How many frames it sends instead of one.
    unsigned (*frames)(Arguments arguments) = nullptr;
    /// What the receiver holds when this has reached it.
    Change change = nullptr;
    /// What the library keeps, whatever becomes of the message.
    Change remember = nullptr;
    /// Whether the settings, read back, are as wanted.
    Check asWanted = nullptr;
    /// What a poll's reply brings for the later steps.
    Change notes = nullptr;

    When when = When::always;
    /// Its failure is only logged.
    bool onlyLogged = false;
    /// It reads back into a number, which is 0 when no reply comes; a text is empty then.
    bool readsNumber = false;
    /// Instead of those of the operation.
    std::optional<Arguments> arguments = {};

    bool isPoll() const { return kind != Kind::set && kind != Kind::refusal; }
    bool isSet() const { return kind == Kind::set || kind == Kind::modify; }
};

using Steps = std::vector<Step>;

inline constexpr std::uint16_t kPosllh = 0x0102, kPvt = 0x0107, kSat = 0x0135, kVer = 0x0A04, kPrt = 0x0600,
                               kMsg = 0x0601, kRst = 0x0604, kRate = 0x0608, kCfg = 0x0609, kRxm = 0x0611,
                               kSbas = 0x0616, kNavx5 = 0x0623, kNav5 = 0x0624, kTp5 = 0x0631, kItfm = 0x0639,
                               kPm2 = 0x063B, kTmode2 = 0x063D, kGnss = 0x063E, kValset = 0x068A, kValget = 0x068B;

inline Step query(std::uint16_t message, Check asWanted = nullptr)
{
    Step step{Step::Kind::query, message};
    step.asWanted = asWanted;
    return step;
}

inline Step itemQuery(Check asWanted = nullptr)
{
    Step step{Step::Kind::itemQuery, kValget};
    step.asWanted = asWanted;
    return step;
}

/// A poll of which only what it brings counts.
inline Step note(std::uint16_t message, Change notes)
{
    Step step{Step::Kind::query, message};
    step.notes = notes;
    step.onlyLogged = true;
    return step;
}

inline Step set(std::uint16_t message, Change change = nullptr, Change remember = nullptr)
{
    Step step{Step::Kind::set, message};
    step.change = change;
    step.remember = remember;
    return step;
}

inline Step modify(std::uint16_t message, Change change)
{
    Step step{Step::Kind::modify, message};
    step.change = change;
    return step;
}

template <unsigned frames>
Step times(Step step)
{
    step.frames = [](Arguments) { return frames; };
    return step;
}

inline Step only(Step::When when, Step step)
{
    step.when = when;
    return step;
}

inline Step intoNumber(Step step)
{
    step.readsNumber = true;
    return step;
}

/// With these arguments, for the steps that have none of their own yet.
inline Steps with(Arguments arguments, Steps steps)
{
    for (Step& step : steps)
        if (!step.arguments) step.arguments = arguments;
    return steps;
}

inline Steps together(const std::vector<Steps>& parts)
{
    Steps all;
    for (const Steps& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace soak
