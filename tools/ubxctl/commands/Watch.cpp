// Commands that watch: monitor, doctor, trace, metrics.

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <memory>
#include <thread>

#include <CLI/CLI.hpp>
#include <sys/time.h>
#include <ubxIO.h>

#include "commandline/Command.h"
#include "doctor/Doctor.h"
#include "metrics/ReceiverMetrics.h"
#include "monitor/FullScreen.h"
#include "monitor/Screen.h"
#include "output/AtomicFile.h"
#include "session/Failure.h"
#include "session/Interrupt.h"
#include "settings/Setting.h"
#include "trace/Trace.h"

namespace ubxctl
{

namespace
{

using Clock = std::chrono::steady_clock;

constexpr auto kPause = std::chrono::milliseconds(20);

/// Whether the terminal's characters are UTF-8, as the locale says.
bool hasBlocks()
{
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value == nullptr || *value == '\0') continue;
        const std::string name = value;
        return name.find("UTF-8") != std::string::npos || name.find("utf8") != std::string::npos;
    }
    return false;
}

Json jsonOf(const std::vector<Satellite>& satellites)
{
    Json systems = Json::object();
    for (std::uint8_t system = 0; system < kGnssSystems; ++system) {
        const SystemSummary summary = summaryOf(satellites, system);
        if (summary.tracked == 0) continue;
        systems[kGnssTable[system].word] = {{"tracked", summary.tracked},
                                            {"used", summary.used},
                                            {"mean_cno_dbhz", Json::parse(fixedPoint(summary.meanSignal, 1))}};
    }
    return systems;
}

/// One picture, for programs and for terminals that are none.
Outcome once(Receiver& receiver)
{
    const Snapshot snapshot = takeSnapshot(receiver);
    Outcome outcome{Report("monitor"), snapshot.status};
    Report& report = outcome.report;
    report.data("model", receiver.identity().modelName());
    if (snapshot.solution.has_value()) {
        const NavigationSolution& solution = *snapshot.solution;
        const std::string time = utcOf(solution);
        report.data("time_utc", time.empty() ? Json() : Json(time));
        report.data("time_accuracy_ns", solution.timeAccuracyNs);
        report.data("fix", nameOf(solution.fix));
        report.data("fix_ok", solution.fixOk);
        report.data("satellites_used", solution.satellitesUsed);
        report.data("latitude_deg", Json::parse(fixedPoint(solution.latitude, 7)));
        report.data("longitude_deg", Json::parse(fixedPoint(solution.longitude, 7)));
        report.data("height_m", Json::parse(fixedPoint(solution.height, 3)));
    }
    if (snapshot.timingMode.has_value()) {
        report.data("timing_mode", Format::timingMode().json(*snapshot.timingMode));
    }
    if (snapshot.survey.has_value()) {
        report.data("survey_active", snapshot.survey->active);
        report.data("survey_valid", snapshot.survey->valid);
        report.data("survey_duration_s", snapshot.survey->duration);
    }
    if (snapshot.hardware.has_value()) {
        report.data("antenna", snapshot.hardware->antennaWord());
        report.data("interference", snapshot.hardware->jammingWord());
    }
    if (snapshot.satellites.has_value()) report.data("systems", jsonOf(*snapshot.satellites));
    const ScreenStyle style{{80, 100}, false, hasBlocks()};
    for (const std::string& line : monitorScreen(receiver.identity(), snapshot, style))
        report.line(line);
    return outcome;
}

Outcome watch(Session& session, Receiver& receiver)
{
    constexpr auto kRefresh = std::chrono::seconds(1);
    Console& console = session.console();
    const Interrupt interrupt;
    FullScreen screen(console);
    Snapshot snapshot;
    for (bool ended = false; !ended && !Interrupt::requested();) {
        const auto next = Clock::now() + kRefresh;
        if (session.reclaim()) snapshot = takeSnapshot(receiver); // else another command has it at the moment
        session.release();
        Console::Size shown{0, 0};
        do {
            const Console::Size size = console.size();
            if (size.columns != shown.columns || size.rows != shown.rows) {
                shown = size;
                screen.show(
                    monitorScreen(receiver.identity(), snapshot, {size, console.hasColours(), hasBlocks(), true}));
            }
            std::this_thread::sleep_for(kPause);
            ended = screen.wantsToEnd();
        } while (!ended && Clock::now() < next && !Interrupt::requested());
    }
    Outcome outcome{Report("monitor")};
    outcome.shown = true;
    return outcome;
}

Action defineMonitor(CLI::App& app)
{
    const auto justOnce = std::make_shared<bool>(false);
    app.add_flag("--once", *justOnce, "One picture, then end; so it is with --json");
    return [justOnce](Session& session) {
        const bool picture = *justOnce || session.options().json;
        if (!picture && !session.console().isTerminal()) {
            throw Failure(kUsage, "the monitor needs a terminal; for one picture: ubxctl monitor --once");
        }
        Receiver& receiver = session.receiver();
        return picture ? once(receiver) : watch(session, receiver);
    };
}

Outcome doctor(Session& session)
{
    Doctor examination(session);
    examination.examine();
    return reportOf(examination);
}

std::string localTime()
{
    timeval now{};
    ::gettimeofday(&now, nullptr);
    std::tm local{};
    ::localtime_r(&now.tv_sec, &local);
    char time[16], text[48];
    std::strftime(time, sizeof time, "%H:%M:%S", &local);
    std::snprintf(text, sizeof text, "%s.%03ld", time, static_cast<long>(now.tv_usec / 1000));
    return text;
}

