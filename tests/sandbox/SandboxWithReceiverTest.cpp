// The program ubxsandbox with a receiver. A shell script stands in for the simulator: it makes the link that it is told
// to make, and says when it starts and ends.

#include <array>
#include <csignal>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/wait.h>

#include "ChildProcess.h"
#include "Files.h"
#include "SandboxCommandFixture.h"

namespace fs = std::filesystem;

using testsupport::ChildProcess;
using testsupport::Ended;
using testsupport::runToEnd;
using testsupport::slurp;

namespace
{

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

/// Runs a command with a receiver on a terminal of its own.
class SandboxOnTerminal : public SandboxWithReceiver
{
protected:
    SandboxOnTerminal()
    {
        ::unlockpt(terminal_);
        ::ptsname_r(terminal_, name_.data(), name_.size());
    }
    ~SandboxOnTerminal() override { ::close(terminal_); }

    void becomeForeground() const
    {
        ::setsid();
        ::ioctl(::open(name_.data(), O_RDWR), TIOCSCTTY, 0);
    }

    /// Returns when all in the foreground have been sent the signal, which is before the terminal shows "^C".
    void typeInterrupt() const
    {
        ASSERT_EQ(::write(terminal_, "\x03", 1), 1);
        std::array<char, 2> shown{};
        ASSERT_EQ(::read(terminal_, shown.data(), shown.size()), 2);
        ASSERT_EQ(std::string(shown.data(), 2), "^C");
    }

private:
    int terminal_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    std::array<char, 64> name_{};
};

constexpr const char* kTellsSignals =
    "trap 'echo interrupted' INT; trap 'echo ended; exit 3' TERM; echo ready; while :; do sleep 0.02; done";

TEST_F(SandboxOnTerminal, LeavesTheInterruptToTheCommandAndKeepsTheReceiver)
{
    ChildProcess running(withReceiver({"sh", "-c", kTellsSignals}), [this] { becomeForeground(); });
    ASSERT_EQ(running.readLine(), "ready");

    typeInterrupt();
    EXPECT_EQ(running.readLine(), "interrupted");
    running.send(SIGTERM);

    EXPECT_EQ(running.wait().status, 3);
    EXPECT_EQ(log(), "started with --link /dev/tty_gps\nended\n");
}

TEST_F(SandboxOnTerminal, DoesNotPassTheInterruptOnASecondTime)
{
    // A command that has left the terminal gets no more than what is passed on.
    ChildProcess running(withReceiver({"setsid", "sh", "-c", kTellsSignals}), [this] { becomeForeground(); });
    ASSERT_EQ(running.readLine(), "ready");

    typeInterrupt();
    running.send(SIGTERM);

    EXPECT_EQ(running.wait().output, "ended\n");
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

} // namespace
