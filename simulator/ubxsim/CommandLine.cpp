#include "simulator/ubxsim/CommandLine.h"

#include "simulator/faults/ActionText.h"

#include <CLI/CLI.hpp>

#include <ctime>
#include <fstream>
#include <iostream>

namespace ubxsim
{

namespace
{

const std::map<std::string, Model> kModels = {{"neo-m8t", Model::neoM8t}, {"zed-f9t", Model::zedF9t}};
const std::map<std::string, Port> kPortNames = {{"uart1", Port::uart1}, {"usb", Port::usb}};

constexpr const char* kDescription =
    "Simulates a u-blox timing receiver behind a pseudo terminal. Prints the path of the terminal and runs until it is "
    "ended by SIGTERM or SIGINT.";

constexpr const char* kFooter =
    "Exit status: 0 ended by a signal, 1 the simulation could not be started, 2 wrong arguments.\n"
    "Example: ubxsim --model zed-f9t --firmware \"TIM 2.20\" --link /tmp/receiver --fault \"late MON-VER 3s x1\"";

// "2026-12-31T23:59:50Z"
std::chrono::milliseconds unixTime(const std::string& text)
{
    std::tm time{};
    const char* end = ::strptime(text.c_str(), "%Y-%m-%dT%H:%M:%S", &time);
    if (end == nullptr || (*end != '\0' && std::string(end) != "Z") || time.tm_year < 80) {
        throw std::invalid_argument("--start: \"" + text +
                                    "\" is no UTC time since 1980, such as 2026-12-31T23:59:50Z");
    }
    return std::chrono::seconds(::timegm(&time));
}

Geodetic position(const std::vector<double>& numbers)
{
    const Geodetic place{numbers[0], numbers[1], numbers[2]};
    const bool onEarth = place.latitude >= -90 && place.latitude <= 90 && place.longitude >= -180 &&
                         place.longitude <= 180 && place.height >= -1000 && place.height <= 10000;
    if (!onEarth) {
        throw std::invalid_argument("--position: latitude -90 to 90 and longitude -180 to 180 degrees, height -1000 to "
                                    "10000 metres");
    }
    return place;
}

/// The options as they stand on the command line.
struct Texts
{
    std::string speed = "line";
    std::string start;
    std::vector<double> position;
    std::vector<std::string> faults;
    std::string script;
    bool noL5 = false;
    bool quiet = false;
    bool helpFaults = false;
};

void describe(CLI::App& app, CommandLine& line, Texts& texts)
{
    app.name("ubxsim");
    app.description(kDescription);
    app.footer(kFooter);
    app.set_help_flag("-h,--help", "Print this help and end");
    app.add_flag("--help-faults", texts.helpFaults, "Print the words of --fault and --script and end");
    app.add_option("--model", line.simulator.model, "neo-m8t (the usual) or zed-f9t")
        ->transform(CLI::CheckedTransformer(kModels).description(""));
    app.add_option("--firmware", line.simulator.firmware, "Such as \"TIM 2.13\"; TIM 1.10 or TIM 2.20 without");
    app.add_flag("--strict-legacy", line.simulator.strictLegacy,
                 "Refuse the legacy messages that no ZED-F9T was seen to answer");
    app.add_flag("--no-l5", texts.noL5, "A ZED-F9T without the L5 signals and their keys");
    app.add_option("--port", line.simulator.port, "The receiver's port behind the terminal: uart1 (the usual) or usb")
        ->transform(CLI::CheckedTransformer(kPortNames).description(""));
    app.add_option("--link", line.link, "Make PATH a symbolic link to the terminal while running")->type_name("PATH");
    app.add_flag("--quiet", texts.quiet, "No output but answers, until told otherwise");
    app.add_option("--speed", texts.speed, "line: bytes leave at the set line speed (the usual); unlimited: at once")
        ->check(CLI::IsMember({"line", "unlimited"}).description(""));
    app.add_option("--time-scale", line.simulator.timeScale, "The receiver's time runs so much faster (or slower)")
        ->check(CLI::Range(0.001, 100000.0).description(""));
    app.add_option("--start", texts.start, "The receiver's UTC time at the start, such as 2026-12-31T23:59:50Z");
    app.add_flag("--cold-start", line.simulator.coldStart, "Begin without a fix; it takes 26 s");
    app.add_option("--position", texts.position, "Of the antenna: degrees, degrees, metres above the ellipsoid")
        ->expected(3)
        ->type_name("LAT LON HEIGHT");
    app.add_option("--fault", texts.faults, "A fault or an event, see --help-faults; may be given several times")
        ->take_all()
        ->expected(1)
        ->type_name("WORDS");
    app.add_option("--script", texts.script, "A file with a fault or an event a line")->type_name("FILE");
    app.add_option("--trace", line.simulator.traceFile, "Write every frame in both directions to FILE")
        ->type_name("FILE");
    app.add_option("--replay", line.replayFile, "Play this recording or trace instead of simulating")
        ->type_name("FILE");
}

void complete(CommandLine& line, const Texts& texts)
{
    line.simulator.l5Signals = !texts.noL5;
    line.simulator.nmea = !texts.quiet;
    line.simulator.unlimitedSpeed = texts.speed == "unlimited";
    if (!texts.start.empty()) {
        line.simulator.startTime = unixTime(texts.start);
    }
    if (!texts.position.empty()) {
        line.simulator.position = position(texts.position);
    }
    for (const std::string& fault : texts.faults) {
        try {
            line.actions.push_back(parseAction(fault));
        } catch (const std::invalid_argument& error) {
            throw std::invalid_argument("--fault \"" + fault + "\": " + error.what());
        }
    }
    if (!texts.script.empty()) {
        std::ifstream file(texts.script);
        if (!file) {
            throw std::invalid_argument("cannot read the script " + texts.script);
        }
        const std::vector<Action> actions = parseScript(file, texts.script);
        line.actions.insert(line.actions.end(), actions.begin(), actions.end());
    }
    if (!line.replayFile.empty() && (!line.actions.empty() || !line.simulator.traceFile.empty())) {
        throw std::invalid_argument("--replay plays what was recorded: --fault, --script and --trace don't go with it");
    }
}

} // namespace

std::optional<CommandLine> readCommandLine(int argc, char** argv, int& exitCode)
{
    CommandLine line;
    Texts texts;
    CLI::App app;
    describe(app, line, texts);
    try {
        app.parse(argc, argv);
        if (texts.helpFaults) {
            std::cout << actionHelp();
            exitCode = kDone;
            return std::nullopt;
        }
        complete(line, texts);
        // Says at once what is wrong with a firmware.
        profileOf(line.simulator.model, line.simulator.firmware, false, false);
        return line;
    } catch (const CLI::CallForHelp&) {
        std::cout << app.help();
        exitCode = kDone;
    } catch (const CLI::ParseError& error) {
        std::cerr << "ubxsim: " << error.what() << "\n";
        exitCode = kUsageError;
    } catch (const std::invalid_argument& error) {
        std::cerr << "ubxsim: " << error.what() << "\n";
        exitCode = kUsageError;
    }
    return std::nullopt;
}

} // namespace ubxsim
