// The program ubxsandbox and the script around it.

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/syscall.h>

#include "ChildProcess.h"
#include "Files.h"
#include "Refusal.h"
#include "SandboxCommandFixture.h"

namespace fs = std::filesystem;

using testsupport::Ended;
using testsupport::runToEnd;
using testsupport::write;

namespace
{

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

    for (const std::string& odd : {std::string(), "/tmp/" + std::string(5000, 'x')}) {
        const int status = runToEnd(sandboxed({"--keep", odd, odd})).status;
        EXPECT_TRUE(status == 126 || status == 127) << status;
    }

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
