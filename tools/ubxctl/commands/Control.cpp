// Commands that run, stop and store: antenna, save, load, reset, restart, on, off, defaults.

#include <sstream>

#include "commandline/Command.h"
#include "commands/Write.h"
#include "session/Failure.h"

namespace ubxctl
{

namespace
{

std::function<Action(CLI::App&)> restarting(const char* command, bool hot)
{
    return plain([command, hot](Session& session) {
        return write(session, command, [hot](UBXControlInterface& control) { return control.restart(hot); });
    });
}

/// The receiver counts as on by its second time pulse, which the search leaves alone.
std::function<Action(CLI::App&)> switching(const char* command, int (UBXControlInterface::*operation)(),
                                           const char* advice)
{
    return plain([command, operation, advice](Session& session) {
        Outcome outcome =
            write(session, command, [operation](UBXControlInterface& control) { return (control.*operation)(); });
        if (outcome.status == kRefused) outcome.advice = advice;
        return outcome;
    });
}

/// The board switches it, so the receiver need not be known.
std::function<Action(CLI::App&)> supplying(const char* command, const char* state)
{
    return plain([command, state](Session& session) {
        Outcome outcome{Report(command)};
        outcome.status = session.receiver().control().setAntennaPower(state);
        outcome.report.data("result", resultWord(outcome.status));
        outcome.report.line(resultWord(outcome.status));
        return outcome;
    });
}

/// The library prints the record byte by byte.
Outcome resetInfo(Session& session)
{
    session.console().takeLibraryOutput();
    Outcome outcome = write(session, "reset info", [](UBXControlInterface& control) { return control.getResetInfo(); });
    Json bytes = Json::array();
    std::string shown;
    std::istringstream lines(session.console().takeLibraryOutput());
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("0x", 0) != 0) continue;
        bytes.push_back(line);
        shown += (shown.empty() ? "" : " ") + line;
    }
    outcome.report.fact("Record", "record", bytes, shown.empty() ? "none" : shown);
    return outcome;
}

} // namespace

std::vector<Command> controlCommands()
{
    using Control = UBXControlInterface;
    return {
        {"antenna on", "Switch the antenna supply on", supplying("antenna on", "ON")},
        {"antenna off", "Switch the antenna supply off", supplying("antenna off", "OFF")},
        {"save", "Store the present settings, so that they outlast a power cut", writing("save", &Control::save)},
        {"load", "Load the stored settings", writing("load", &Control::load)},
        {"reset factory", "Clear the stored settings, apply the library's, store those",
         writing("reset factory", &Control::resetFactoryDefaults)},
        {"reset receiver", "Clear the stored settings, then store the present ones",
         writing("reset receiver", &Control::resetUbloxDefaults)},
        {"reset info", "Ask for the reset record; on a ZED-F9T this resets the receiver", plain(resetInfo)},
        {"restart hot", "Restart the satellite search with what is known", restarting("restart hot", true)},
        {"restart cold", "Restart the satellite search from nothing", restarting("restart cold", false)},
        {"on", "Start the satellite search",
         switching("on", &Control::turnOn,
                   "the search was started, but the second time pulse, by which the receiver counts as on, is off; "
                   "try: ubxctl timepulse set 2 on")},
        {"off", "Stop the satellite search",
         switching("off", &Control::turnOff,
                   "the search was stopped, but the second time pulse, by which the receiver counts as on, still is; "
                   "try: ubxctl timepulse set 2 off")},
        {"defaults library", "Apply the library's defaults: GPS only, survey-in of three hours, 28 ns of cable",
         writing("defaults library", &Control::setDefaultConfiguration)},
        {"defaults application", "Apply the defaults of an application that moves",
         writing("defaults application", &Control::setApplicationDefaults)},
    };
}

} // namespace ubxctl
