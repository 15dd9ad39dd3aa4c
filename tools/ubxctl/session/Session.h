#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "output/Console.h"
#include "output/Report.h"
#include "session/Device.h"
#include "session/Receiver.h"

namespace ubxctl
{

/// What goes for every command.
struct Options
{
    bool json = false;
    bool verbose = false;
    double lockPatience = 0; ///< s
    Language language = Language::automatic;
};

/// Where a session gets its receiver from.
struct Surroundings
{
    /// Claims the device.
    std::function<std::shared_ptr<void>(double patience)> claim;
    /// Identifies the receiver and makes its controller.
    std::function<std::shared_ptr<UBXControlInterface>()> control;
    std::shared_ptr<Exchange> exchange;

    /// The device of this machine.
    static Surroundings real();
};

/// What a command has to say at its end, and how it went.
struct Outcome
{
    Report report;
    int status = 0;
    std::string advice = {}; ///< For standard error when it did not go well; empty: what the status says.
    bool shown = false;      ///< The command has shown everything itself.
};

/// One run of ubxctl: what was asked for, and the receiver once it is needed.
class Session
{
public:
    Session(Options options, Console& console, Surroundings surroundings);

    const Options& options() const { return options_; }
    Console& console() { return console_; }

    /// Claims the device, without a word to the receiver. @throws Failure where that is not possible.
    void claim();

    /// Lets other commands at the receiver for a while: between two looks of a watch that goes on for hours.
    void release() { claim_.reset(); }

    /// Ends that. @return false where another command still uses the receiver after a moment.
    bool reclaim();

    /// Claims the device and identifies the receiver, once.
    Receiver& receiver();

    /// The same for commands that write: a receiver that did not say what it is gets none.
    /// @throws Failure 4 then.
    Receiver& knownReceiver();

    Exchange& exchange() { return *surroundings_.exchange; }

private:
    Options options_;
    Console& console_;
    Surroundings surroundings_;
    std::shared_ptr<void> claim_;
    std::optional<Receiver> receiver_;
};

} // namespace ubxctl
