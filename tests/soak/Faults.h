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
    harmless,     ///< the reply comes all the same
    goodCopy,     ///< the reply is damaged, and a good one follows: it is taken when the time is over
    noReply,      ///< no whole reply comes in time
    setLost,      ///< what is set is not applied
    shortReply,   ///< the reply lacks nearly all of its bytes
    lineFull,     ///< nothing can be written
    deviceGone,   ///< there is no device, or it has hung up
    deviceLeaves, ///< it hangs up instead of answering
    restart,      ///< the receiver starts anew instead of answering, with what was saved
    powerFailure, ///< the receiver has started anew before the operation
    saveCutShort  ///< the supply fails in the middle of a save, and the receiver starts anew
};

inline constexpr std::size_t kGroups = 12;

const char* nameOf(Group group);

/// What of a message a fault meets.
enum class Part
{
    polls,
    sets,
    everything ///< of all messages
};

/// One fault: its words, as ubxsim takes them, for before the operation and for after it.
struct Fault
{
    Group group = Group::none;
    Part part = Part::everything;
    std::uint16_t message = 0;
    std::vector<std::string> before = {};
    std::vector<std::string> after = {};
    bool noDevice = false; ///< the device node is taken away meanwhile
};

/// A fault for this operation: none at all in two cases of five.
Fault chooseFault(const Operation& operation, const Settings& settings, std::mt19937& random);

} // namespace soak
