// ubxsandbox: runs a command in a private sandbox.

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>

#include "../Sandbox.h"
#include "Child.h"
#include "ReceiverRun.h"

namespace fs = std::filesystem;

namespace
{

using sandbox::Arguments;

constexpr int kUsageError = 2;
constexpr int kRefused = 77;

constexpr const char* kHelp =
    R"(usage: ubxsandbox [OPTION...] COMMAND [ARGUMENT...]
       ubxsandbox [OPTION...] ubxsim [ARGUMENT...] -- COMMAND [ARGUMENT...]

Runs a command with a /dev, /var/log and /tmp of its own, empty at first and gone afterwards. The second form starts
the simulated receiver with its arguments, waits until it is /dev/tty_gps, runs the command, and ends the receiver.

  --gps DEVICE   DEVICE of this machine is /dev/tty_gps inside
  --keep PATH    the entry of /tmp, /var/log or /dev/shm that PATH lies in stays visible, as do without asking those
                 of the command, of the working directory and of this program; may be given several times
  --help         prints this

The exit status is that of the command; 77 when the system refuses private namespaces, 125 when the receiver does not
come up or a given device is not there, 126 or 127 when the command can't be run, 2 for wrong options.
)";

struct CommandLine
{
    sandbox::Request request;
    Arguments simulator; ///< Empty: the first form.
    Arguments command;
    bool help = false;
};

struct UsageError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// Splits "ubxsim [ARGUMENT...] -- COMMAND [ARGUMENT...]" where the words are of this form.
void splitOffSimulator(CommandLine& line)
{
    Arguments& words = line.command;
    const auto separator = std::find(words.begin(), words.end(), "--");
    if (fs::path(words.front()).filename() != "ubxsim" || separator == words.end()) return;

    line.simulator.assign(words.begin(), separator);
    words.erase(words.begin(), separator + 1);
    if (words.empty()) throw UsageError("a command is missing after \"--\"");
    if (!line.request.gps.empty()) throw UsageError("--gps and ubxsim would both be /dev/tty_gps: give one of them");
}

CommandLine read(const Arguments& words)
{
    CommandLine line;
    auto word = words.begin();
    const auto valueOf = [&](const std::string& option) {
        if (++word == words.end()) throw UsageError(option + " needs a value");
        return *word;
    };
    for (; word != words.end() && word->substr(0, 1) == "-"; ++word) {
        if (*word == "--gps") {
            line.request.gps = valueOf("--gps");
        } else if (*word == "--keep") {
            line.request.keep.push_back(valueOf("--keep"));
        } else if (*word == "--help") {
            line.help = true;
        } else if (*word == "--") {
            ++word;
            break;
        } else {
            throw UsageError("unknown option " + *word);
        }
    }
    line.command.assign(word, words.end());
    if (line.help) return line;
    if (line.command.empty()) throw UsageError("a command is missing");
    splitOffSimulator(line);
    return line;
}

/// Where the shell would find a program; as given when it would not.
std::string locate(const std::string& program)
{
    if (program.find('/') != std::string::npos) return program;
    const char* path = std::getenv("PATH");
    std::string rest = path != nullptr ? path : "";
    while (!rest.empty()) {
        const std::string directory = rest.substr(0, rest.find(':'));
        rest.erase(0, directory.size() + 1);
        std::error_code notThere;
        if (fs::is_regular_file(fs::path(directory) / program, notThere)) return fs::path(directory) / program;
    }
    return program;
}

void putFirst(const char* variable, const std::string& entry)
{
    const char* others = std::getenv(variable);
    const std::string value = others != nullptr && *others != '\0' ? entry + ":" + others : entry;
    ::setenv(variable, value.c_str(), 1);
}

/// The library lies elsewhere in an installed tree than in a build's.
fs::path preloadBeside(const fs::path& prefix)
{
    const char* const name = "libubxttyflush.so";
    const fs::path installed = prefix / UBX_INSTALLED_LIBRARY_DIR / name;
    return fs::exists(installed) ? installed : prefix / "lib" / name;
}

int run(CommandLine line)
{
    const fs::path ownDirectory = fs::read_symlink("/proc/self/exe").parent_path();
    putFirst("PATH", ownDirectory);
    line.request.preload = preloadBeside(ownDirectory.parent_path());
    line.request.keep.push_back(locate(line.command.front()));
    if (!line.simulator.empty()) line.request.keep.push_back(locate(line.simulator.front()));

    const sandbox::Outcome outcome = sandbox::enter(line.request);
    if (!outcome.entered) {
        std::cerr << "ubxsandbox: " << outcome.why << std::endl;
        return kRefused;
    }

    putFirst("LD_PRELOAD", sandbox::kPreload);
    // In a build with the address sanitizer, a library before its own is no mistake here.
    putFirst("ASAN_OPTIONS", "verify_asan_link_order=0");
    return line.simulator.empty() ? sandbox::become(line.command)
                                  : sandbox::runWithReceiver(line.simulator, line.command);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        const CommandLine line = read(Arguments(argv + 1, argv + argc));
        if (!line.help) return run(line);
        std::cout << kHelp;
        return EXIT_SUCCESS;
    } catch (const UsageError& error) {
        std::cerr << "ubxsandbox: " << error.what() << "; ubxsandbox --help shows how" << std::endl;
        return kUsageError;
    } catch (const std::exception& error) {
        std::cerr << "ubxsandbox: " << error.what() << std::endl;
        return sandbox::kOwnFailure;
    }
}
