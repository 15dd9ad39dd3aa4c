#include "commandline/Command.h"

namespace ubxctl
{

std::vector<CommandGroup> allCommands()
{
    return {{"Look", informationCommands()},
            {"Settings", settingCommands()},
            {"Position and survey", surveyCommands()},
            {"Messages and time pulses", outputCommands()},
            {"Run and store", controlCommands()},
            {"Watch and diagnose", watchCommands()},
            {"Help", helpCommands()}};
}

std::function<Action(CLI::App&)> plain(Action action)
{
    return [action = std::move(action)](CLI::App&) { return action; };
}

} // namespace ubxctl
