#include "ChildProcess.h"
#include "Client.h"
#include "Files.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/stat.h>

using testsupport::bytes;
using testsupport::ChildProcess;
using testsupport::runToEnd;

// The program ubxsim: its arguments, its link, its end.

namespace
{

std::string program()
{
    return testsupport::programDirectory() / "ubxsim";
}

bool exists(const std::string& path)
{
    struct stat status
    {};
    return ::lstat(path.c_str(), &status) == 0;
}

std::string complaintAbout(const std::vector<std::string>& arguments)
{
    std::vector<std::string> command = {program()};
    command.insert(command.end(), arguments.begin(), arguments.end());
    const auto ended = runToEnd(command);
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, "");
    return ended.errors;
}

} // namespace

TEST(SimulatorProgram, PrintsItsTerminalAndServesUntilItIsTerminated)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        const std::string link = "/tmp/ubxsim-link";
        ChildProcess simulator({program(), "--quiet", "--speed", "unlimited", "--link", link});
        const std::string path = simulator.readLine();
        {
            client::Client host(path);
            EXPECT_TRUE(host.poll("0A 04").has_value());
            client::Client throughLink(link);
            EXPECT_TRUE(throughLink.poll("06 08").has_value());
        }

        simulator.send(signal);

        EXPECT_EQ(simulator.wait().status, 0);
        EXPECT_FALSE(exists(link));
    }
}

TEST(SimulatorProgram, SimulatesTheModelAndFirmwareAskedFor)
{
    ChildProcess simulator({program(), "--model", "zed-f9t", "--firmware", "TIM 2.13", "--quiet"});
    client::Client host(simulator.readLine());

    const auto version = host.poll("0A 04");

    ASSERT_TRUE(version.has_value());
    EXPECT_NE(std::string(version->begin(), version->end()).find("FWVER=TIM 2.13"), std::string::npos);
}

TEST(SimulatorProgram, PlaysFaultsFromTheCommandLineAndFromAScript)
{
    const std::string script = "/tmp/faults";
    testsupport::write(script, "# one by one\nrefuse CFG-RATE x1\n");
    ChildProcess simulator({program(), "--quiet", "--speed", "unlimited", "--script", script, "--fault",
                            "ignore MON-VER x1", "--fault", "answer CFG-RXM 01 02 x1"});
    client::Client host(simulator.readLine());

    host.send("0A 04");
    host.send("06 08");
    host.send("06 11");

    const auto items = host.collect(std::chrono::milliseconds(100));
    EXPECT_EQ(client::outline(items), "0500:2 0611:2 0501:2");
}

TEST(SimulatorProgram, TracesASessionThatCanBeReplayed)
{
    const std::string trace = "/tmp/session";
    {
        ChildProcess simulator({program(), "--quiet", "--speed", "unlimited", "--trace", trace});
        client::Client host(simulator.readLine());
        ASSERT_TRUE(host.poll("06 08").has_value());
        simulator.send(SIGTERM);
        ASSERT_EQ(simulator.wait().status, 0);
    }

    ChildProcess replay({program(), "--replay", trace, "--time-scale", "100"});
    client::Client host(replay.readLine());

    EXPECT_EQ(testsupport::hex(host.waitFor(0x0608).value_or(client::Bytes())), "E8 03 01 00 01 00");
    EXPECT_TRUE(host.poll("06 08").has_value());
}

TEST(SimulatorProgram, StartsAtTheTimeAndPlaceAskedFor)
{
    ChildProcess simulator({program(), "--quiet", "--speed", "unlimited", "--start", "2030-01-02T03:04:05Z",
                            "--position", "-12.5", "-77.25", "150"});
    client::Client host(simulator.readLine());

    const auto pvt = host.poll("01 07");

    ASSERT_TRUE(pvt.has_value());
    EXPECT_EQ(client::number(*pvt, 4, 2), 2030U);
    EXPECT_EQ(client::number(*pvt, 8, 1), 3U);
    EXPECT_NEAR(static_cast<double>(client::signedNumber(*pvt, 28, 4)), -125000000, 300);
    EXPECT_NEAR(static_cast<double>(client::signedNumber(*pvt, 24, 4)), -772500000, 300);
}

TEST(SimulatorProgram, ShowsHelp)
{
    const auto help = runToEnd({program(), "--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* option : {"--model", "--firmware", "--strict-legacy", "--no-l5", "--port", "--link", "--quiet",
                               "--speed", "--time-scale", "--start", "--cold-start", "--position", "--fault",
                               "--script", "--trace", "--replay", "Exit status"}) {
        EXPECT_NE(help.output.find(option), std::string::npos) << option;
    }

    const auto faults = runToEnd({program(), "--help-faults"});
    EXPECT_EQ(faults.status, 0);
    EXPECT_NE(faults.output.find("out-of-order MSG"), std::string::npos);
}

TEST(SimulatorProgram, SaysWhatIsWrongWithItsArguments)
{
    EXPECT_EQ(complaintAbout({"--firmware", "TIM 9"}),
              "ubxsim: no firmware \"TIM 9\" for a NEO-M8T; known are TIM 1.10, TIM 1.11\n");
    EXPECT_EQ(complaintAbout({"--fault", "late MON-VER"}), "ubxsim: --fault \"late MON-VER\": the time is missing\n");
    EXPECT_EQ(complaintAbout({"--script", "/tmp/none"}), "ubxsim: cannot read the script /tmp/none\n");
    EXPECT_EQ(complaintAbout({"--start", "yesterday"}),
              "ubxsim: --start: \"yesterday\" is no UTC time since 1980, such as 2026-12-31T23:59:50Z\n");
    EXPECT_EQ(complaintAbout({"--replay", "x", "--fault", "restart"}),
              "ubxsim: --replay plays what was recorded: --fault, --script and --trace don't go with it\n");
    EXPECT_NE(complaintAbout({"--model", "zed-f9p"}).find("--model"), std::string::npos);
    EXPECT_NE(complaintAbout({"--bogus"}).find("--bogus"), std::string::npos);
}

TEST(SimulatorProgram, FailsWhereItCannotServe)
{
    const auto noRecording = runToEnd({program(), "--replay", "/tmp/none"});
    EXPECT_EQ(noRecording.status, 1);
    EXPECT_EQ(noRecording.errors, "ubxsim: cannot read the recording /tmp/none\n");

    const auto noLink = runToEnd({program(), "--link", "/no/such/place"});
    EXPECT_EQ(noLink.status, 1);
    EXPECT_NE(noLink.errors.find("cannot make the link /no/such/place"), std::string::npos);
}
