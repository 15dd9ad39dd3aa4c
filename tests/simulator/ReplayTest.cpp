#include "Client.h"
#include "Files.h"
#include "simulator/ReceiverSimulator.h"
#include "simulator/replay/ReplaySimulator.h"
#include "simulator/replay/Trace.h"

#include <gtest/gtest.h>

using client::outline;
using testsupport::bytes;
using ubxsim::Recording;
using ubxsim::ReplaySimulator;
using namespace std::chrono_literals;

// Recordings and traces: how they are cut, played and asked.

namespace
{

// NAV-EOE of three epochs, 1 s apart, an ACK and a MON-VER poll in between.
const client::Bytes kThreeEpochs = bytes("23 20 68 69 0A "
                                         "B5 62 01 61 04 00 E8 03 00 00 51 70 "
                                         "B5 62 05 01 02 00 06 00 0E 37 "
                                         "B5 62 01 61 04 00 D0 07 00 00 3D 1C "
                                         "B5 62 0A 04 00 00 0E 34 "
                                         "B5 62 01 61 04 00 B8 0B 00 00 29 C8");

client::Bytes text(const std::string& words)
{
    return client::Bytes(words.begin(), words.end());
}

} // namespace

TEST(SimulatorRecording, IsCutWhereTheTimeOfWeekChanges)
{
    const Recording recording = Recording::fromBytes(kThreeEpochs);

    ASSERT_EQ(recording.chunks().size(), 3U);
    EXPECT_EQ(outline(client::split(recording.chunks()[0].bytes)), "0161:4 0501:2");
    EXPECT_EQ(outline(client::split(recording.chunks()[1].bytes)), "0161:4 0A04:0");
    EXPECT_EQ(recording.chunks()[2].time, 2s);
    EXPECT_EQ(recording.duration(), 3s);
}

TEST(SimulatorRecording, IsCutWhereTheSentenceTimeChangesWhenThereIsNoOther)
{
    const Recording recording = Recording::fromBytes(text("$GNRMC,101500.00,A\r\n$GNGGA,101500.00,1\r\n"
                                                          "$GNRMC,101501.00,A\r\n$GNGGA,101501.00,1\r\n"));

    ASSERT_EQ(recording.chunks().size(), 2U);
    EXPECT_EQ(client::split(recording.chunks()[1].bytes)[0].text, "$GNRMC,101501.00,A");
}

TEST(SimulatorRecording, GivesTheFramesOfAMessageInTurnAndLeavesOutRequests)
{
    Recording recording = Recording::fromBytes(kThreeEpochs);

    for (const char* expected : {"E8 03 00 00", "D0 07 00 00", "B8 0B 00 00", "E8 03 00 00"}) {
        const auto frame = recording.nextFrame(0x0161);
        ASSERT_TRUE(frame.has_value());
        EXPECT_EQ(testsupport::hex(frame->payload), expected);
    }
    EXPECT_FALSE(recording.nextFrame(0x0A04).has_value()) << "the recorded poll is no answer";
    EXPECT_FALSE(recording.nextFrame(0x0107).has_value());
}

TEST(SimulatorRecording, SaysWhatIsWrongWithAFile)
{
    EXPECT_THROW(Recording::fromFile("/tmp/no-such-recording"), std::runtime_error);
    testsupport::write("/tmp/empty-recording", "");
    EXPECT_THROW(Recording::fromFile("/tmp/empty-recording"), std::runtime_error);
}

TEST(SimulatorReplay, StreamsEpochByEpochOverAndOver)
{
    ubxsim::ReplayOptions options;
    options.epoch = 30ms;
    const auto start = std::chrono::steady_clock::now();
    ReplaySimulator replay(Recording::fromBytes(kThreeEpochs), options);
    client::Client host(replay.devicePath());

    for (const char* expected : {"E8 03 00 00", "D0 07 00 00", "B8 0B 00 00", "E8 03 00 00", "D0 07 00 00"}) {
        const auto payload = host.waitFor(0x0161);
        ASSERT_TRUE(payload.has_value());
        EXPECT_EQ(testsupport::hex(*payload), expected);
    }

    EXPECT_GE(std::chrono::steady_clock::now() - start, 4 * 30ms);
}

