// The program ubxsandbox and the script around it. A shell script stands in for the simulator: it makes the link that
// it is told to make, and says when it starts and ends.

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include "ChildProcess.h"
#include "Files.h"
#include "Refusal.h"

namespace fs = std::filesystem;

using testsupport::ChildProcess;
using testsupport::Ended;
using testsupport::runToEnd;
using testsupport::slurp;
using testsupport::write;

namespace
{

using Command = std::vector<std::string>;

constexpr const char* kDirectory = "/tmp/command-test";

std::string program()
{
    return testsupport::programDirectory() / "ubxsandbox";
}

Command sandboxed(Command command)
{
    command.insert(command.begin(), program());
    return command;
}

void makeScript(const fs::path& path, const std::string& text)
{
    fs::create_directories(fs::absolute(path).parent_path());
    write(path, "#!/bin/sh\n" + text);
    fs::permissions(path, fs::perms::owner_all | fs::perms::group_all | fs::perms::others_all);
}

/// A process of ours whose parent has gone becomes our child; so it can be waited for.
void adoptOrphans()
{
    ASSERT_EQ(::prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
}

int signalThatEnded(const std::string& pid)
{
    int status = 0;
    return ::waitpid(std::stoi(pid), &status, 0) > 0 && WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

class SandboxCommand : public testing::Test
{
protected:
    SandboxCommand()
    {
        ::setenv("PATH", "/usr/bin:/bin", 1);
        fs::create_directories(kDirectory);
        fs::current_path(kDirectory);
    }
    ~SandboxCommand() override
    {
        fs::current_path("/");
        fs::remove_all(kDirectory);
    }
};

TEST_F(SandboxCommand, RunsInASandboxAndPassesOutputAndArgumentsOn)
{
    const Ended ended =
        runToEnd(sandboxed({"sh", "-c", "echo \"$1\"; echo errors >&2; touch /tmp/inside", "sh", "a b"}));

    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, "a b\n");
    EXPECT_EQ(ended.errors, "errors\n");
    EXPECT_FALSE(fs::exists("/tmp/inside"));
}

TEST_F(SandboxCommand, EndsAsTheCommandEnds)
{
    EXPECT_EQ(runToEnd(sandboxed({"sh", "-c", "exit 0"})).status, 0);
    EXPECT_EQ(runToEnd(sandboxed({"sh", "-c", "exit 1"})).status, 1);
    EXPECT_EQ(runToEnd(sandboxed({"sh", "-c", "exit 255"})).status, 255);
    EXPECT_EQ(runToEnd(sandboxed({"sh", "-c", "kill -INT $$"})).status, -SIGINT);
}

TEST_F(SandboxCommand, SaysWhichCommandCanNotBeRun)
{
    const Ended unknown = runToEnd(sandboxed({"no-such-command"}));
    EXPECT_EQ(unknown.status, 127);
    EXPECT_EQ(unknown.errors, "ubxsandbox: can't run no-such-command: No such file or directory\n");

    const Ended noProgram = runToEnd(sandboxed({"/etc/passwd"}));
    EXPECT_EQ(noProgram.status, 126);
    EXPECT_EQ(noProgram.errors, "ubxsandbox: can't run /etc/passwd: Permission denied\n");
}

TEST_F(SandboxCommand, RefusesWrongOptionsWithAHint)
{
    const std::string hint = "; ubxsandbox --help shows how\n";
    struct Wrong
    {
        Command options;
        std::string message;
    };
    const std::vector<Wrong> all{
        {{}, "a command is missing"},
        {{"--keep", "/tmp"}, "a command is missing"},
        {{"--gps"}, "--gps needs a value"},
        {{"--keep"}, "--keep needs a value"},
        {{"--fast", "true"}, "unknown option --fast"},
        {{"ubxsim", "--"}, "a command is missing after \"--\""},
        {{"--gps", "/dev/null", "ubxsim", "--", "true"},
         "--gps and ubxsim would both be /dev/tty_gps: give one of them"},
    };

    for (const Wrong& wrong : all) {
        const Ended ended = runToEnd(sandboxed(wrong.options));
        EXPECT_EQ(ended.status, 2) << wrong.message;
        EXPECT_EQ(ended.errors, "ubxsandbox: " + wrong.message + hint);
    }
}

TEST_F(SandboxCommand, ExplainsItself)
{
    const Ended ended = runToEnd(sandboxed({"--help"}));

    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output.find("usage: ubxsandbox [OPTION...] COMMAND"), 0U);
    EXPECT_EQ(ended.errors, "");
}

TEST_F(SandboxCommand, EndsWith77AndOneLineWhereTheSystemRefuses)
{
    const Ended ended = runToEnd(sandboxed({"echo", "run"}), [] { refuseSystemCall(SYS_unshare); });

    EXPECT_EQ(ended.status, 77);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors, "ubxsandbox: no private /dev, /var/log and /tmp on this system (unshare: Operation not "
                            "permitted)\n");
}

