#pragma once

#include "Faults.h"

namespace soak
{

/// What an operation must come to.
struct Expectation
{
    int status = 0;
    bool shows = false;  ///< whether what a query shows is to be compared
    bool isFound = true; ///< of an identification: it finds the model
    /// What comes to the receiver, in this order, where it can be told.
    std::optional<std::vector<std::uint16_t>> messages = {};
    Knowledge afterwards; ///< what the receiver and the library hold then
    /// Of a save that was cut short: each setting is the one of `afterwards`, or that which was to be saved.
    std::optional<Settings> orElse = {};
    double clockSpeed = 1; ///< for the library's clock: time limits that run out cost no time
};

/// The same for every drive: what the fault does to each step on the line, and what the steps do to the status.
Expectation expectationOf(const Operation& operation, Arguments arguments, const Fault& fault, const Knowledge& before);

} // namespace soak
