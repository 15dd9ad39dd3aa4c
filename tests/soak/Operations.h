#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <UBXControlInterface.h>

#include "Settings.h"

namespace soak
{

/// What an operation does on the line. It decides what a fault makes of its status.
enum class Kind
{
    query,           ///< polls a message
    itemQuery,       ///< polls an item: a poll that can't be written counts as one without a reply
    set,             ///< sends, and looks at nothing
    verifiedSet,     ///< sends, then polls a message and compares
    verifiedItemSet, ///< sends, then polls an item and compares
    pollModifySend,  ///< polls, and sends what came with a change
    identification   ///< a new facade: shows which model it found
};

/// Arguments, as many as the operation has.
struct Arguments
{
    long first = 0;
    long second = 0;
};

struct Operation
{
    const char* name;
    Kind kind;
    std::uint16_t poll; ///< the message that it polls, 0 for none
    std::uint16_t set;  ///< the message that it sets, 0 for none

    /// Does it; a query shows what came.
    int (*run)(UBXControlInterface& control, Arguments arguments, std::string& shown);

    Arguments lowest = {};
    Arguments highest = {};

    /// What the receiver holds when its set has been applied.
    void (*change)(Settings& settings, Arguments arguments) = nullptr;
    /// Whether the settings, read back, are as wanted.
    bool (*asWanted)(const Settings& settings, Arguments arguments) = nullptr;
    /// What a query shows of the settings; null where that is not followed.
    std::string (*expected)(const Settings& settings) = nullptr;

    enum class Special
    {
        none,
        save,
        load,
        setsTimePulses ///< with messages: with the cable delay that was last asked for
    };
    Special special = Special::none;
    /// It reads back into a number, which is 0 when no reply comes; a text is empty then.
    bool readsNumber = false;
};

/// All that are tried this way.
const std::vector<Operation>& operationsOf(Drive drive);

} // namespace soak
