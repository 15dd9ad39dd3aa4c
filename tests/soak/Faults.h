#pragma once

#include <random>
#include <string>
#include <vector>

#include "Operations.h"

namespace soak
{

/// Faults that come to the same for whoever asks.
enum class Group
{
    none,
    harmless,    ///< the reply comes all the same
    goodCopy,    ///< the reply is damaged, and a good one follows: it is taken when the time is over
    noReply,     ///< no whole reply comes in time
    setLost,     ///< what is set is not applied
    shortReply,  ///< the reply lacks nearly all of its bytes
    lineFull,    ///< nothing can be written
    deviceGone,  ///< there is no device, or it has hung up
    restart,     ///< the receiver starts anew instead of answering, with what was saved
    powerFailure ///< the receiver has started anew before the operation
};

inline constexpr std::size_t kGroups = 10;

const char* nameOf(Group group);

/// One fault: its words, as ubxsim takes them, for before the operation and for after it.
struct Fault
{
    Group group = Group::none;
    std::vector<std::string> before = {};
    std::vector<std::string> after = {};
    bool noDevice = false; ///< the device node is taken away meanwhile
};

/// A fault for this operation: none at all in two cases of five.
Fault chooseFault(const Operation& operation, std::mt19937& random);

} // namespace soak
