#include "simulator/replay/ReplaySimulator.h"
#include "simulator/ubxsim/CommandLine.h"

#include <csignal>
#include <exception>
#include <iostream>

namespace
{

// Blocked from the start, so that the threads of the simulator never see them.
class EndSignals
{
public:
    EndSignals()
    {
        ::sigemptyset(&signals_);
        for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
            ::sigaddset(&signals_, signal);
        }
        ::pthread_sigmask(SIG_BLOCK, &signals_, nullptr);
    }

    void wait() const
    {
        int signal = 0;
        ::sigwait(&signals_, &signal);
    }

private:
    sigset_t signals_{};
};

template <typename Simulator>
void serve(Simulator& simulator, const std::string& link, const EndSignals& signals)
{
    if (!link.empty()) {
        simulator.linkAt(link);
    }
    std::cout << simulator.devicePath() << std::endl;
    signals.wait();
}

void run(const ubxsim::CommandLine& line, const EndSignals& signals)
{
    if (!line.replayFile.empty()) {
        ubxsim::ReplayOptions options;
        options.epoch = std::chrono::microseconds(static_cast<std::int64_t>(1e6 / line.simulator.timeScale));
        ubxsim::ReplaySimulator simulator(ubxsim::Recording::fromFile(line.replayFile), options);
        serve(simulator, line.link, signals);
        return;
    }
    ubxsim::ReceiverSimulator simulator(line.simulator);
    for (const ubxsim::Action& action : line.actions) {
        simulator.schedule(action);
    }
    serve(simulator, line.link, signals);
}

} // namespace

int main(int argc, char** argv)
{
    const EndSignals signals;
    try {
        int exitCode = ubxsim::kDone;
        const auto line = ubxsim::readCommandLine(argc, argv, exitCode);
        if (!line) {
            return exitCode;
        }
        run(*line, signals);
    } catch (const std::exception& error) {
        std::cerr << "ubxsim: " << error.what() << "\n";
        return ubxsim::kFailed;
    }
    return ubxsim::kDone;
}
