#include "SimulatorTest.h"

#include "Files.h"

using client::outline;
using testsupport::bytes;

// The version texts of the receivers, and in which order polls, sets and refusals are answered.

TEST_F(NeoM8tSimulator, TellsItsVersionAsTheRealOneDoes)
{
    host.send("0A 04");
    const auto items = host.collect();

    // Software and hardware version in fields of 30 and 10 bytes, then extensions of 30 bytes each.
    const std::string whole =
        "B5 62 0A 04 FA 00 "
        "45 58 54 20 43 4F 52 45 20 33 2E 30 31 20 28 31 31 31 31 34 31 29 00 00 00 00 00 00 00 00 "
        "30 30 30 38 30 30 30 30 00 00 "
        "52 4F 4D 20 42 41 53 45 20 32 2E 30 31 20 28 37 35 33 33 31 29 00 00 00 00 00 00 00 00 00 "
        "46 57 56 45 52 3D 54 49 4D 20 31 2E 31 30 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
        "50 52 4F 54 56 45 52 3D 32 32 2E 30 30 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
        "4D 4F 44 3D 4E 45 4F 2D 4D 38 54 2D 30 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
        "46 49 53 3D 30 78 45 46 34 30 31 35 20 28 31 30 30 31 31 31 29 00 00 00 00 00 00 00 00 00 "
        "47 50 53 3B 47 4C 4F 3B 47 41 4C 3B 42 44 53 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
        "53 42 41 53 3B 49 4D 45 53 3B 51 5A 53 53 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
        "11 61";
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(testsupport::hex(items[0].raw), whole);
}

TEST_F(ZedF9tSimulator, TellsItsVersionAsTheRealOneDoes)
{
    host.send("0A 04");
    const auto items = host.collect();

    ASSERT_EQ(outline(items), "0A04:250");
    const client::Bytes& raw = items[0].raw;
    EXPECT_EQ(testsupport::hex(client::Bytes(raw.end() - 2, raw.end())), "F9 19");
    const std::string text(raw.begin(), raw.end());
    EXPECT_NE(text.find("EXT CORE 1.00 (3fda8e)"), std::string::npos);
    EXPECT_NE(text.find("FWVER=TIM 2.20"), std::string::npos);
    EXPECT_NE(text.find("00190000"), std::string::npos);
}

TEST(ZedF9tSimulatorFirmware, ShowsInTheVersionTexts)
{
    const std::pair<const char*, const char*> firmwares[] = {
        {"TIM 2.01", "PROTVER=29.00"}, {"TIM 2.13", "PROTVER=29.11"}, {"TIM 2.22", "PROTVER=29.22"}};
    for (const auto& [firmware, protocol] : firmwares) {
        const ubxsim::ModelProfile profile = ubxsim::profileOf(ubxsim::Model::zedF9t, firmware, false, true);

        EXPECT_EQ(profile.extensions[1], std::string("FWVER=") + firmware);
        EXPECT_EQ(profile.extensions[2], protocol);
    }
}

TEST(ZedF9tSimulatorFirmware, OfAnotherModelIsRefusedWithTheKnownNames)
{
    try {
        ubxsim::profileOf(ubxsim::Model::neoM8t, "TIM 2.20", false, true);
        FAIL();
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "no firmware \"TIM 2.20\" for a NEO-M8T; known are TIM 1.10, TIM 1.11");
    }
}

TEST_F(NeoM8tSimulator, SendsTheReplyBeforeTheAcknowledgementOfAConfigurationPoll)
{
    host.send("06 08");
    const auto items = host.collect();

    ASSERT_EQ(outline(items), "0608:6 0501:2");
    EXPECT_EQ(testsupport::hex(items[0].payload), "E8 03 01 00 01 00");
    EXPECT_EQ(testsupport::hex(items[1].payload), "06 08");
}

TEST_F(NeoM8tSimulator, AcknowledgesNoNavigationPoll)
{
    host.send("01 07");

    EXPECT_EQ(outline(host.collect()), "0107:92");
}

