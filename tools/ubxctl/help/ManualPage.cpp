#include "help/ManualPage.h"

#include <sstream>

#include <CLI/CLI.hpp>

namespace ubxctl
{

namespace
{

/// Text that troff takes as it stands.
std::string escaped(const std::string& text)
{
    std::string safe;
    bool lineStart = true;
    for (const char character : text) {
        // A dot or a quote at the start of a line is a command.
        if (lineStart && (character == '.' || character == '\'')) safe += "\\&";
        lineStart = character == '\n';
        if (character == '\\') {
            safe += "\\e";
        } else if (character == '-') {
            safe += "\\-";
        } else {
            safe += character;
        }
    }
    return safe;
}

/// As written, line by line.
std::string verbatim(const std::string& text)
{
    return text.empty() ? "" : ".PP\n.nf\n" + escaped(text.substr(text.find_first_not_of('\n'))) + "\n.fi\n";
}

std::string optionEntries(const CLI::App& app)
{
    std::string text;
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_group().empty()) continue;
        const std::string value = option->get_type_name().empty() || option->get_type_size() == 0
                                      ? ""
                                      : " \\fI" + escaped(option->get_type_name()) + "\\fR";
        const std::string name = option->get_positional()
                                     ? "\\fI" + escaped(option->get_single_name()) + "\\fR"
                                     : "\\fB" + escaped(option->get_name(false, true)) + "\\fR" + value;
        text += ".TP\n" + name + "\n" + escaped(option->get_description()) + "\n";
    }
    return text;
}

std::string synopsisOf(const CLI::App& command)
{
    std::string words;
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_positional()) {
            words += option->get_required() ? " \\fI" + escaped(option->get_single_name()) + "\\fR"
                                            : " [\\fI" + escaped(option->get_single_name()) + "\\fR]";
        }
    }
    return words;
}

std::string commandEntries(const CLI::App& app, const std::string& path)
{
    std::string text;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        const std::string own = path + command->get_name();
        if (!command->get_subcommands([](const CLI::App*) { return true; }).empty()) {
            text += commandEntries(*command, own + " ");
            continue;
        }
        text += ".SS \"" + escaped(own) + "\"\n\\fBubxctl " + escaped(own) + "\\fR" + synopsisOf(*command) + "\n.PP\n" +
                escaped(command->get_description()) + ".\n" + optionEntries(*command) + verbatim(command->get_footer());
    }
    return text;
}

} // namespace

std::string manualPage(const CLI::App& app, const std::string& version)
{
    const std::string description = app.get_description();
    return ".TH UBXCTL 1 \"\" \"ubxcontrol " + version + "\" \"User Commands\"\n" + ".SH NAME\n" + "ubxctl \\- " +
           escaped(description.substr(description.find(": ") + 2)) + "\n" +
           ".SH SYNOPSIS\n\\fBubxctl\\fR [\\fIOPTIONS\\fR] \\fICOMMAND\\fR [\\fIARGUMENTS\\fR]\n" +
           ".SH OPTIONS\nThese go for every command and may stand anywhere.\n" + optionEntries(app) + ".SH COMMANDS\n" +
           commandEntries(app, "") + ".SH NOTES\n" + verbatim(app.get_footer()) + ".SH SEE ALSO\n\\fBubxsim\\fR(1)\n";
}

} // namespace ubxctl
