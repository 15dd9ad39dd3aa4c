// Commands about ubxctl itself: help man, help completion.

#include <CLI/CLI.hpp>

#include "commandline/Command.h"
#include "commandline/CommandLine.h"
#include "help/Completion.h"
#include "help/ManualPage.h"

namespace ubxctl
{

namespace
{

using Text = std::string (*)(const CLI::App&);

std::function<Action(CLI::App&)> printing(const char* command, Text text)
{
    return plain([command, text](Session&) {
        CommandLine line;
        std::string whole = text(line.app());
        Outcome outcome{Report(command)};
        outcome.report.data("text", whole);
        whole.pop_back(); // the line ends itself
        outcome.report.line(whole);
        return outcome;
    });
}

} // namespace

std::vector<Command> helpCommands()
{
    return {{"help man", "The manual page, for: man -l -",
             printing("help man", [](const CLI::App& app) { return manualPage(app, UBXCTL_VERSION); })},
            {"help completion", "The completion of bash, for: source <(ubxctl help completion)",
             printing("help completion", bashCompletion)}};
}

} // namespace ubxctl
