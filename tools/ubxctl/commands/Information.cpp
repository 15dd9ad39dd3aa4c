// Commands that only look: info, status, nav, satellites.

#include <fstream>
#include <memory>
#include <sstream>

#include <CLI/CLI.hpp>
#include <ubloxChipInfo.h>

#include "commandline/Command.h"
#include "commands/SatelliteList.h"
#include "commands/SettingsReport.h"
#include "messages/Navigation.h"
#include "output/AtomicFile.h"
#include "plot/SkyPlot.h"
#include "session/Failure.h"
#include "settings/Quantity.h"

namespace ubxctl
{

namespace
{

void addIdentity(Report& report, const Identity& identity)
{
    if (!identity.isKnown()) {
        report.missing("Receiver", "model", "did not say what it is");
        return;
    }
    report.text("Receiver", "model", identity.modelName());
    report.text("Module", "module", identity.module);
    report.text("Firmware", "firmware", identity.firmware);
    report.text("Protocol", "protocol", identity.protocol);
    report.text("Hardware", "hardware", identity.hardware);
}

std::vector<std::string> split(const std::string& text, const std::string& separator)
{
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t end = text.find(separator); end != std::string::npos; end = text.find(separator, start)) {
        parts.push_back(text.substr(start, end - start));
        start = end + separator.size();
    }
    parts.push_back(text.substr(start));
    return parts;
}

Outcome info(Session& session)
{
    Receiver& receiver = session.receiver();
    Outcome outcome{Report("info")};
    Report& report = outcome.report;
    addIdentity(report, receiver.identity());

    std::string versions;
    outcome.status = receiver.control().getInfo(versions);
    if (outcome.status == kDone) {
        report.fact("Version record", "version_record", split(versions, ": "), versions);
    } else {
        report.missing("Version record", "version_record", "no reply");
    }
    const bool usb = ubloxChipInfo::getUbloxInterfaceInfo() == 0;
    report.text("Connection", "connection", usb ? "usb" : "serial");
    report.text("Log time", "log_time", receiver.control().timeStamp().substr(0, sizeof "HH:MM:SS_mmm" - 1));
    return outcome;
}

/// What the navigation report says, part by part: "2024-03-07T09:05+42:00,3D-FIX,47.3769,8.54169,455.123".
void addNavigation(Report& report, const std::string& what, const std::string& solution)
{
    std::vector<std::string> parts = split(solution, ",");
    std::size_t next = 0;
    const auto take = [&] { return next < parts.size() ? parts[next++] : std::string(); };
    if (what == "ALL" || what == "TIME") {
        std::string time = take();
        // The report separates the seconds with a plus and ends in ":00".
        const std::size_t plus = time.find('+');
        if (plus != std::string::npos) {
            const std::string seconds = time.substr(plus + 1, 2);
            time.resize(plus);
            time += ":" + seconds + "Z";
        }
        report.text("Time", "time_utc", time);
    }
    if (what == "ALL" || what == "FIX") {
        const std::string fix = take();
        report.text("Fix", "fix", fix, fix == "NO-FIX" || fix.empty() ? Tone::bad : Tone::good);
    }
    if (what == "ALL" || what == "POS") {
        // As many digits as the report gives.
        const auto addNumber = [&](const char* label, const char* key, const char* unit) {
            const std::string text = take();
            const auto number = Json::parse(text, nullptr, false);
            report.fact(label, key, number.is_number() ? number : Json(), text + unit);
        };
        addNumber("Latitude", "latitude_deg", " deg");
        addNumber("Longitude", "longitude_deg", " deg");
        addNumber("Height", "height_m", " m");
    }
}

int navigation(Session& session, Report& report, const std::string& what)
{
    std::string solution;
    const int status = session.receiver().control().getNavsolution(what, solution);
    if (status == kDone) addNavigation(report, what, solution);
    return status;
}

Action defineNav(CLI::App& app)
{
    const auto what = std::make_shared<std::string>("all");
    app.add_option("what", *what, "all, time, fix or pos")
        ->check(CLI::IsMember({"all", "time", "fix", "pos"}, CLI::ignore_case))
        ->capture_default_str();
    return [what](Session& session) {
        Outcome outcome{Report("nav")};
        outcome.status = navigation(session, outcome.report, upperCase(*what));
        return outcome;
    };
}

Outcome status(Session& session)
{
    Receiver& receiver = session.receiver();
    Outcome outcome{Report("status")};
    Report& report = outcome.report;
    addIdentity(report, receiver.identity());

    outcome.status = navigation(session, report, "ALL");
    if (outcome.status != kDone) {
        // One that says nothing of its solution is silent: every further question would take its five seconds.
        report.missing("Navigation", "time_utc", "no reply");
        return outcome;
    }
    unsigned char used = 0;
    const int usedStatus = receiver.control().getNofSatellitesInNavSol(used);
    if (usedStatus == kDone) report.whole("Satellites used", "satellites_used", used);
    bool on = false;
    const int onStatus = receiver.control().isOn(on);
    if (onStatus == kDone) report.flag("Receiver is", "on", on, "on", "off (its second time pulse is)");
    outcome.status |= usedStatus | onStatus;
    outcome.status |= addSettings(report, receiver);
    return outcome;
}

Action defineSatellites(CLI::App& app)
{
    const auto plot = std::make_shared<std::string>();
    app.add_option("--plot", *plot, "Draw the sky and the signals into this file (SVG, opens in a browser)")
        ->type_name("FILE.svg");
    return [plot](Session& session) {
        Receiver& receiver = session.receiver();
        Outcome outcome{Report("satellites")};
        std::string lines;
        outcome.status = receiver.control().getSatelliteInfo(lines);
        if (outcome.status != kDone) return outcome;
        unsigned char used = 0;
        outcome.status = receiver.control().getNofSatellitesInNavSol(used);
        if (outcome.status == kDone) outcome.report.whole("Used in the solution", "used", used);
        addSatelliteTable(outcome.report, lines);
        if (plot->empty()) return outcome;

        const std::vector<Answer> answers = receiver.exchange().askAll({{kNavSat}, {kNavPvt}});
        outcome.status |= answers[0].status;
        if (answers[0].status != kDone) return outcome;
        writeAtomically(*plot, skyPlot(decodeNavSat(answers[0].payload),
                                       answers[1].status == kDone ? utcOf(decodeNavPvt(answers[1].payload)) : "",
                                       receiver.identity().modelName()));
        outcome.report.data("plot", *plot);
        outcome.report.line("Drawn into " + *plot);
        return outcome;
    };
}

} // namespace

std::vector<Command> informationCommands()
{
    return {{"info", "What receiver this is: model, firmware, versions", plain(info)},
            {"status", "Fix, satellites and every setting at a glance", plain(status)},
            {"nav", "The navigation solution: time, fix, position", defineNav},
            {"satellites", "The satellites in view, their signals, and which are used", defineSatellites}};
}

} // namespace ubxctl