struct TraceArguments
{
    std::string raw;
    unsigned long count = 0;
    double seconds = 0;
};

/// Shows what passes until enough has.
class Tracer
{
public:
    Tracer(Session& session, const TraceArguments& arguments) : session_(session), arguments_(arguments)
    {
        if (arguments_.raw.empty()) return;
        recording_.open(arguments_.raw, std::ios::binary | std::ios::trunc);
        if (!recording_) throw Failure(kFile, arguments_.raw + " can't be written");
    }

    void run()
    {
        ubxIO port;
        std::array<unsigned char, 4096> buffer;
        const auto end = Clock::now() + std::chrono::duration<double>(arguments_.seconds);
        while (!isEnough() && !Interrupt::requested() && (arguments_.seconds == 0 || Clock::now() < end)) {
            const long count = port.ReadFromUART(buffer.data(), static_cast<long>(buffer.size()));
            if (count == 0) std::this_thread::sleep_for(kPause);
            take(buffer.data(), static_cast<std::size_t>(count));
        }
        if (const auto rest = stream_.rest(); rest.has_value() && !isEnough()) show(*rest);
    }

    bool sawAnything() const { return shown_ > 0; }

private:
    bool isEnough() const { return arguments_.count != 0 && shown_ >= arguments_.count; }

    void take(const unsigned char* bytes, std::size_t count)
    {
        if (recording_.is_open()) {
            recording_.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(count));
            if (!recording_.flush()) throw Failure(kFile, arguments_.raw + " can't be written; is the disk full?");
        }
        stream_.add(bytes, count);
        while (!isEnough()) {
            const auto piece = stream_.next();
            if (!piece.has_value()) return;
            show(*piece);
        }
    }

    void show(const Piece& piece)
    {
        ++shown_;
        const std::string time = localTime();
        session_.console().write(session_.options().json
                                     ? jsonOf(piece, time).dump(-1, ' ', false, Json::error_handler_t::replace) + "\n"
                                     : coloured(Cell(time, Tone::dim), session_.console().hasColours()) + "  " +
                                           describe(piece) + "\n");
    }

    Session& session_;
    const TraceArguments& arguments_;
    std::ofstream recording_;
    Stream stream_;
    unsigned long shown_ = 0;
};

Action defineTrace(CLI::App& app)
{
    constexpr unsigned long kMost = 1'000'000'000;
    const auto arguments = std::make_shared<TraceArguments>();
    app.add_option("--raw", arguments->raw, "Record the bytes too, for: ubxsim --replay FILE")->type_name("FILE");
    app.add_option("--count", arguments->count, "End after so many frames and sentences")
        ->type_name("N")
        ->check(CLI::Range(1UL, kMost).description(""));
    app.add_option("--seconds", arguments->seconds, "End after so long")->type_name("SECONDS")->check(seconds);
    app.footer("\nOnly listens: nothing is sent. With --json, one object a line for each frame or sentence.");
    return [arguments](Session& session) {
        session.claim();
        const Interrupt interrupt;
        Tracer tracer(session, *arguments);
        tracer.run();
        Outcome outcome{Report("trace")};
        outcome.shown = true;
        if (!tracer.sawAnything() && !Interrupt::requested()) outcome.status = kNoReply;
        return outcome;
    };
}

std::optional<long> cableDelay(Receiver& receiver)
{
    const Reading reading = findSetting("cable-delay")->get(receiver);
    if (!reading.value.has_value()) return std::nullopt;
    return std::get<long>(*reading.value);
}

Action defineMetrics(CLI::App& app)
{
    const auto output = std::make_shared<std::string>();
    app.add_option("--output", *output, "Into this file, at once and whole, for node_exporter's textfile collector")
        ->type_name("FILE.prom");
    return [output](Session& session) {
        Outcome outcome{Report("metrics")};
        std::vector<Metric> metrics;
        try {
            Receiver& receiver = session.receiver();
            const Snapshot snapshot = takeSnapshot(receiver);
            outcome.status = snapshot.status;
            const bool answers = snapshot.status == kDone;
            metrics = receiverMetrics(receiver.identity(), snapshot, answers ? cableDelay(receiver) : std::nullopt);
        } catch (const Busy&) {
            throw; // that says nothing about the receiver: what was written before stays
        } catch (const Failure& failure) {
            // Who watches a fleet wants to see that this one is down.
            metrics = downMetrics();
            outcome.status = failure.exitCode();
            outcome.advice = failure.what();
        }
        const std::string text = prometheusText(metrics);
        if (!output->empty()) writeAtomically(*output, text);
        outcome.report.data("metrics", jsonOf(metrics));
        if (output->empty()) outcome.report.line(text.substr(0, text.size() - 1)); // the line ends itself
        return outcome;
    };
}

} // namespace

std::vector<Command> watchCommands()
{
    return {{"monitor", "Everything on one screen, once a second", defineMonitor},
            {"doctor", "Walk the chain from the device to the fix; what is wrong, and what to do", plain(doctor)},
            {"trace", "Show what the receiver sends as it passes", defineTrace},
            {"metrics", "Measurements for Prometheus", defineMetrics}};
}

} // namespace ubxctl
