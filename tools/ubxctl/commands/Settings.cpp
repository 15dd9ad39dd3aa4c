// Commands for the table of settings: get, set, apply, dump.

#include <memory>

#include <CLI/CLI.hpp>

#include "apply/Apply.h"
#include "commandline/Command.h"
#include "commands/SettingsReport.h"
#include "messages/Navigation.h"
#include "output/AtomicFile.h"
#include "session/Failure.h"

namespace ubxctl
{

namespace
{

std::vector<std::string> settingKeys()
{
    std::vector<std::string> keys;
    for (const Setting& setting : allSettings())
        keys.emplace_back(setting.key);
    return keys;
}

/// For the help: a line for each setting with what it takes.
std::string settingsHelp()
{
    std::string text = "\nSettings:\n";
    for (const Setting& setting : allSettings()) {
        text += "  " + std::string(setting.key) + "\n      " + setting.label + ": " + setting.help + "\n      " +
                setting.format.choices() + "\n";
    }
    return text;
}

Action defineGet(CLI::App& app)
{
    const auto key = std::make_shared<std::string>();
    app.add_option("key", *key, "The setting; all of them without it")->check(CLI::IsMember(settingKeys()));
    app.footer(settingsHelp());
    return [key](Session& session) {
        Outcome outcome{Report("get")};
        Receiver& receiver = session.receiver();
        if (key->empty()) {
            outcome.status = addSettings(outcome.report, receiver);
        } else {
            outcome.status = addSetting(outcome.report, receiver, *findSetting(*key));
        }
        return outcome;
    };
}

struct SetArguments
{
    std::string key;
    std::vector<std::string> value;
    std::string fixMode;
    bool singleBand = false;
};

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

/// Both in one message.
int setModelAndFixMode(Receiver& receiver, const Value& model, const Value& fixMode)
{
    return receiver.write([&](UBXControlInterface& control) {
        return control.setDynamicModel(static_cast<unsigned char>(std::get<long>(model)),
                                       static_cast<unsigned char>(std::get<long>(fixMode)));
    });
}

int setSingleBand(Receiver& receiver, const Value& mask)
{
    return receiver.write([&](UBXControlInterface& control) {
        return control.setGnssSystem(static_cast<unsigned short>(std::get<long>(mask)), false);
    });
}

void addWritten(Outcome& outcome, const Setting& setting, const Value& wanted, const Change& result)
{
    Report& report = outcome.report;
    report.data("setting", setting.key);
    report.data("wanted", setting.format.json(wanted));
    if (result.holds.has_value()) {
        report.fact(setting.label, setting.jsonKey, setting.format.json(*result.holds),
                    shownWithUnit(setting, *result.holds));
    } else {
        report.missing(setting.label, setting.jsonKey, result.status == kRefused ? "not on this receiver" : "not read");
    }
    outcome.status |= result.status;
    if (result.status == kRefused) {
        outcome.advice = std::string(setting.key) + ": wanted " + shownWithUnit(setting, wanted) + ", the receiver " +
                         (result.holds.has_value() ? "holds " + shownWithUnit(setting, *result.holds)
                                                   : std::string("has no such setting")) +
                         "; what a setting takes: ubxctl set --help";
    }
}

Outcome runSet(Session& session, const SetArguments& arguments)
{
    const Setting& setting = *findSetting(arguments.key);
    if (!arguments.fixMode.empty() && arguments.key != "dynamic-model") {
        throw Failure(kUsage, "--fix-mode goes with dynamic-model only; try: ubxctl set fix-mode " + arguments.fixMode);
    }
    if (arguments.singleBand && arguments.key != "constellations") {
        throw Failure(kUsage, "--single-band goes with constellations only");
    }
    const auto parsed = [](const Setting& one, const std::string& text) {
        try {
            return one.format.parse(text);
        } catch (const BadValue& bad) {
            throw Failure(kUsage, std::string(one.key) + ": " + bad.what());
        }
    };
    const Value value = parsed(setting, joined(arguments.value));
    const Setting& fixModeSetting = *findSetting("fix-mode");
    const Value fixMode = arguments.fixMode.empty() ? Value() : parsed(fixModeSetting, arguments.fixMode);

    Receiver& receiver = session.knownReceiver();
    Outcome outcome{Report("set")};
    if (!arguments.fixMode.empty()) {
        outcome.status = setModelAndFixMode(receiver, value, fixMode);
        const Reading both[] = {fixModeSetting.get(receiver), setting.get(receiver)};
        const Value* const wanted[] = {&fixMode, &value};
        const Setting* const settings[] = {&fixModeSetting, &setting};
        for (std::size_t i = 0; i < 2; ++i) {
            const bool same = both[i].value.has_value() && settings[i]->format.same(*both[i].value, *wanted[i]);
            addWritten(outcome, *settings[i], *wanted[i],
                       {both[i].status | (both[i].status == kDone && !same ? kRefused : kDone), both[i].value});
        }
        return outcome;
    }
    if (arguments.singleBand) {
        Setting singleBand = setting;
        singleBand.set = setSingleBand;
        addWritten(outcome, setting, value, change(receiver, singleBand, value));
        return outcome;
    }
    addWritten(outcome, setting, value, change(receiver, setting, value));
    return outcome;
}

Action defineSet(CLI::App& app)
{
    const auto arguments = std::make_shared<SetArguments>();
    app.add_option("key", arguments->key, "The setting")->required()->check(CLI::IsMember(settingKeys()));
    app.add_option("value", arguments->value, "Its value, see below")->required();
    app.add_option("--fix-mode", arguments->fixMode, "With dynamic-model: 2D, 3D or auto, in the same message")
        ->type_name("WORD");
    app.add_flag("--single-band", arguments->singleBand, "With constellations on a ZED-F9T: the first band only");
    app.footer(settingsHelp());
    return [arguments](Session& session) { return runSet(session, *arguments); };
}

Action defineApply(CLI::App& app)
{
    struct Arguments
    {
        std::string file;
        bool dryRun = false;
    };
    const auto arguments = std::make_shared<Arguments>();
    app.add_option("file", arguments->file, "Lines \"key = value\", # begins a comment; - is standard input")
        ->required()
        ->type_name("FILE");
    app.add_flag("--dry-run", arguments->dryRun, "Only show what differs");
    app.footer("\nOnly what differs is written, and each setting is read back. ubxctl dump writes such a file.\n" +
               settingsHelp());
    return [arguments](Session& session) {
        // Before the receiver is touched: a file with a mistake must change nothing.
        const std::vector<WantedSetting> wanted =
            parseStateFile(readStateFile(arguments->file), arguments->file == "-" ? "stdin" : arguments->file);
        Receiver& receiver = session.knownReceiver();
        std::vector<Difference> differences = compare(receiver, wanted);
        if (!arguments->dryRun) apply(receiver, differences);
        return reportOf(differences, arguments->dryRun);
    };
}

std::string stateFileOf(Receiver& receiver, Outcome& outcome)
{
    const Identity& identity = receiver.identity();
    std::string text = "# Settings of a " + identity.modelName() + ", " + identity.firmware +
                       "; write them to a receiver with: ubxctl apply FILE\n";
    Json settings = Json::object();
    for (const Setting& setting : allSettings()) {
        const Reading reading = setting.get(receiver);
        text += "\n# " + std::string(setting.label) + ", " + setting.help + "\n";
        if (reading.value.has_value()) {
            text += std::string(setting.key) + " = " + shownWithUnit(setting, *reading.value) + "\n";
            settings[setting.jsonKey] = setting.format.json(*reading.value);
        } else {
            text += "# " + std::string(setting.key) +
                    (reading.status == kDone ? ": not on this receiver\n" : ": could not be read\n");
            settings[setting.jsonKey] = nullptr;
        }
        outcome.status |= reading.status;
    }
    outcome.report.data("settings", settings);
    return text;
}

Action defineDump(CLI::App& app)
{
    const auto file = std::make_shared<std::string>();
    app.add_option("--output", *file, "Into this file instead of standard output")->type_name("FILE");
    return [file](Session& session) {
        Outcome outcome{Report("dump")};
        std::string text = stateFileOf(session.knownReceiver(), outcome);
        if (!file->empty()) {
            writeAtomically(*file, text);
            outcome.report.data("output", *file);
        } else {
            text.pop_back(); // the line ends itself
            outcome.report.line(text);
        }
        return outcome;
    };
}

} // namespace

std::vector<Command> settingCommands()
{
    return {{"get", "Read a setting, or all", defineGet},
            {"set", "Write a setting and read it back", defineSet},
            {"apply", "Bring the receiver to the settings of a file", defineApply},
            {"dump", "Write the present settings as such a file", defineDump}};
}

} // namespace ubxctl
