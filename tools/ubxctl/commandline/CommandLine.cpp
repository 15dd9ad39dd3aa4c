#include "commandline/CommandLine.h"

#include <algorithm>
#include <exception>
#include <map>
#include <sstream>
#include <utility>

#include <CLI/CLI.hpp>

#include "session/Failure.h"
#include "settings/Quantity.h"
#include "settings/Value.h"

namespace ubxctl
{

namespace
{

constexpr const char* kDescription = "ubxctl: the operator's hand on the device's GNSS timing receiver";

constexpr const char* kFooter = R"(
A first installation, step by step:
  ubxctl doctor                                          is everything in order, from the device to the fix?
  ubxctl set cable-delay 42                              nanoseconds; about 5 for each metre of cable
  ubxctl survey auto --duration 3h --accuracy 1m --wait --freeze
                                                         survey the antenna, then fix the position found
  ubxctl save                                            keep it all over a power cut

Exit status: 0 done; 1 refused, or read back different; 4 no reply; 8 could not be written (these three add up);
64 wrong command line or file; 69 device missing or busy; 74 a file can't be read or written; 130 interrupted.
Every command has its own help: ubxctl survey auto --help)";

const std::map<std::string, Language> kLanguages = {
    {"auto", Language::automatic}, {"items", Language::items}, {"messages", Language::messages}};

/// The words of a path: "survey auto".
std::vector<std::string> wordsOf(const std::string& path)
{
    std::istringstream stream(path);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

/// Help for the words that only lead to others.
const std::map<std::string, const char*> kFamilies = {{"survey", "Survey the antenna's position, or set it"},
                                                      {"rates", "How often the receiver puts out its messages"},
                                                      {"timepulse", "The receiver's time pulses"},
                                                      {"antenna", "Supply of the active antenna"},
                                                      {"reset", "Go back to stored or factory settings"},
                                                      {"restart", "Start the satellite search again"},
                                                      {"defaults", "Apply one of the two sets of defaults"},
                                                      {"help", "The manual page and the completion of the shell"}};

std::string adviceFor(int status)
{
    if ((status & kNotWritten) != 0) {
        return "the receiver could not be written to: does something else block the line? try: ubxctl doctor";
    }
    if ((status & kNoReply) != 0) return "the receiver did not reply in time; try: ubxctl doctor";
    return "the receiver refused it or holds another value; see what it holds with: ubxctl get";
}

int runAction(const CommandLine& line, Console& console, const Surroundings& surroundings)
{
    Session session(line.options(), console, surroundings);
    const Outcome outcome = line.action()(session);
    if (!outcome.shown) {
        console.write(line.options().json ? outcome.report.asJson(outcome.status)
                                          : outcome.report.asText(console.hasColours()));
    }
    if (!outcome.advice.empty()) {
        console.complain("ubxctl: " + outcome.advice);
    } else if (outcome.status != kDone) {
        console.complain("ubxctl: " + adviceFor(outcome.status));
    }
    return outcome.status;
}

/// The words of the commands that were understood: "survey"; and the last of them.
std::string understood(const CLI::App*& app)
{
    std::string path;
    while (!app->get_subcommands().empty()) {
        app = app->get_subcommands().front();
        path += app->get_name() + " ";
    }
    return path;
}

/// What is wrong with the command line, in one line.
std::string complaint(const CLI::ParseError& error, const CLI::App& whole)
{
    const CLI::App* app = &whole;
    const std::string path = understood(app);
    const std::string advice = "; try: ubxctl " + path + "--help";
    // The parser misses a command before it sees that there is one it does not know.
    if (std::string(error.what()).find("subcommand is required") == std::string::npos) return error.what() + advice;

    const std::vector<std::string> unknown = whole.remaining();
    if (!unknown.empty() && !unknown.front().empty() && unknown.front().front() == '-') {
        return "no such option as " + unknown.front() + advice;
    }
    std::string text = unknown.empty() ? path + (path.empty() ? "a command is missing" : "is not a whole command")
                                       : "no such command as " + path + unknown.front();
    if (app == &whole) return text + advice;
    const char* separator = "; there are ";
    for (const CLI::App* further : app->get_subcommands([](const CLI::App*) { return true; })) {
        text += separator + path + further->get_name();
        separator = ", ";
    }
    return text + advice;
}

/// A variable of a script that is not set must not count as 0, or as an option that was not given.
void refuseEmpty(const CLI::App& app)
{
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& text : option->results()) {
            if (text.empty()) throw CLI::ValidationError(option->get_name(), "it is empty");
        }
    }
    for (const CLI::App* command : app.get_subcommands())
        refuseEmpty(*command);
}

