#pragma once

#include "simulator/ReceiverSimulator.h"

#include <optional>
#include <string>
#include <vector>

namespace ubxsim
{

/// What the program was asked to do.
struct CommandLine
{
    SimulatorOptions simulator;
    std::vector<Action> actions;
    std::string replayFile; // not empty: replay this instead of simulating
    std::string link;
};

enum ExitCode : int
{
    kDone = 0,
    kFailed = 1,
    kUsageError = 2
};

/// Reads the arguments. Empty when there is nothing more to do: help was asked for, or the arguments are wrong and that
/// has been said; `exitCode` then tells which.
std::optional<CommandLine> readCommandLine(int argc, char** argv, int& exitCode);

} // namespace ubxsim
