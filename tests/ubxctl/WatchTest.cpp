// Traces, metrics, one picture of the monitor, and the plot.

#include <filesystem>
#include <sstream>

#include <gmock/gmock.h>

#include "ChildProcess.h"
#include "Files.h"
#include "OnReceivers.h"
#include "Tools.h"
#include "monitor/Screen.h"
#include "plot/SkyPlot.h"
#include "sandbox/Sandbox.h"

using testing::ContainsRegex;
using testing::HasSubstr;

namespace
{

class Watch : public OnEachTalkingReceiver
{
protected:
    /// NAV-SAT with each solution, on the port that the test listens to.
    void putOutSatellites() { ASSERT_TRUE(receiver().setKeyValue(0x20910016, 1)); }
};

std::string linesWith(const std::string& text, const std::string& part)
{
    std::istringstream stream(text);
    std::string found;
    for (std::string line; std::getline(stream, line);) {
        if (line.find(part) != std::string::npos) found += line + "\n";
    }
    return found;
}

std::size_t linesOf(const std::string& text)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

} // namespace

TEST_P(Watch, TraceShowsWhatPassesAndEndsAfterItsCount)
{
    const Ran ran = runUbxctl({"trace", "--count", "30"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(linesOf(ran.output), 30U);
    EXPECT_THAT(ran.output, ContainsRegex("[0-9][0-9]:[0-9][0-9]:[0-9][0-9]\\.[0-9][0-9][0-9]  NMEA  \\$GNGGA,"));
}

TEST_P(Watch, TraceNamesFrames)
{
    putOutSatellites();
    const Ran ran = runUbxctl({"trace", "--count", "90"});
    EXPECT_THAT(linesWith(ran.output, "  UBX   01 35  "), ContainsRegex("Satellite Information, [0-9]+ bytes  "));
}

TEST_P(Watch, TraceGivesProgramsAnObjectALine)
{
    const Ran ran = runUbxctl({"trace", "--count", "20", "--json"});
    EXPECT_EQ(linesOf(ran.output), 20U);
    testsupport::write("/tmp/traced", ran.output);
    expectValid("/tmp/traced");
}

TEST_P(Watch, TraceRecordsWhatTheSimulatorReplays)
{
    putOutSatellites();
    ASSERT_EQ(runUbxctl({"trace", "--seconds", "0.5", "--raw", "/tmp/recorded"}).code, 0);

    const std::string programs = testsupport::programDirectory();
    testsupport::ChildProcess replay({programs + "/ubxsim", "--replay", "/tmp/recorded"});
    std::string terminal = replay.readLine();
    terminal.erase(terminal.find_last_not_of("\r\n") + 1);
    sandbox::linkGps(terminal);
    // It holds no version: five times as fast, the identification gives up after two seconds.
    const testclock::FastClock clock(5);
    const Ran ran = runUbxctl({"satellites", "--json"});

    EXPECT_THAT(ran.code, testing::AnyOf(0, 4)); // it holds no navigation solution
    EXPECT_GT(ran.json()["satellites"].size(), 5U);
}

TEST_P(Watch, MetricsAreWhatPrometheusTakes)
{
    UBX_NEEDS_TOOL("promtool");
    const Ran ran = runUbxctl({"metrics", "--output", "/tmp/ubx.prom"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.output, "");
    const testsupport::Ended ended = testsupport::runToEnd({"sh", "-c", "promtool check metrics < /tmp/ubx.prom"});
    EXPECT_EQ(ended.status, 0) << ended.output << ended.errors;

    const std::string text = testsupport::slurp("/tmp/ubx.prom");
    EXPECT_THAT(text, HasSubstr("\nubx_up 1\n"));
    EXPECT_THAT(text, HasSubstr(std::string("firmware=\"") + GetParam().firmware + "\""));
    EXPECT_THAT(text, ContainsRegex("ubx_satellites_tracked\\{system=\"GPS\"\\} [1-9]"));
    EXPECT_THAT(text, HasSubstr("ubx_timing_mode{mode=\"dynamic\"} 1\n"));
    EXPECT_THAT(text, ContainsRegex("ubx_cable_delay_seconds 0.00000005\n"));
    // Nothing is left beside it, and others may read it.
    for (const auto& entry : std::filesystem::directory_iterator("/tmp"))
        EXPECT_THAT(entry.path().filename().string(), testing::Not(testing::StartsWith(".ubx.prom")));
}

TEST_P(Watch, MetricsSayThatAReceiverIsDown)
{
    testsupport::write("/tmp/ubx.prom", "ubx_up 1\n");
    receiver().hangUp();
    EXPECT_EQ(runUbxctl({"metrics", "--output", "/tmp/ubx.prom"}).code, 69);
    EXPECT_THAT(testsupport::slurp("/tmp/ubx.prom"), testing::EndsWith("\nubx_up 0\n"));
}

TEST_P(Watch, MonitorNeedsATerminalUnlessOnePictureIsEnough)
{
    EXPECT_EQ(runUbxctl({"monitor"}).code, 64);
    const Ran ran = runUbxctl({"monitor", "--once"});
    EXPECT_EQ(ran.code, 0);
    for (const char* label :
         {"Time ", "Fix ", "Position ", "Timing mode ", "Time pulses ", "Antenna ", "Interference ", "GPS "})
        EXPECT_THAT(ran.output, HasSubstr(std::string("\n") + label));
    EXPECT_THAT(ran.output, testing::Not(HasSubstr("q ends")));
}

TEST_P(Watch, SatellitesAreDrawn)
{
    const Ran ran = runUbxctl({"satellites", "--plot", "/tmp/sky.svg", "--json"});
    EXPECT_EQ(ran.code, 0);
    const std::string svg = testsupport::slurp("/tmp/sky.svg");
    EXPECT_THAT(svg, testing::StartsWith("<?xml"));
    EXPECT_THAT(svg, testing::EndsWith("</svg>\n"));
    EXPECT_THAT(svg, HasSubstr(">GPS "));
    const auto shown = ran.json();
    int drawn = 0;
    for (const auto& satellite : shown["satellites"]) {
        if (satellite["system"] != "GPS") continue;
        ++drawn;
        char name[8];
        std::snprintf(name, sizeof name, "G%02d", satellite["number"].get<int>());
        EXPECT_THAT(svg, HasSubstr(std::string(">") + name + "</text>"));
    }
    EXPECT_GT(drawn, 0);
}

UBX_ON_EACH_RECEIVER(Watch);

namespace
{

ubxctl::Snapshot fullSnapshot()
{
    ubxctl::Snapshot snapshot;
    snapshot.solution.emplace();
    snapshot.solution->fix = ubxctl::NavigationSolution::Fix::timeOnly;
    snapshot.survey.emplace();
    snapshot.timingMode.emplace();
    snapshot.timingMode->kind = ubxctl::TimingMode::Kind::survey;
    snapshot.timingMode->duration = 10800;
    snapshot.hardware.emplace();
    snapshot.satellites.emplace();
    for (std::uint8_t number = 1; number <= 64; ++number) {
        snapshot.satellites->push_back({static_cast<std::uint8_t>(number % 7), number, number, 30, 100, 7, true});
    }
    return snapshot;
}

} // namespace

TEST(MonitorScreen, FitsIntoEveryTerminal)
{
    for (const int columns : {1, 2, 10, 20, 40, 79, 200}) {
        for (const int rows : {1, 3, 10, 60}) {
            const auto lines = ubxctl::monitorScreen({"ZEDF9T", "00190000", "TIM 2.20", "29.20", "ZED-F9T"},
                                                     fullSnapshot(), {{columns, rows}, false, false});
            EXPECT_LE(lines.size(), static_cast<std::size_t>(rows));
            for (const std::string& line : lines)
                EXPECT_LE(line.size(), static_cast<std::size_t>(columns)) << line;
        }
    }
}

TEST(MonitorScreen, SaysThatTheReceiverDoesNotReply)
{
    ubxctl::Snapshot snapshot;
    snapshot.status = 4;
    const auto lines = ubxctl::monitorScreen({}, snapshot, {{80, 24}, false, false});
    EXPECT_THAT(lines, testing::Contains("The receiver does not reply."));
}

TEST(MonitorScreen, BarsGrowWithTheSignal)
{
    EXPECT_EQ(ubxctl::signalBar(0, true), "·");
    EXPECT_EQ(ubxctl::signalBar(15, true), "▁");
    EXPECT_EQ(ubxctl::signalBar(44, true), "▆");
    EXPECT_EQ(ubxctl::signalBar(99, true), "█");
    EXPECT_EQ(ubxctl::signalBar(0, false), ".");
    EXPECT_EQ(ubxctl::signalBar(44, false), "4");
    EXPECT_EQ(ubxctl::signalBar(255, false), "9");
}

TEST(SkyPlot, IsValidWhateverIsInTheSky)
{
    UBX_NEEDS_TOOL("python3");
    std::vector<ubxctl::Satellite> satellites;
    for (int i = 0; i < 256; ++i) {
        satellites.push_back(
            {static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(255 - i), i, i - 128, i * 100, 7, i % 2 == 0});
    }
    testsupport::write("/tmp/all.svg", ubxctl::skyPlot(satellites, "", "<\"&>"));
    testsupport::write("/tmp/none.svg", ubxctl::skyPlot({}, "2024-03-07T09:05:42Z", "ZED-F9T"));
    for (const char* file : {"/tmp/all.svg", "/tmp/none.svg"}) {
        EXPECT_EQ(testsupport::runToEnd(
                      {"/usr/bin/python3", "-c", "import sys, xml.dom.minidom as d; d.parse(sys.argv[1])", file})
                      .status,
                  0)
            << file;
    }
}
