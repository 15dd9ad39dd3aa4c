#pragma once

#include "Faults.h"

namespace soak
{

/// What an operation must come to.
struct Expectation
{
    int status = 0;
    bool shows = false;    ///< whether what a query shows is to be compared
    bool isFound = true;   ///< of an identification: it finds the model
    Settings settings{};   ///< what the receiver holds afterwards
    double clockSpeed = 1; ///< for the library's clock: time limits that run out cost no time
};

/// What the receiver and the library hold before it.
struct Knowledge
{
    Settings settings{};
    Settings saved{};
    long templateDelay = 0; ///< the cable delay that goes along with a time pulse by message
};

/// The same for every drive: what the fault does to the exchange, and what the exchange does to the status.
Expectation expectationOf(const Operation& operation, Arguments arguments, Group group, const Knowledge& before);

} // namespace soak
