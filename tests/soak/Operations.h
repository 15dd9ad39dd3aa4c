#pragma once

#include <string>

#include <UBXControlInterface.h>

#include "Steps.h"

namespace soak
{

struct Operation
{
    const char* name;

    /// Does it; a query shows what came. Null for a new facade, which shows which model it found.
    int (*run)(UBXControlInterface& control, Arguments arguments, std::string& shown);

    /// None where nothing is sent.
    Steps steps = {};

    Arguments lowest = {};
    Arguments highest = {};

    /// What a query shows of the settings; null where that is not followed.
    std::string (*expected)(const Settings& settings) = nullptr;

    /// What the receiver is told before it, as ubxsim takes it: what comes from there would change all the time.
    const char* answer = nullptr;
};

/// All that are tried this way. The first is a query.
const std::vector<Operation>& operationsOf(Drive drive);

} // namespace soak