TEST_F(NeoM8tSimulator, IsSilentToAPollOfAnUnknownOtherMessage)
{
    host.send("01 43"); // NAV-SIG is younger
    host.send("0A 36");

    EXPECT_EQ(outline(host.collect()), "");
}

TEST_F(NeoM8tSimulator, RefusesUnknownConfigurationMessages)
{
    EXPECT_EQ(host.set("06 8A", "00 01 00 00"), false);
    EXPECT_EQ(host.set("06 8B", "00 00 00 00 01 00 05 30"), false);
    EXPECT_EQ(host.set("06 71", ""), false);
    EXPECT_EQ(host.set("06 99", "00"), false);
}

TEST_F(NeoM8tSimulator, RefusesWrongLengthsAndChangesNothing)
{
    const client::Bytes before = receiver.legacyPayload(0x0624);

    EXPECT_EQ(host.set("06 24", "02 00 00 00 00 00 00 00 00 00 00 00 1E"), false);
    EXPECT_EQ(host.set("06 08", "E8 03 01 00"), false);
    EXPECT_EQ(host.set("06 09", "00 00 00 00"), false);
    EXPECT_EQ(host.set("06 01", "01 07 01 01"), false);
    EXPECT_EQ(host.set("06 31", "02"), false); // there are two time pulses

    EXPECT_EQ(receiver.legacyPayload(0x0624), before);
}

TEST_F(NeoM8tSimulator, AnswersPipelinedRequestsInTheirOrder)
{
    host.sendRaw(bytes("B5 62 06 08 00 00 0E 30 "         // CFG-RATE poll
                       "B5 62 0A 04 00 00 0E 34 "         // MON-VER poll
                       "B5 62 06 99 00 00 9F E3 "         // unknown
                       "B5 62 06 11 02 00 00 01 1A 82")); // CFG-RXM set

    EXPECT_EQ(outline(host.collect()), "0608:6 0501:2 0A04:250 0500:2 0501:2");
}

TEST_F(NeoM8tSimulator, DropsAFrameWithAWrongChecksum)
{
    host.sendRaw(bytes("B5 62 0A 04 00 00 0E 35"));

    EXPECT_TRUE(host.collect().empty());
    EXPECT_EQ(receiver.strayBytes(), 8U);
    EXPECT_TRUE(receiver.receivedFrames().empty());
}

TEST_F(NeoM8tSimulator, KeepsWhatTheHostSentInOrder)
{
    host.sendRaw(bytes("55 B5 62 0A 04 00 00 0E 34 B5 62 06 00 00 00 06 18"));
    ASSERT_TRUE(receiver.waitForFrames(2));

    EXPECT_EQ(receiver.received(0), bytes("B5 62 0A 04 00 00 0E 34"));
    EXPECT_EQ(receiver.received(1), bytes("B5 62 06 00 00 00 06 18"));
    EXPECT_TRUE(receiver.received(2).empty());
    EXPECT_EQ(receiver.strayBytes(), 1U);

    receiver.clearReceived();
    EXPECT_TRUE(receiver.receivedFrames().empty());
}

TEST_F(NeoM8tSimulator, GivesUpWaitingForFramesAfterTheLimit)
{
    EXPECT_FALSE(receiver.waitForFrames(1, std::chrono::milliseconds(20)));
}

TEST(SimulatorWithTrailer, SendsItAfterRepliesWithoutAcknowledgementOnly)
{
    ubxsim::SimulatorOptions options;
    options.nmea = false;
    options.trailer = bytes("0D 0A");
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());

    host.send("06 08");
    const auto configuration = host.collect();
    host.send("01 02");
    const auto navigation = host.collect();

    EXPECT_EQ(configuration.size(), 2U);
    ASSERT_EQ(navigation.size(), 2U);
    EXPECT_EQ(navigation[1].raw, bytes("0D 0A"));
}
