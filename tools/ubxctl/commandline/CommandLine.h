#pragma once

#include <memory>
#include <string>
#include <vector>

#include "commandline/Command.h"

namespace CLI
{
class App;
}

namespace ubxctl
{

/// The command line: every command with its arguments, and the options that go for all.
class CommandLine
{
public:
    CommandLine();
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// @param words  without the program's name. @throws CLI::ParseError
    void parse(std::vector<std::string> words);

    const Options& options() const { return options_; }
    const Action& action() const { return chosen_; }
    CLI::App& app() { return *app_; }

private:
    void add(const Command& command, const std::string& group);

    Options options_;
    Action chosen_;
    std::unique_ptr<CLI::App> app_;
};

/// Runs ubxctl. @return its exit code.
int run(const std::vector<std::string>& words, const Surroundings& surroundings);

} // namespace ubxctl