TEST_F(SandboxCommand, TakesADeviceOfTheMachineAsTheReceiver)
{
    const Ended ended = runToEnd(sandboxed({"--gps", "/dev/zero", "sh", "-c", "head -c 3 /dev/tty_gps | od -An -tx1"}));
    EXPECT_EQ(ended.output, " 00 00 00\n") << ended.errors;

    const Ended missing = runToEnd(sandboxed({"--gps", "/dev/ttyUSB7", "true"}));
    EXPECT_EQ(missing.status, 125);
    EXPECT_EQ(missing.errors, "ubxsandbox: there is no /dev/ttyUSB7\n");
}

TEST_F(SandboxCommand, FindsAProgramBelowTmpWithWhatLiesBesideIt)
{
    makeScript("/tmp/somebodys-build/bin/tool", ". /tmp/somebodys-build/lib/part\n");
    makeScript("/tmp/somebodys-build/lib/part", "echo found\n");
    makeScript("/tmp/single-tool", "echo single\n");

    EXPECT_EQ(runToEnd(sandboxed({"/tmp/somebodys-build/bin/tool"})).output, "found\n");
    EXPECT_EQ(runToEnd(sandboxed({"../somebodys-build/bin/tool"})).output, "found\n");
    EXPECT_EQ(
        runToEnd(sandboxed({"tool"}), [] { ::setenv("PATH", "/tmp/somebodys-build/bin:/usr/bin:/bin", 1); }).output,
        "found\n");
    EXPECT_EQ(runToEnd(sandboxed({"/tmp/single-tool"})).output, "single\n");
}

TEST_F(SandboxCommand, KeepsTheWorkingDirectoryAndWhatItIsToldToKeep)
{
    write("here", "working directory");
    fs::create_directory("/tmp/elsewhere");
    write("/tmp/elsewhere/there", "elsewhere");
    const Command show{"cat", "here", "/tmp/elsewhere/there"};

    Command keeping{"--keep", "/tmp/elsewhere/there"};
    keeping.insert(keeping.end(), show.begin(), show.end());

    EXPECT_EQ(runToEnd(sandboxed(show)).output, "working directory") << "what is only an argument is hidden";
    EXPECT_EQ(runToEnd(sandboxed(keeping)).output, "working directoryelsewhere");
}

TEST_F(SandboxCommand, MayRunASandboxItself)
{
    const Ended ended = runToEnd(sandboxed({program(), "tty_flush_probe"}));

    EXPECT_EQ(ended.output, "arrived\n");
    EXPECT_EQ(ended.errors, "");
}

/// With a stand-in for the simulator.
class SandboxWithReceiver : public SandboxCommand
{
protected:
    SandboxWithReceiver()
    {
        makeScript("ubxsim", R"(trap 'echo ended >> simulator-log; exit 0' TERM
trap 'echo interrupted >> simulator-log; exit 0' INT
echo "started with $*" >> simulator-log
echo $$ > simulator-pid
while [ $# -gt 1 ]; do [ "$1" = --link ] && link=$2; shift; done
ln -s /dev/null "$link"
while :; do sleep 0.02; done
)");
    }

    static Command withReceiver(Command command, Command simulatorOptions = {})
    {
        Command all{program(), "./ubxsim"};
        all.insert(all.end(), simulatorOptions.begin(), simulatorOptions.end());
        all.emplace_back("--");
        all.insert(all.end(), command.begin(), command.end());
        return all;
    }

    static std::string log() { return slurp("simulator-log"); }
};

TEST_F(SandboxWithReceiver, RunsTheCommandOnceTheReceiverIsThereAndEndsItAfterwards)
{
    const Ended ended = runToEnd(
        withReceiver({"sh", "-c", "readlink /dev/tty_gps; cat simulator-log; exit 5"}, {"--model", "zed-f9t"}));

    EXPECT_EQ(ended.status, 5);
    EXPECT_EQ(ended.output, "/dev/null\nstarted with --model zed-f9t --link /dev/tty_gps\n");
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(log(), "started with --model zed-f9t --link /dev/tty_gps\nended\n");
}

TEST_F(SandboxWithReceiver, GivesTheStatusOfShellsForACommandThatASignalEnded)
{
    EXPECT_EQ(runToEnd(withReceiver({"sh", "-c", "kill -SEGV $$"})).status, 128 + SIGSEGV);
    EXPECT_EQ(runToEnd(withReceiver({"no-such-command"})).status, 127);
}

TEST_F(SandboxWithReceiver, WithoutASeparatorIsTheSimulatorAlone)
{
    ChildProcess alone({program(), "./ubxsim", "--link", "/dev/elsewhere"});
    while (log().empty()) {
    }
    while (!fs::exists("simulator-pid")) {
    }

    alone.send(SIGTERM);

    EXPECT_EQ(alone.wait().status, 0);
    EXPECT_EQ(log(), "started with --link /dev/elsewhere\nended\n");
}

TEST_F(SandboxWithReceiver, PassesSignalsOnToTheCommandOnly)
{
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2}) {
        fs::remove("simulator-log");
        ChildProcess running(withReceiver(
            {"sh", "-c",
             "trap 'echo got it; exit 3' " + std::to_string(signal) + "; echo ready; while :; do sleep 0.02; done"}));
        ASSERT_EQ(running.readLine(), "ready") << signal;

        running.send(signal);

        const Ended ended = running.wait();
        EXPECT_EQ(ended.output, "got it\n") << signal;
        EXPECT_EQ(ended.status, 3) << signal;
        EXPECT_EQ(log(), "started with --link /dev/tty_gps\nended\n") << signal;
    }
}

