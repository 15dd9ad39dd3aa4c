// ubxdemo: the whole job of the library on one receiver, shown to a person. scripts/demo runs it.

#include <chrono>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include <CLI/CLI.hpp>
#include <unistd.h>

#include <ubloxChipInfo.h>
#include <ubxController.h>

#include "Board.h"
#include "Configuration.h"
#include "Recording.h"
#include "Reports.h"
#include "Survey.h"
#include "Transcript.h"

namespace
{

using demo::Transcript;

struct Options
{
    std::string title = "ubxcontrol on /dev/tty_gps";
    std::string recording;
    bool legacy = false;
    bool readOnly = false;
    bool survey = false;
};

bool wantsColours()
{
    return isatty(STDOUT_FILENO) == 1 && std::getenv("NO_COLOR") == nullptr;
}

/// A file with its contents. @param otherwise  said of one that is empty or not there.
void showFile(const char* path, const char* otherwise, Transcript& transcript)
{
    transcript.row(path);
    std::ifstream file(path);
    std::string line;
    if (!std::getline(file, line)) line = otherwise;
    do {
        transcript.line(line);
    } while (std::getline(file, line));
}

void showRecording(const demo::Recording& recording, Transcript& transcript)
{
    transcript.heading("Recording");
    std::string name = "known frames";
    for (const auto& [classId, message] : recording.messages()) {
        transcript.fact(name, std::to_string(message.second) + " x " + message.first);
        name.clear();
    }
    if (!recording.holds(UBX_MON_VER)) {
        transcript.note("It holds no version record. To the library this is a receiver that does not");
        transcript.note("answer when it is asked what it is, which takes nine seconds and makes it a");
        transcript.note("NEO-M8T. Its reports are read all the same: both models have them in common.");
    }
}

/// The controller, when all that its constructor does has been shown.
std::unique_ptr<ubxController> start(demo::ExpanderView& expander, Transcript& transcript)
{
    transcript.heading("Start-up: an ubxController is created");
    const auto begin = std::chrono::steady_clock::now();
    auto receiver = std::make_unique<ubxController>();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;

    expander.show();
    const std::string within = " within " + demo::measured(taken.count(), 1, "s");
    const bool answered = !ubloxChipInfo::getUbloxHwVer().empty();
    transcript.fact("receiver", answered ? ubloxChipInfo::getUbloxChipName() + ", found" + within
                                         : "no answer" + within + ": taken for a NEO-M8T");
    showFile("/tmp/ubloxChip-info.txt", "not there", transcript);
    transcript.operation("Init", "", receiver->Init());
    return receiver;
}

void showLogs(ubxController& receiver, Transcript& transcript)
{
    transcript.heading("Error logs");
    showFile("/var/log/rxtool-errors.log", "empty", transcript);
    showFile(receiver.isZedF9t() ? "/var/log/rxtool-zedf9t-errors.log" : "/var/log/rxtool-neom8t-errors.log", "empty",
             transcript);
}

bool always(UBXMessageClassIdValues)
{
    return true;
}

/// The read-only part, of a recording or of a receiver that is to stay as it is.
void readOnly(UBXControlInterface& receiver, const demo::CanAnswer& canAnswer, Transcript& transcript)
{
    transcript.heading("Settings");
    demo::showSettings(receiver, canAnswer, transcript);
    demo::showReports(receiver, canAnswer, transcript);
}

void configureAndRead(ubxController& receiver, bool legacyOnly, Transcript& transcript)
{

    if (!receiver.isZedF9t()) {
        transcript.heading("Configuration");
        demo::configure(receiver, demo::kForNeoM8t, transcript);
    } else {
        if (!legacyOnly) {
            transcript.heading("Configuration, through the configuration interface");
            demo::configure(receiver, demo::kThroughConfigurationInterface, transcript);
        }
        transcript.heading("Configuration, through legacy messages");
        transcript.operation("legacy messages", "from now on", receiver.setZedf9tConfigurationInterfaceMode(false));
        demo::configure(receiver, demo::kThroughLegacyMessages, transcript);
    }
    demo::waitForFix(receiver, transcript);
    demo::showReports(receiver, always, transcript);
}

int show(const Options& options)
{
    Transcript transcript(std::cout, wantsColours());
    transcript.heading(options.title);

    std::optional<demo::Recording> recording;
    if (!options.recording.empty()) {
        recording.emplace(options.recording);
        showRecording(*recording, transcript);
    }
    transcript.heading("Board");
    demo::showInventory(transcript);

    demo::ExpanderView expander(transcript);
    const std::unique_ptr<ubxController> receiver = start(expander, transcript);
    bool asWanted = true;
    if (recording) {
        // In a recording the answer to a poll by key is that of another key.
        receiver->setZedf9tConfigurationInterfaceMode(false);
        readOnly(
            *receiver, [&](UBXMessageClassIdValues message) { return recording->holds(message); }, transcript);
    } else if (options.readOnly) {
        readOnly(*receiver, always, transcript);
    } else if (options.survey) {
        asWanted = demo::watchSurvey(*receiver, transcript);
    } else {
        transcript.operation("antenna power", "ON", receiver->setAntennaPower("ON"));
        expander.show();
        configureAndRead(*receiver, options.legacy, transcript);
    }
    showLogs(*receiver, transcript);
    return transcript.summary() && asWanted ? EXIT_SUCCESS : EXIT_FAILURE;
}

int run(int argc, char** argv)
{
    Options options;
    CLI::App app("Shows what the library does with the receiver at /dev/tty_gps, and how it answers.");
    app.add_option("--title", options.title, "The first line");
    app.add_option("--recording", options.recording, "The receiver is this recording: ask only for what it holds");
    app.add_flag("--legacy", options.legacy, "Configure a ZED-F9T through legacy messages only");
    app.add_flag("--read-only", options.readOnly, "Change nothing");
    app.add_flag("--survey", options.survey, "Watch a survey-in of three hours on a receiver whose time runs fast");
    CLI11_PARSE(app, argc, argv);
    return show(options);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "ubxdemo: " << error.what() << std::endl;
        return EXIT_FAILURE;
    }
}
