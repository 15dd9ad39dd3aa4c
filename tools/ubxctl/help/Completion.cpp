#include "help/Completion.h"

#include <CLI/CLI.hpp>

#include "settings/Setting.h"

namespace ubxctl
{

namespace
{

constexpr const char* kHead = R"(# bash completion for ubxctl
_ubxctl()
{
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} path= key= i skip=
    COMPREPLY=()
    # The words of the command so far, without options and what belongs to them.
    for ((i = 1; i < COMP_CWORD; i++)); do
        if [[ -n $skip ]]; then
            skip=
            continue
        fi
        case ${COMP_WORDS[i]} in
        --wait-lock|--interface|--duration|--accuracy|--output|--raw|--plot|--fix-mode|--constellations|--count|--seconds)
            skip=1 ;;
        -*) ;;
        *) path="$path${path:+ }${COMP_WORDS[i]}" ;;
        esac
    done
    case $previous in
    --interface) COMPREPLY=($(compgen -W "auto items messages" -- "$word")); return ;;
    --output|--raw|--plot) compopt -o filenames 2>/dev/null; COMPREPLY=($(compgen -f -- "$word")); return ;;
    --fix-mode) COMPREPLY=($(compgen -W "2D 3D auto" -- "$word")); return ;;
    --wait-lock|--duration|--accuracy|--constellations|--count|--seconds) return ;;
    esac
    case $path in
)";

constexpr const char* kTail = R"(    esac
}
complete -F _ubxctl ubxctl
)";

std::string reply(const std::string& words)
{
    return "COMPREPLY=($(compgen -W \"" + words + "\" -- \"$word\")) ;;\n";
}

std::string optionsOf(const CLI::App& app)
{
    std::string words;
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& name : option->get_lnames())
            words += " --" + name;
    }
    return words;
}

/// The words that an argument takes, from what it is checked against: "{all,time,fix,pos}".
std::string wordsOf(const std::string& typeName)
{
    const std::size_t open = typeName.find('{'), close = typeName.find('}');
    if (open == std::string::npos || close == std::string::npos) return {};
    std::string words = typeName.substr(open + 1, close - open - 1);
    for (char& character : words) {
        if (character == ',') character = ' ';
    }
    return words;
}

std::string caseOf(const std::string& path, const std::string& words)
{
    return "    \"" + path + "\") " + reply(words);
}

void addCases(const CLI::App& app, const std::string& path, const std::string& general, std::string& script)
{
    const auto children = app.get_subcommands([](const CLI::App*) { return true; });
    if (!children.empty()) {
        std::string names;
        for (const CLI::App* child : children)
            names += (names.empty() ? "" : " ") + child->get_name();
        script += caseOf(path, names + general);
        for (const CLI::App* child : children)
            addCases(*child, path + (path.empty() ? "" : " ") + child->get_name(), general, script);
        return;
    }
    // Arguments one after the other, and options at any place.
    std::string place = path;
    for (const CLI::Option* option : app.get_options()) {
        if (!option->get_positional()) continue;
        if (option->get_type_name().find("FILE") != std::string::npos) {
            script +=
                "    \"" + place + "\") compopt -o filenames 2>/dev/null; COMPREPLY=($(compgen -f -- \"$word\")) ;;\n";
        } else {
            script += caseOf(place, wordsOf(option->get_type_name()) + optionsOf(app) + general);
        }
        place += " *";
    }
    if (place == path) script += caseOf(path, optionsOf(app) + general);
}

std::string valueCases()
{
    std::string script;
    for (const Setting& setting : allSettings()) {
        std::string words;
        for (const std::string& word : setting.format.words())
            words += (words.empty() ? "" : " ") + word;
        if (!words.empty()) script += caseOf(std::string("set ") + setting.key, words);
    }
    return script;
}

} // namespace

std::string bashCompletion(const CLI::App& app)
{
    std::string script = kHead + valueCases();
    addCases(app, "", optionsOf(app), script);
    return script + kTail;
}

} // namespace ubxctl
