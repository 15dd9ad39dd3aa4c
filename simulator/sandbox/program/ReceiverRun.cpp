#include "ReceiverRun.h"

#include <array>
#include <chrono>
#include <iostream>

#include <sys/stat.h>

namespace sandbox
{

namespace
{

using Clock = std::chrono::steady_clock;

constexpr const char* kGps = "/dev/tty_gps";
constexpr auto kTimeToComeUp = std::chrono::seconds(10);
constexpr auto kTimeToEnd = std::chrono::seconds(2);
constexpr timespec kMoment{0, 10'000'000};

/// The signals that this process takes one at a time, by asking, while the object lives.
class Signals
{
public:
    Signals()
    {
        ::sigemptyset(&set_);
        for (const int signal : {SIGCHLD, SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2}) {
            ::sigaddset(&set_, signal);
        }
        ::sigprocmask(SIG_BLOCK, &set_, nullptr);
    }
    ~Signals() { ::sigprocmask(SIG_UNBLOCK, &set_, nullptr); }
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

    const sigset_t& set() const { return set_; }

    /// The next signal that is meant for the command, or 0 when a child has ended or nothing came within the moment.
    int next(const timespec* moment) const
    {
        siginfo_t info{};
        const int signal = moment != nullptr ? ::sigtimedwait(&set_, &info, moment) : ::sigwaitinfo(&set_, &info);
        // What the terminal sends has reached the command without us.
        const bool fromTerminal = info.si_code == SI_KERNEL;
        return signal <= 0 || signal == SIGCHLD || fromTerminal ? 0 : signal;
    }

private:
    sigset_t set_{};
};

bool receiverIsThere()
{
    struct stat device
    {};
    return ::stat(kGps, &device) == 0;
}

/// @return 0 once the receiver is there, otherwise the exit status.
int waitForReceiver(Child& simulator, const Signals& signals)
{
    const auto deadline = Clock::now() + kTimeToComeUp;
    while (!receiverIsThere()) {
        if (simulator.hasEnded()) {
            std::cerr << "ubxsandbox: the simulator ended with status " << simulator.exitStatus() << " before " << kGps
                      << " was there" << std::endl;
            return kOwnFailure;
        }
        if (Clock::now() > deadline) {
            std::cerr << "ubxsandbox: the simulator has not made " << kGps << " in " << kTimeToComeUp.count()
                      << " s; is it one that takes --link?" << std::endl;
            return kOwnFailure;
        }
        const int signal = signals.next(&kMoment);
        if (signal != 0) return 128 + signal;
    }
    return 0;
}

int runToItsEnd(Child& command, Child& simulator, const Signals& signals)
{
    bool receiverLost = false;
    while (!command.hasEnded()) {
        const int signal = signals.next(nullptr);
        if (signal != 0) command.send(signal);
        if (!receiverLost && simulator.hasEnded()) {
            receiverLost = true;
            std::cerr << "ubxsandbox: the simulator ended with status " << simulator.exitStatus()
                      << " while the command runs" << std::endl;
        }
    }
    return command.exitStatus();
}

void end(Child& simulator, const Signals& signals)
{
    simulator.send(SIGTERM);
    const auto deadline = Clock::now() + kTimeToEnd;
    while (!simulator.hasEnded() && Clock::now() < deadline)
        signals.next(&kMoment);
    // One that still runs is killed with its object.
}

} // namespace

int runWithReceiver(Arguments simulatorCommand, const Arguments& command)
{
    const Signals signals;
    simulatorCommand.insert(simulatorCommand.end(), {"--link", kGps});

    Child simulator(simulatorCommand, Child::Role::background, signals.set());
    int status = waitForReceiver(simulator, signals);
    if (status == 0) {
        Child running(command, Child::Role::command, signals.set());
        status = runToItsEnd(running, simulator, signals);
    }
    end(simulator, signals);
    return status;
}

} // namespace sandbox
