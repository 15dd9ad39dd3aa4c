// Commands for what the receiver puts out: rates, sbas, protocols, power, timepulse, group-delay.

#include <cstdio>
#include <memory>

#include <CLI/CLI.hpp>

#include "commandline/Command.h"
#include "commands/Write.h"
#include "monitor/Snapshot.h"
#include "session/Failure.h"
#include "settings/Setting.h"

namespace ubxctl
{

namespace
{

using RateOperation = int (UBXControlInterface::*)(unsigned char);

std::function<Action(CLI::App&)> defineRate(const char* path, RateOperation operation)
{
    return [path, operation](CLI::App& app) {
        const auto rate = std::make_shared<unsigned int>();
        app.add_option("rate", *rate, "Every rate-th solution; 0 puts none out")
            ->required()
            ->check(CLI::Range(0U, 255U));
        return [path, operation, rate](Session& session) {
            return write(session, path, [operation, rate](UBXControlInterface& control) {
                return (control.*operation)(static_cast<unsigned char>(*rate));
            });
        };
    };
}

struct PulseArguments
{
    unsigned int pulse = 0;
    std::string state;
    std::string constellations;
};

Outcome setPulse(Session& session, const PulseArguments& arguments)
{
    Receiver& receiver = session.knownReceiver();
    unsigned short mask = 0;
    if (!arguments.constellations.empty()) {
        mask = parseConstellations(arguments.constellations);
    } else {
        const Reading present = findSetting("constellations")->get(receiver);
        if (present.status != 0) return {Report("timepulse set"), present.status};
        mask = static_cast<unsigned short>(std::get<long>(*present.value));
    }
    Preserved delay(receiver, {"cable-delay"}); // its message holds a delay too
    const auto index = static_cast<unsigned char>(arguments.pulse - 1);
    const bool wanted = arguments.state == "on";
    return write(session, "timepulse set", [&](UBXControlInterface& control) {
        const int status = control.configTimePulse(mask, index, wanted) | delay.restore();
        const std::optional<bool> holds = pulsesOf(receiver)[index];
        if (!holds.has_value()) return status | kNoReply;
        return *holds == wanted ? status : status | kRefused;
    });
}

Action definePulseSet(CLI::App& app)
{
    const auto arguments = std::make_shared<PulseArguments>();
    app.add_option("pulse", arguments->pulse, "1 or 2")->required()->check(CLI::Range(1U, 2U));
    app.add_option("state", arguments->state, "on or off")->required()->check(CLI::IsMember({"on", "off"}));
    app.add_option("--constellations", arguments->constellations,
                   "Choose its time grid for these; without it, for those that are used")
        ->type_name("LIST");
    return [arguments](Session& session) { return setPulse(session, *arguments); };
}

Action definePulseGrid(CLI::App& app)
{
    const auto constellations = std::make_shared<std::string>();
    app.add_option("constellations", *constellations, "Such as GPS,GAL")->required();
    return [constellations](Session& session) {
        constexpr int kGpsGrid = 0x80;
        const unsigned short mask = parseConstellations(*constellations);
        const int flags = session.receiver().control().getUtcGrid(mask);
        Outcome outcome{Report("timepulse grid")};
        outcome.report.text("Time grid", "grid", (flags & kGpsGrid) != 0 ? "GPS" : "UTC");
        char shown[8];
        std::snprintf(shown, sizeof shown, "0x%02X", static_cast<unsigned int>(flags));
        outcome.report.fact("Flags", "flags", flags, shown);
        return outcome;
    };
}

Action defineGroupDelay(CLI::App& app)
{
    const auto delay = std::make_shared<int>();
    app.add_option("delay", *delay, "Nanoseconds")->required();
    app.footer("\nA ZED-F9T gets it as a question, not as a setting, and need not take it. A NEO-M8T gets nothing.");
    return [delay](Session& session) {
        return write(session, "group-delay",
                     [delay](UBXControlInterface& control) { return control.programGroupDelayCal(*delay); });
    };
}

} // namespace

std::vector<Command> outputCommands()
{
    using Control = UBXControlInterface;
    return {
        {"rates ubx", "Rate of the UBX messages that the device listens to",
         defineRate("rates ubx", &Control::configureUbxPolling)},
        {"rates nmea", "Rate of seven NMEA sentences", defineRate("rates nmea", &Control::configureNmeaPolling)},
        {"rates nmea-partial", "Rate of a reduced set of NMEA sentences",
         defineRate("rates nmea-partial", &Control::configurNmeaPollingPartial)},
        {"sbas", "Use SBAS for ranging and corrections", writing("sbas", &Control::configureSBAS)},
        {"protocols", "Make the port put out UBX and NMEA", writing("protocols", &Control::configureProtocols)},
        {"power", "Set up extended power management; a ZED-F9T from TIM 2.20 on has none",
         writing("power", &Control::configExtendedPowerManagment)},
        {"timepulse set", "Switch a time pulse", definePulseSet},
        {"timepulse grid", "The time grid that goes with constellations", definePulseGrid},
        {"group-delay", "Send the group delay of the first time pulse", defineGroupDelay},
    };
}

} // namespace ubxctl
