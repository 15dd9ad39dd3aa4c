#pragma once

#include <functional>
#include <string>
#include <vector>

#include "session/Session.h"

namespace CLI
{
class App;
}

namespace ubxctl
{

/// What a command does once its arguments are known.
using Action = std::function<Outcome(Session&)>;

/// A row of the table from which come the command line, --help, the manual page and the completion.
struct Command
{
    std::string path; ///< "survey auto": the words that call it
    std::string help; ///< one line, first letter capital, no full stop
    /// Adds the arguments; gives what is done with them.
    std::function<Action(CLI::App&)> define;
};

/// All commands, grouped as they are shown.
struct CommandGroup
{
    std::string title;
    std::vector<Command> commands;
};

std::vector<CommandGroup> allCommands();

// What goes into it.
std::vector<Command> informationCommands();
std::vector<Command> settingCommands();
std::vector<Command> surveyCommands();
std::vector<Command> outputCommands();
std::vector<Command> controlCommands();
std::vector<Command> watchCommands();
std::vector<Command> helpCommands();

/// A command without arguments.
std::function<Action(CLI::App&)> plain(Action action);

/// What is wrong with a number of seconds as typed; nothing when it is 0 to 30 days.
std::string seconds(const std::string& text);

} // namespace ubxctl