/// The parser would take -.5 for an option; -0.5 is a number to it.
std::string withLeadingZero(const std::string& word)
{
    const bool isBareFraction = word.size() > 2 && word[0] == '-' && word[1] == '.' && word[2] >= '0' && word[2] <= '9';
    return isBareFraction ? "-0" + word.substr(1) : word;
}

} // namespace

CommandLine::CommandLine() : app_(std::make_unique<CLI::App>(kDescription, "ubxctl"))
{
    app_->require_subcommand(1);
    app_->fallthrough();
    app_->get_formatter()->column_width(34);
    app_->set_version_flag("--version", UBXCTL_VERSION, "Print the version");
    app_->add_flag("--json", options_.json, "One JSON object instead of text");
    app_->add_flag("--verbose", options_.verbose, "Show what the library prints, on standard error");
    app_->add_option("--wait-lock", options_.lockPatience, "How long to wait while another command uses the receiver")
        ->type_name("SECONDS")
        ->check(seconds);
    app_->add_option_function<std::string>(
            "--interface", [this](const std::string& word) { options_.language = kLanguages.at(lowerCase(word)); },
            "How a ZED-F9T is configured: auto, items (by key) or messages (as earlier receivers)")
        ->type_name("WORD")
        ->check(CLI::IsMember({"auto", "items", "messages"}, CLI::ignore_case).description(""));
    for (const CommandGroup& group : allCommands()) {
        for (const Command& command : group.commands)
            add(command, group.title);
    }
    app_->footer(kFooter); // behind the commands, which would take it over
}

CommandLine::~CommandLine() = default;

void CommandLine::add(const Command& command, const std::string& group)
{
    CLI::App* parent = app_.get();
    const std::vector<std::string> words = wordsOf(command.path);
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        const auto families = parent->get_subcommands([&](const CLI::App* app) { return app->get_name() == words[i]; });
        if (families.empty()) {
            parent = parent->add_subcommand(words[i], kFamilies.at(words[i]));
            parent->group(group)->require_subcommand(1)->fallthrough();
        } else {
            parent = families.front();
        }
    }
    CLI::App* const leaf = parent->add_subcommand(words.back(), command.help);
    if (words.size() == 1) leaf->group(group);
    leaf->fallthrough();
    const Action action = command.define(*leaf);
    leaf->callback([this, action] { chosen_ = action; });
}

void CommandLine::parse(std::vector<std::string> words)
{
    std::reverse(words.begin(), words.end()); // CLI11 takes them from the end
    std::transform(words.begin(), words.end(), words.begin(), withLeadingZero);
    app_->parse(std::move(words));
    refuseEmpty(*app_);
}

int run(const std::vector<std::string>& words, const Surroundings& surroundings)
{
    CommandLine line;
    std::string wrong, help;
    try {
        line.parse(words);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            std::ostringstream text;
            line.app().exit(error, text, text);
            help = text.str();
        } else {
            wrong = complaint(error, line.app());
        }
    }

    Console console(line.options().verbose);
    try {
        if (!wrong.empty()) throw Failure(kUsage, wrong);
        if (!help.empty()) {
            console.write(help);
            return kDone;
        }
        return runAction(line, console, surroundings);
    } catch (const Failure& failure) {
        console.complain(std::string("ubxctl: ") + failure.what());
        return failure.exitCode();
    } catch (const BadValue& bad) {
        console.complain(std::string("ubxctl: ") + bad.what());
        return kUsage;
    } catch (const std::exception& error) {
        // Texts of the receiver that can't be understood are among what the library throws for.
        console.complain(std::string("ubxctl: unexpected: ") + error.what() + "; try: ubxctl doctor");
        return kRefused;
    }
}

} // namespace ubxctl