TEST_F(SandboxWithReceiver, LeavesNothingRunningWhenItIsKilled)
{
    adoptOrphans();
    ChildProcess running(withReceiver({"sh", "-c", "echo $$; exec sleep 1000"}));
    const std::string command = running.readLine();
    const std::string simulator = slurp("simulator-pid");

    running.send(SIGKILL);

    EXPECT_EQ(running.wait().status, -SIGKILL);
    EXPECT_EQ(signalThatEnded(command), SIGKILL);
    EXPECT_EQ(signalThatEnded(simulator), SIGKILL);
}

TEST_F(SandboxWithReceiver, KillsASimulatorThatDoesNotEnd)
{
    makeScript("ubxsim", "trap '' TERM\nln -s /dev/null /dev/tty_gps\necho $$ > simulator-pid\nexec sleep 1000\n");

    const Ended ended = runToEnd(withReceiver({"true"}));

    EXPECT_EQ(ended.status, 0);
    EXPECT_NE(::kill(std::stoi(slurp("simulator-pid")), 0), 0);
}

TEST_F(SandboxWithReceiver, EndsWith125WhenTheSimulatorDoesNotComeUp)
{
    makeScript("ubxsim", "echo wrong option; exit 2\n");

    const Ended ended = runToEnd(withReceiver({"echo", "run"}));

    EXPECT_EQ(ended.status, 125);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors,
              "wrong option\nubxsandbox: the simulator ended with status 2 before /dev/tty_gps was there\n");
}

TEST_F(SandboxWithReceiver, EndsWith125WhenThereIsNoSimulator)
{
    fs::remove("ubxsim");

    const Ended ended = runToEnd(withReceiver({"echo", "run"}));

    EXPECT_EQ(ended.status, 125);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors, "ubxsandbox: can't run ./ubxsim: No such file or directory\n"
                            "ubxsandbox: the simulator ended with status 127 before /dev/tty_gps was there\n");
}

TEST_F(SandboxWithReceiver, CanBeEndedWhileTheSimulatorIsStarting)
{
    makeScript("ubxsim", "echo $$ > simulator-pid.new; mv simulator-pid.new simulator-pid; exec sleep 1000\n");
    ChildProcess running(withReceiver({"echo", "run"}));
    while (!fs::exists("simulator-pid")) {
    }

    running.send(SIGTERM);

    const Ended ended = running.wait();
    EXPECT_EQ(ended.status, 128 + SIGTERM);
    EXPECT_EQ(ended.output, "");
    EXPECT_NE(::kill(std::stoi(slurp("simulator-pid")), 0), 0);
}

TEST_F(SandboxWithReceiver, SaysThatTheSimulatorEndedBeforeTheCommand)
{
    const Ended ended = runToEnd(withReceiver({"sh", "-c",
                                               "pid=$(cat simulator-pid); kill $pid; "
                                               "while kill -0 $pid 2>/dev/null; do sleep 0.01; done; echo done"}));

    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, "done\n");
    EXPECT_EQ(ended.errors, "ubxsandbox: the simulator ended with status 0 while the command runs\n");
}

/// The script at the root, told which build to take.
class SandboxScript : public SandboxCommand
{
protected:
    static Ended runScript(const Command& arguments, const std::string& build)
    {
        Command command{testsupport::sourceDirectory() / "scripts" / "sandbox"};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return runToEnd(command, [&build] { ::setenv("UBX_BUILD_DIR", build.c_str(), 1); });
    }
};

TEST_F(SandboxScript, RunsACommandFromAnyDirectory)
{
    const Ended ended =
        runScript({"sh", "-c", "pwd; ls /var/log; exit 4"}, testsupport::programDirectory().parent_path());

    EXPECT_EQ(ended.status, 4);
    EXPECT_EQ(ended.output, "/tmp/command-test\n");
    EXPECT_EQ(ended.errors, "");
}

TEST_F(SandboxScript, SaysThatABuildDirectoryHasNoSandbox)
{
    const Ended ended = runScript({"true"}, "/tmp/empty");

    EXPECT_EQ(ended.status, 125);
    EXPECT_EQ(ended.errors, "scripts/sandbox: no bin/ubxsandbox in UBX_BUILD_DIR=/tmp/empty: build it there first\n");
}

} // namespace
