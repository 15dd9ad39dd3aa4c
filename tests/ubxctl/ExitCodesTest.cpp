// What the exit status says, and the one line that goes with it.

#include <algorithm>
#include <optional>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "ChildProcess.h"
#include "Files.h"
#include "OnReceivers.h"
#include "sandbox/Sandbox.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{

constexpr std::uint16_t kNavx5 = 0x0623;
constexpr std::uint16_t kValset = 0x068A;
constexpr std::uint16_t kValget = 0x068B;
constexpr auto kSoon = std::chrono::milliseconds(200);

class ExitCodes : public OnEachReceiver
{
protected:
    std::uint16_t setOfMinCno() const { return GetParam().isZedF9t() ? kValset : kNavx5; }
    std::uint16_t pollOfMinCno() const { return GetParam().isZedF9t() ? kValget : kNavx5; }

    static void expectOneLine(const Ran& ran)
    {
        EXPECT_THAT(ran.errors, StartsWith("ubxctl: "));
        EXPECT_THAT(ran.errors, EndsWith("\n"));
        EXPECT_EQ(std::count(ran.errors.begin(), ran.errors.end(), '\n'), 1) << ran.errors;
    }
};

/// The device is in use by somebody, while the object lives. What speaks already has the name that it keeps.
class Holder
{
public:
    Holder()
    {
        testsupport::write("/tmp/holder", "held\n");
        child_.emplace(std::vector<std::string>{"sh", "-c", "exec 9<>/dev/tty_gps; flock 9; exec tail -f /tmp/holder"});
        EXPECT_THAT(child_->readLine(), StartsWith("held"));
    }

private:
    std::optional<testsupport::ChildProcess> child_;
};

} // namespace

