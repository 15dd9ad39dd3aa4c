#include "commandline/Command.h"

#include "settings/Quantity.h"

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

std::string seconds(const std::string& text)
{
    constexpr double kMost = 30.0 * 86400;
    const auto number = parseNumber(text);
    return number.has_value() && *number >= 0 && *number <= kMost ? "" : "it takes 0 to 2592000 seconds";
}

} // namespace ubxctl
