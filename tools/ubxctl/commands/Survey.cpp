// Commands for the antenna's position: survey status, auto, static, dynamic, mode, wait, freeze.

#include <cmath>
#include <memory>

#include <CLI/CLI.hpp>

#include "commandline/Command.h"
#include "commands/SettingsReport.h"
#include "messages/Navigation.h"
#include "session/Failure.h"
#include "session/Interrupt.h"
#include "settings/Quantity.h"
#include "settings/TimingModeSetting.h"
#include "survey/SurveyWatch.h"

namespace ubxctl
{

namespace
{

constexpr double kDefaultDuration = 10800; // the library's own: three hours
constexpr double kDefaultAccuracy = 1.0;   // to 1 m
constexpr double kBestAccuracy = 0.01;     // m, that a fixed position may claim

const Setting& timingMode()
{
    return *findSetting("timing-mode");
}

void addProgress(Report& report, const SurveyProgress& progress)
{
    report.flag("Survey", "survey_active", progress.active, "goes on", "does not run");
    report.flag("Surveyed position", "survey_valid", progress.valid, "good", "not good yet");
    report.whole("Surveyed for", "survey_duration_s", progress.duration, "s");
    report.whole("Observations", "survey_observations", progress.observations);
    report.number("Mean accuracy", "survey_accuracy_m", progress.accuracy, 3, "m");
}

void addPosition(Report& report, const Position& position)
{
    report.number("Latitude", "latitude_deg", position.latitude, 7, "deg");
    report.number("Longitude", "longitude_deg", position.longitude, 7, "deg");
    report.number("Height", "height_m", position.height, 3, "m");
}

Outcome status(Session& session)
{
    Receiver& receiver = session.receiver();
    Outcome outcome{Report("survey status")};
    Report& report = outcome.report;

    std::string word;
    outcome.status = receiver.control().getSurveyMode(word);
    if (outcome.status != kDone) return outcome;
    report.text("Timing mode", "mode", word);
    const Reading setting = timingMode().get(receiver);
    outcome.status |= setting.status;
    if (setting.value.has_value()) {
        report.fact("Setting", "timing_mode", timingMode().format.json(*setting.value),
                    timingMode().format.show(*setting.value));
    }

    unsigned char mode = 0;
    Position position{};
    double accuracy = 0;
    unsigned int duration = 0;
    float limit = 0;
    // It asks by message, which not every ZED-F9T answers; the settings above say the same then.
    if (receiver.control().getSurveyInfo(mode, position.latitude, position.longitude, position.height, accuracy,
                                         duration, limit) == kDone) {
        addPosition(report, position);
    }

    const Answer answer = receiver.exchange().ask({kTimSvin});
    outcome.status |= answer.status;
    if (answer.status == kDone) addProgress(report, decodeTimSvin(answer.payload));
    return outcome;
}

/// Stores the surveyed position as the fixed one.
void freeze(Receiver& receiver, const SurveyProgress& progress, Outcome& outcome)
{
    TimingMode fixed;
    fixed.kind = TimingMode::Kind::fixed;
    fixed.position = progress.position();
    fixed.accuracy = std::max(kBestAccuracy, progress.accuracy);
    const Change result = change(receiver, timingMode(), fixed);
    outcome.status |= result.status;
    outcome.report.data("frozen", result.status == kDone);
    if (result.status == kDone) {
        outcome.report.line(Cell("The receiver now stands at this fixed position. Keep it over a power cut with: "
                                 "ubxctl save",
                                 Tone::good));
    } else if (result.status == kRefused) {
        outcome.advice = "the surveyed position was not taken over; see what the receiver holds with: "
                         "ubxctl survey status";
    }
}

void follow(Session& session, SurveyWatch& watch, const SurveyGoal& goal, bool andFreeze, Outcome& outcome)
{
    const SurveyWatch::End end = watch.follow(goal);
    if (const auto& progress = watch.progress()) {
        addProgress(outcome.report, *progress);
        if (progress->hasPosition()) addPosition(outcome.report, progress->position());
    }
    switch (end) {
    case SurveyWatch::End::finished:
        if (andFreeze) freeze(session.receiver(), *watch.progress(), outcome);
        return;
    case SurveyWatch::End::stopped:
        outcome.status |= kRefused;
        outcome.advice = "no survey goes on any more; was the receiver restarted? try: ubxctl survey status";
        return;
    case SurveyWatch::End::silent:
        outcome.status |= kNoReply;
        outcome.advice = "the receiver does not tell how far the survey is; it may go on; try: ubxctl doctor";
        return;
    case SurveyWatch::End::interrupted:
        outcome.status = kInterrupted;
        outcome.advice = "the survey goes on in the receiver; watch it again with: ubxctl survey wait";
        return;
    }
}

struct AutoArguments
{
    std::string duration;
    std::string accuracy;
    bool wait = false;
    bool freeze = false;
};

double durationOf(const std::string& text)
{
    const auto duration = parseDuration(text);
    if (!duration.has_value()) throw BadValue("--duration: \"" + text + "\" is no duration; such as 3h, 90min, 600s");
    if (*duration < 1 || *duration > 30'000'000) throw BadValue("--duration: a survey lasts 1 to 30000000 s");
    return *duration;
}

double lengthOf(const char* option, const std::string& text)
{
    const auto length = parseLength(text);
    if (!length.has_value()) throw BadValue(std::string(option) + ": \"" + text + "\" is no length; such as 1m, 50cm");
    return *length;
}

double degreesOf(const char* argument, const std::string& text)
{
    const auto degrees = parseNumber(text);
    if (!degrees.has_value()) {
        throw BadValue(std::string(argument) + ": \"" + text + "\" is no number of degrees; such as -31.9505");
    }
    return *degrees;
}

Outcome runAuto(Session& session, const AutoArguments& arguments)
{
    TimingMode mode;
    mode.kind = TimingMode::Kind::survey;
    mode.duration =
        static_cast<unsigned int>(arguments.duration.empty() ? kDefaultDuration : durationOf(arguments.duration));
    mode.accuracy = arguments.accuracy.empty() ? kDefaultAccuracy : lengthOf("--accuracy", arguments.accuracy);
    checkTimingMode(mode);

    Receiver& receiver = session.knownReceiver();
    const Interrupt interrupt;
    const bool waits = arguments.wait || arguments.freeze;
    SurveyWatch watch(session);

    Outcome outcome{Report("survey auto")};
    // A receiver begins a survey anew only when something about it changes.
    const Reading present = timingMode().get(receiver);
    if (present.value.has_value() && timingMode().format.same(*present.value, mode)) {
        outcome.status |= setTimingMode(receiver, TimingMode());
    }
    if (waits) watch.noteEarlier();
    const bool defaults = arguments.duration.empty() && arguments.accuracy.empty();
    outcome.status |= receiver.write([&](UBXControlInterface& control) {
        return defaults ? control.setSurveyAuto()
                        : control.setSurveyAuto(mode.duration, static_cast<float>(mode.accuracy));
    });
    outcome.report.data("duration_s", mode.duration);
    outcome.report.data("accuracy_m", mode.accuracy);
    if (outcome.status != kDone) return outcome;
    if (!waits) {
        outcome.report.line("The survey has begun: " + clockTime(mode.duration) + " at least, to " +
                            shortNumber(mode.accuracy, 2) + " m. Watch it with: ubxctl survey wait");
        return outcome;
    }
    follow(session, watch, {mode.duration, mode.accuracy}, arguments.freeze, outcome);
    return outcome;
}

Action defineAuto(CLI::App& app)
{
    const auto arguments = std::make_shared<AutoArguments>();
    app.add_option("--duration", arguments->duration, "At least this long: 3h (the default), 90min, 600s")
        ->type_name("TIME");
    app.add_option("--accuracy", arguments->accuracy, "And until this accurate: 1m (the default), 50cm")
        ->type_name("LENGTH");
    app.add_flag("--wait", arguments->wait, "Show the progress until it is done; Ctrl-C leaves the survey running");
    app.add_flag("--freeze", arguments->freeze, "Wait, then make the surveyed position the fixed one");
    return [arguments](Session& session) { return runAuto(session, *arguments); };
}

Action defineWait(CLI::App& app)
{
    const auto andFreeze = std::make_shared<bool>(false);
    app.add_flag("--freeze", *andFreeze, "Then make the surveyed position the fixed one");
    return [andFreeze](Session& session) {
        Receiver& receiver = session.knownReceiver();
        const Interrupt interrupt;
        Outcome outcome{Report("survey wait")};
        const Reading setting = timingMode().get(receiver);
        outcome.status = setting.status;
        if (outcome.status != kDone) return outcome;
        const auto* const mode = setting.value.has_value() ? &std::get<TimingMode>(*setting.value) : nullptr;
        if (mode == nullptr || mode->kind != TimingMode::Kind::survey) {
            outcome.status = kRefused;
            outcome.advice = "no survey goes on; start one with: ubxctl survey auto --wait";
            return outcome;
        }
        SurveyWatch watch(session);
        follow(session, watch, {mode->duration, mode->accuracy}, *andFreeze, outcome);
        return outcome;
    };
}

Outcome runMode(Session& session, const TimingMode& mode, const char* command)
{
    checkTimingMode(mode);
    Receiver& receiver = session.knownReceiver();
    Outcome outcome{Report(command)};
    const Change result = change(receiver, timingMode(), mode);
    outcome.status = result.status;
    if (result.holds.has_value()) {
        outcome.report.fact("Timing mode", "timing_mode", timingMode().format.json(*result.holds),
                            timingMode().format.show(*result.holds));
    }
    return outcome;
}

Action defineStatic(CLI::App& app)
{
    struct Arguments
    {
        std::string latitude, longitude, height, accuracy = "1m";
    };
    const auto arguments = std::make_shared<Arguments>();
    app.add_option("latitude", arguments->latitude, "Degrees, north positive")->required();
    app.add_option("longitude", arguments->longitude, "Degrees, east positive")->required();
    app.add_option("height", arguments->height, "Above the ellipsoid, not the sea: 455.1m")->required();
    app.add_option("--accuracy", arguments->accuracy, "How well this is known: 1m (the default), 5cm")
        ->type_name("LENGTH");
    return [arguments](Session& session) {
        TimingMode mode;
        mode.kind = TimingMode::Kind::fixed;
        mode.position = {degreesOf("latitude", arguments->latitude), degreesOf("longitude", arguments->longitude),
                         lengthOf("height", arguments->height)};
        mode.accuracy = lengthOf("--accuracy", arguments->accuracy);
        return runMode(session, mode, "survey static");
    };
}

bool isNear(const Position& one, const Position& other)
{
    constexpr double kDegrees = 0.001; // some 100 m: far more than a fix is wrong, far less than a mix-up
    return std::abs(one.latitude - other.latitude) < kDegrees && std::abs(one.longitude - other.longitude) < kDegrees;
}

/// Changing to a fixed position by name takes over the present one; the receiver is asked whether it came out right.
void checkTakenOver(Receiver& receiver, const Position& before, Outcome& outcome)
{
    const Reading setting = timingMode().get(receiver);
    outcome.status |= setting.status;
    if (!setting.value.has_value()) return;
    const auto& mode = std::get<TimingMode>(*setting.value);
    outcome.report.fact("Setting", "timing_mode", timingMode().format.json(*setting.value),
                        timingMode().format.show(*setting.value));
    if (mode.kind != TimingMode::Kind::fixed || isNear(mode.position, before)) return;
    outcome.status |= kRefused;
    outcome.advice =
        "the receiver stands at " + fixedPoint(before.latitude, 7) + " " + fixedPoint(before.longitude, 7) +
        " but was fixed elsewhere; put it right with: ubxctl survey static " + fixedPoint(before.latitude, 7) + " " +
        fixedPoint(before.longitude, 7) + " " + fixedPoint(before.height, 2) + "m";
}

Action defineMode(CLI::App& app)
{
    const auto word = std::make_shared<std::string>();
    app.add_option("mode", *word, "auto, static or dynamic")
        ->required()
        ->check(CLI::IsMember({"auto", "static", "dynamic"}, CLI::ignore_case));
    app.footer("\nThe parameters of the survey stay. \"static\" takes over the present position and is checked; better "
               "say where\nthe antenna stands with: ubxctl survey static");
    return [word](Session& session) {
        Receiver& receiver = session.knownReceiver();
        const std::string wanted = upperCase(*word);
        const Answer present = receiver.exchange().ask({kNavPvt});
        Outcome outcome{Report("survey mode")};
        outcome.status = receiver.write([&](UBXControlInterface& control) { return control.setSurveyMode(wanted); });
        std::string holds;
        outcome.status |= receiver.control().getSurveyMode(holds);
        outcome.report.text("Timing mode", "mode", holds);
        if (holds != wanted) outcome.status |= kRefused;
        if (wanted == "STATIC" && present.status == kDone) {
            const NavigationSolution solution = decodeNavPvt(present.payload);
            checkTakenOver(receiver, {solution.latitude, solution.longitude, solution.height}, outcome);
        }
        return outcome;
    };
}

} // namespace

std::vector<Command> surveyCommands()
{
    return {{"survey status", "Timing mode, position, and how far a survey is", plain(status)},
            {"survey auto", "Survey the antenna's position", defineAuto},
            {"survey wait", "Watch a survey that goes on", defineWait},
            {"survey static", "Set the antenna's position, for timing from it", defineStatic},
            {"survey dynamic", "No fixed position: for an antenna that moves",
             plain([](Session& session) { return runMode(session, TimingMode(), "survey dynamic"); })},
            {"survey mode", "Change the timing mode by name", defineMode}};
}

} // namespace ubxctl
