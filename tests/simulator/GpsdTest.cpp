#include "ChildProcess.h"
#include "SimulatorTest.h"

#include <arpa/inet.h>
#include <csignal>
#include <cstdlib>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using testsupport::ChildProcess;
using testsupport::runToEnd;

// A second opinion: gpsd, which knows these receivers, must take the simulator for one.

namespace
{

bool haveGpsd()
{
    return runToEnd({"sh", "-c", "PATH=$PATH:/usr/sbin command -v gpsd && command -v gpspipe"}).status == 0;
}

bool onContinuousIntegration()
{
    const char* ci = std::getenv("CI");
    return ci != nullptr && std::string(ci) == "true";
}

/// A port that nobody uses: gpsd and gpspipe talk over the network of the machine.
std::string freePort()
{
    const int descriptor = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    EXPECT_EQ(::bind(descriptor, reinterpret_cast<sockaddr*>(&address), size), 0);
    EXPECT_EQ(::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size), 0);
    ::close(descriptor);
    return std::to_string(ntohs(address.sin_port));
}

bool contains(const std::string& line, const std::string& text)
{
    return line.find(text) != std::string::npos;
}

class Gpsd : public testing::TestWithParam<ubxsim::Model>
{
protected:
    void SetUp() override
    {
        if (!haveGpsd()) {
            if (onContinuousIntegration()) {
                FAIL() << "gpsd and gpsd-clients must be installed here";
            }
            GTEST_SKIP() << "gpsd or gpspipe is not installed";
        }
    }
};

} // namespace

TEST_P(Gpsd, RecognisesTheReceiverItsVersionFixAndSatellites)
{
    ubxsim::SimulatorOptions options;
    options.model = GetParam();
    options.epoch = std::chrono::milliseconds(200);
    ubxsim::ReceiverSimulator receiver(options);
    const bool older = options.model == ubxsim::Model::neoM8t;
    const std::string port = freePort();
    ChildProcess gpsd({"sh", "-c", "PATH=$PATH:/usr/sbin exec gpsd -N -n -S " + port + " " + receiver.devicePath()});
    // Tries until gpsd listens.
    ChildProcess pipe({"sh", "-c",
                       "for i in 1 2 3 4 5 6 7 8 9 10; do gpspipe -w -n 200 127.0.0.1:" + port +
                           " 2>/dev/null && exit; sleep 0.3; done"});

    bool version = false;
    bool fix = false;
    bool satellites = false;
    for (int line = 0; line < 300 && !(version && fix && satellites); ++line) {
        const std::string report = pipe.readLine();
        version = version || (contains(report, "\"driver\":\"u-blox\"") &&
                              contains(report, older ? "FWVER=TIM 1.10" : "FWVER=TIM 2.20") &&
                              contains(report, older ? "MOD=NEO-M8T-0" : "MOD=ZED-F9T"));
        fix = fix || (version && contains(report, "\"class\":\"TPV\"") && contains(report, "\"mode\":3") &&
                      contains(report, "\"lat\":-31.950") && contains(report, "\"lon\":115.860"));
        satellites =
            satellites || (version && contains(report, "\"class\":\"SKY\"") && contains(report, "\"gnssid\":6"));
    }

    EXPECT_TRUE(version);
    EXPECT_TRUE(fix);
    EXPECT_TRUE(satellites);
    pipe.send(SIGKILL);
    gpsd.send(SIGTERM);
    gpsd.wait();
}

INSTANTIATE_TEST_SUITE_P(Receivers, Gpsd, testing::Values(ubxsim::Model::neoM8t, ubxsim::Model::zedF9t),
                         [](const auto& model) { return model.param == ubxsim::Model::neoM8t ? "NeoM8t" : "ZedF9t"; });
