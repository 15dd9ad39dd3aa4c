#pragma once

#include "Child.h"

namespace sandbox
{

/// The exit status when it is not the command that failed: the simulator did not come up, for one.
inline constexpr int kOwnFailure = 125;

/// Runs a command beside a simulated receiver: starts the simulator, waits until it stands behind /dev/tty_gps, runs
/// the command, ends the simulator. Signals to this process go on to the command. To be called inside a sandbox.
/// @param simulator  the program and its arguments, without --link.
/// @return the command's exit status; kOwnFailure, after a word to standard error; 128 and the number of a signal that
///         came while the simulator was starting.
int runWithReceiver(Arguments simulator, const Arguments& command);

} // namespace sandbox
