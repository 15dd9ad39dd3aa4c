#include "Run.h"

#include <filesystem>
#include <map>
#include <sstream>

#include <unistd.h>

#include "CapturedOutput.h"
#include "Files.h"
#include "commandline/Command.h"
#include "commandline/CommandLine.h"

Ran runUbxctl(const std::vector<std::string>& words, const ubxctl::Surroundings& surroundings)
{
    const testsupport::CapturedOutput output(STDOUT_FILENO);
    const testsupport::CapturedOutput errors(STDERR_FILENO);
    const int code = ubxctl::run(words, surroundings);
    return {code, output.text(), errors.text()};
}

Ran runUbxctl(const std::vector<std::string>& words)
{
    return runUbxctl(words, ubxctl::Surroundings::real());
}

ubxctl::Surroundings deviceWith(std::chrono::milliseconds replyLimit)
{
    ubxctl::Surroundings surroundings = ubxctl::Surroundings::real();
    surroundings.exchange = std::make_shared<ubxctl::SerialExchange>(replyLimit);
    return surroundings;
}

std::string ubxctlCommand()
{
    // As in the sandbox of commands: a flush leaves alone what a real port would have sent by then.
    const std::filesystem::path programs = testsupport::programDirectory();
    return "env ASAN_OPTIONS=verify_asan_link_order=0 LD_PRELOAD=" +
           (programs.parent_path() / "lib/libubxttyflush.so").string() + " " + (programs / "ubxctl").string();
}

std::vector<std::string> commandPaths()
{
    std::vector<std::string> paths;
    for (const ubxctl::CommandGroup& group : ubxctl::allCommands()) {
        for (const ubxctl::Command& command : group.commands)
            paths.push_back(command.path);
    }
    return paths;
}

std::vector<std::string> sampleOf(const std::string& path)
{
    static const std::map<std::string, std::vector<std::string>> arguments = {
        {"set", {"cable-delay", "42"}},
        {"apply", {"/tmp/wanted"}},
        {"survey auto", {"--duration", "60s", "--accuracy", "50m"}},
        {"survey static", {"47.3769", "8.54169", "455.1m"}},
        {"survey mode", {"auto"}},
        {"rates ubx", {"1"}},
        {"rates nmea", {"1"}},
        {"rates nmea-partial", {"1"}},
        {"timepulse set", {"2", "on"}},
        {"timepulse grid", {"GPS"}},
        {"group-delay", {"12"}},
        {"monitor", {"--once"}},
        {"trace", {"--seconds", "0.3"}},
        {"metrics", {}},
    };
    std::istringstream stream(path);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    const auto own = arguments.find(path);
    if (own != arguments.end()) words.insert(words.end(), own->second.begin(), own->second.end());
    return words;
}