TEST_P(ExitCodes, Is0WhenItWasDone)
{
    const Ran ran = runUbxctl({"set", "min-cno", "12"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.errors, "");
}

TEST_P(ExitCodes, Is1WhenTheReceiverKeepsAnotherValue)
{
    receiver().keepValue(setOfMinCno());
    const Ran ran = runUbxctl({"set", "min-cno", "12"});
    EXPECT_EQ(ran.code, 1);
    expectOneLine(ran);
    EXPECT_THAT(ran.errors, HasSubstr("min-cno: wanted 12 dBHz, the receiver holds "));
}

TEST_P(ExitCodes, Is1WhenTheReceiverRefuses)
{
    receiver().play({setOfMinCno(), ubxsim::FaultKind::refuse, -1, ubxsim::RequestKind::set, {}});
    const Ran ran = runUbxctl({"set", "min-cno", "12", "--json"});
    EXPECT_EQ(ran.code, 1);
    expectOneLine(ran);
    EXPECT_EQ(ran.json()["status"], 1);
    EXPECT_EQ(ran.json()["wanted"], 12);
    EXPECT_NE(ran.json()["min_cno_dbhz"], 12);
}

TEST_P(ExitCodes, Is4WhenNoReplyComes)
{
    receiver().ignore(pollOfMinCno());
    const Ran ran = withFastClock([] { return runUbxctl({"get", "min-cno"}); });
    EXPECT_EQ(ran.code, 4);
    expectOneLine(ran);
    EXPECT_THAT(ran.errors, HasSubstr("did not reply"));
    EXPECT_THAT(ran.errors, HasSubstr("try: ubxctl doctor"));
    EXPECT_THAT(ran.output, HasSubstr("no reply"));
}

TEST_P(ExitCodes, Is5WhenASettingIsWrittenAndNotAnswered)
{
    receiver().ignore(pollOfMinCno());
    const Ran ran = withFastClock([] { return runUbxctl({"set", "min-cno", "12"}); });
    EXPECT_EQ(ran.code, 5); // the library counts the value that it could not read as another one
}

TEST_P(ExitCodes, Is4ForASilentReceiverWhichNothingIsWrittenTo)
{
    silence();
    receiver().ignore(0x0A09);
    receiver().ignore(0x0D04);
    const Ran ran = withFastClock([] { return runUbxctl({"save"}, deviceWith(kSoon)); });
    EXPECT_EQ(ran.code, 4);
    expectOneLine(ran);
    for (const auto& frame : receiver().receivedFrames())
        EXPECT_FALSE(frame[2] == 0x06 && frame[3] == 0x09) << "CFG-CFG";
}

TEST_P(ExitCodes, Is8WhenACommandCouldNotBeWritten)
{
    // Identified, then the line is full: what the library logs and does not return.
    ubxctl::Surroundings surroundings = deviceWith(kSoon);
    const auto identify = surroundings.control;
    surroundings.control = [&] {
        auto control = identify();
        receiver().stopReading(true);
        const int fd = ::open("/dev/tty_gps", O_WRONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        const std::string filler(1024, '\0');
        while (::write(fd, filler.data(), filler.size()) > 0) {
        }
        while (::write(fd, filler.data(), 1) > 0) {
        }
        ::close(fd);
        return control;
    };
    const Ran ran = runUbxctl({"sbas"}, surroundings);
    EXPECT_EQ(ran.code, 8);
    expectOneLine(ran);
    EXPECT_THAT(ran.output, HasSubstr("not written"));
    receiver().stopReading(false);
}

TEST_P(ExitCodes, Is64ForAWrongCommandLine)
{
    receiver().clearReceived();
    const std::vector<std::vector<std::string>> wrong = {{},
                                                         {"doctr"},
                                                         {"survey"},
                                                         {"set", "min-cno"},
                                                         {"set", "min-cno", "51"},
                                                         {"set", "min-cnr", "5"},
                                                         {"set", "min-cno", "5", "--fix-mode", "3D"},
                                                         {"set", "min-cno", "5", "--single-band"},
                                                         {"rates", "ubx", "256"},
                                                         {"timepulse", "set", "3", "on"},
                                                         {"survey", "auto", "--duration", "3x"},
                                                         {"survey", "auto", "--duration", "0"},
                                                         {"survey", "auto", "--accuracy", "51m"},
                                                         {"survey", "static", "91", "0", "0"},
                                                         {"survey", "mode", "fixed"},
                                                         {"timepulse", "grid", "NAVSTAR"},
                                                         {"--wait-lock", "-1", "info"},
                                                         {"--interface", "morse", "info"},
                                                         {"monitor"}};
    for (const auto& words : wrong) {
        const Ran ran = runUbxctl(words);
        EXPECT_EQ(ran.code, 64) << testing::PrintToString(words);
        expectOneLine(ran);
        EXPECT_EQ(ran.output, "");
    }
    EXPECT_TRUE(receiver().receivedFrames().empty());
}

TEST_P(ExitCodes, Is69WhenTheDeviceIsInUseAndSaysByWhom)
{
    const Holder holder;
    const Ran ran = runUbxctl({"info"});
    EXPECT_EQ(ran.code, 69);
    expectOneLine(ran);
    EXPECT_THAT(ran.errors, testing::ContainsRegex("in use by process [0-9]+ \\(tail -f /tmp/holder\\)"));
    EXPECT_THAT(ran.errors, HasSubstr("--wait-lock"));
}

TEST_P(ExitCodes, OfMetricsOfABusyReceiverIs69AndItDoesNotCountAsDown)
{
    testsupport::write("/tmp/ubx.prom", "ubx_up 1\n");
    const Holder holder;
    EXPECT_EQ(runUbxctl({"metrics", "--output", "/tmp/ubx.prom"}).code, 69);
    EXPECT_EQ(testsupport::slurp("/tmp/ubx.prom"), "ubx_up 1\n");
}

TEST_P(ExitCodes, Is69WhenTheDeviceStaysInUseLongerThanTheCommandWaits)
{
    const Holder holder;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(runUbxctl({"info", "--wait-lock", "0.5"}).code, 69);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
}

TEST_P(ExitCodes, Is0WhenTheDeviceBecomesFreeInTime)
{
    testsupport::ChildProcess holder({"sh", "-c", "exec 9<>/dev/tty_gps; flock 9; echo held; exec sleep 0.3"});
    ASSERT_THAT(holder.readLine(), StartsWith("held"));
    EXPECT_EQ(runUbxctl({"info", "--wait-lock", "20"}).code, 0);
}

TEST_P(ExitCodes, Is69WhenTheDeviceIsNoSerialPort)
{
    sandbox::linkGps("/dev/null");
    const Ran ran = runUbxctl({"info"});
    EXPECT_EQ(ran.code, 69);
    EXPECT_THAT(ran.errors, HasSubstr("is no serial port"));
}

TEST_P(ExitCodes, Is74WhenAFileCanNotBeReadOrWritten)
{
    for (const auto& words : std::vector<std::vector<std::string>>{{"apply", "/tmp/not-there"},
                                                                   {"apply", "/tmp"},
                                                                   {"dump", "--output", "/tmp/no/where"},
                                                                   {"metrics", "--output", "/tmp/no/where"},
                                                                   {"satellites", "--plot", "/tmp/no/where"},
                                                                   {"trace", "--raw", "/tmp/no/where"}}) {
        const Ran ran = runUbxctl(words);
        EXPECT_EQ(ran.code, 74) << words.front();
        expectOneLine(ran);
    }
}

TEST_P(ExitCodes, Is74WhenStandardOutputIsFull)
{
    const testsupport::Ended ended = testsupport::runToEnd({"sh", "-c", ubxctlCommand() + " info > /dev/full"});
    EXPECT_EQ(ended.status, 74);
    EXPECT_THAT(ended.errors, HasSubstr("standard output can't be written"));
}

TEST_P(ExitCodes, LibrarysLinesAreShownWhenTheyAreAskedFor)
{
    receiver().ignore(pollOfMinCno());
    const Ran ran = withFastClock([] { return runUbxctl({"--verbose", "get", "min-cno"}); });
    EXPECT_EQ(ran.code, 4);
    EXPECT_THAT(ran.errors, HasSubstr("Timed out waiting for rx from u-blox."));
}

TEST_P(ExitCodes, WhatTheLibraryPrintsDoesNotGetIntoTheOutput)
{
    const Ran ran = runUbxctl({"--json", "set", "constellations", "GPS"}); // a ZED-F9T prints its flags
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.output.front(), '{');
    EXPECT_EQ(ran.output.find("GNSS_FLAG"), std::string::npos);
}

UBX_ON_EACH_RECEIVER(ExitCodes);