TEST(SimulatorReplay, AnswersPollsFromTheRecordingAndIgnoresTheRest)
{
    ubxsim::ReplayOptions options;
    options.epoch = 3600s;
    options.trailer = bytes("0D 0A");
    ReplaySimulator replay(Recording::fromBytes(kThreeEpochs), options);
    client::Client host(replay.devicePath());
    ASSERT_TRUE(host.waitFor(0x0501).has_value()); // the first epoch
    host.collect();

    host.send("01 61");
    host.send("01 07");                   // not recorded
    host.send("06 09", "00 00 00 00 1F"); // a set
    host.send("01 61");

    const auto items = host.collect();
    EXPECT_EQ(outline(items), "0161:4 0161:4");
    ASSERT_EQ(items.size(), 4U);
    EXPECT_EQ(items[1].raw, bytes("0D 0A"));
    EXPECT_EQ(items[2].payload, bytes("D0 07 00 00"));
    EXPECT_TRUE(replay.waitForFrames(4));
    EXPECT_EQ(replay.receivedFrames()[2][6], 0x00);
}

TEST(SimulatorTrace, WritesALinePerFrameAndSentence)
{
    const std::string path = "/tmp/trace";
    {
        ubxsim::TraceWriter writer(path);
        writer.write({1234us, ubxsim::TraceDirection::toReceiver, bytes("B5 62 0A 04 00 00 0E 34")});
        writer.write({1100000us, ubxsim::TraceDirection::fromReceiver, text("$GNTXT,01,01,02,hi*00\r\n")});
        writer.write({2000000us, ubxsim::TraceDirection::fromReceiver, bytes("00 FF")});
    }

    EXPECT_EQ(testsupport::lines(path),
              (std::vector<std::string>{"# ubxsim trace 1", "0.001234 > MON-VER B5 62 0A 04 00 00 0E 34",
                                        "1.100000 < NMEA $GNTXT,01,01,02,hi*00", "2.000000 < RAW 00 FF"}));
}

TEST(SimulatorTrace, CanBeReplayed)
{
    const std::string path = "/tmp/trace";
    testsupport::write(path, "# ubxsim trace 1\n"
                             "0.001234 > MON-VER B5 62 0A 04 00 00 0E 34\n"
                             "0.020000 < CFG-RATE B5 62 06 08 06 00 E8 03 01 00 01 00 01 39\n"
                             "0.050000 < NMEA $GNTXT,01,01,02,hi*00\n");

    Recording recording = Recording::fromFile(path);

    ASSERT_EQ(recording.chunks().size(), 2U);
    EXPECT_EQ(recording.chunks()[0].time, 20000us);
    EXPECT_EQ(recording.chunks()[1].bytes, text("$GNTXT,01,01,02,hi*00\r\n"));
    EXPECT_EQ(recording.nextFrame(0x0608)->payload, bytes("E8 03 01 00 01 00"));
    EXPECT_FALSE(recording.nextFrame(0x0A04).has_value());
}

TEST(SimulatorTrace, RefusesLinesThatAreNone)
{
    for (const char* line : {"", "x < RAW 00", "1.0 ? RAW 00", "1.0 <", "-1 < RAW 00", "1.0 < RAW 0"}) {
        EXPECT_THROW(ubxsim::parseTraceLine(line), std::invalid_argument) << line;
    }
}

TEST(SimulatorTrace, HoldsBothDirectionsOfASession)
{
    const std::string path = "/tmp/session-trace";
    {
        ubxsim::SimulatorOptions options;
        options.nmea = false;
        options.traceFile = path;
        ubxsim::ReceiverSimulator receiver(options);
        client::Client host(receiver.devicePath());
        ASSERT_TRUE(host.poll("06 08").has_value());
    }

    const auto lines = testsupport::lines(path);

    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[1].substr(lines[1].find('>')), "> CFG-RATE B5 62 06 08 00 00 0E 30");
    EXPECT_EQ(lines[2].substr(lines[2].find('<')), "< CFG-RATE B5 62 06 08 06 00 E8 03 01 00 01 00 01 39");
    EXPECT_EQ(lines[3].substr(lines[3].find('<')), "< ACK-ACK B5 62 05 01 02 00 06 08 16 3F");
    EXPECT_EQ(Recording::fromFile(path).chunks().size(), 2U);
}
