#include "SimulatorTest.h"

#include "simulator/faults/ActionText.h"

using client::outline;
using testsupport::bytes;
using namespace std::chrono_literals;

// Every fault as the host sees it on the line. The message is CFG-RATE, unless another fits better.

namespace
{

const std::string kGoodRate = "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39";

ubxsim::Fault fault(const std::string& words)
{
    return std::get<ubxsim::Fault>(ubxsim::parseAction(words).what);
}

std::string raw(const std::vector<client::Item>& items)
{
    client::Bytes all;
    for (const client::Item& item : items) {
        all.insert(all.end(), item.raw.begin(), item.raw.end());
    }
    return testsupport::hex(all);
}

} // namespace

TEST_F(NeoM8tSimulator, IgnoresRequestsAsOftenAsAsked)
{
    receiver.ignore(0x0608, 2);

    host.send("06 08", "D0 07 01 00 01 00");
    host.send("06 08");
    EXPECT_TRUE(host.collect().empty());
    EXPECT_EQ(hexOf(host.poll("06 08")), "E8 03 01 00 01 00") << "the set was not applied";
    EXPECT_EQ(receiver.receivedFrames().size(), 3U) << "ignored requests are kept for the test";
}

TEST_F(NeoM8tSimulator, IgnoresForEverWithoutACount)
{
    receiver.ignore(0x0608);
    for (int i = 0; i < 5; ++i) {
        host.send("06 08");
    }

    EXPECT_TRUE(host.collect().empty());
    receiver.clearFaults();
    EXPECT_TRUE(host.poll("06 08").has_value());
}

TEST_F(NeoM8tSimulator, RefusesPollsAndSets)
{
    receiver.refuse(0x0608, 2);

    host.send("06 08");
    host.send("06 08", "D0 07 01 00 01 00");

    EXPECT_EQ(outline(host.collect()), "0500:2 0500:2");
    EXPECT_EQ(hexOf(host.poll("06 08")), "E8 03 01 00 01 00");
}

TEST_F(NeoM8tSimulator, AcknowledgesASetAndKeepsItsValue)
{
    receiver.keepValue(0x0608, 1);

    EXPECT_TRUE(host.poll("06 08").has_value()) << "a poll does not use the fault up";
    EXPECT_EQ(host.set("06 08", "D0 07 01 00 01 00"), true);
    EXPECT_EQ(hexOf(host.poll("06 08")), "E8 03 01 00 01 00");
    EXPECT_EQ(host.set("06 08", "D0 07 01 00 01 00"), true);
    EXPECT_EQ(hexOf(host.poll("06 08")), "D0 07 01 00 01 00");
}

TEST_F(NeoM8tSimulator, AnswersAPollWithAnyPayload)
{
    receiver.answerWith(0x0608, bytes("01 02 03"), 1);
    receiver.answerWith(0x0107, {}, 1);

    host.send("06 08");
    EXPECT_EQ(raw(host.collect()), "B5 62 06 08 03 00 01 02 03 17 73 B5 62 05 01 02 00 06 08 16 3F");
    host.send("01 07");
    EXPECT_EQ(raw(host.collect()), "B5 62 01 07 00 00 08 19");
    EXPECT_EQ(hexOf(host.poll("06 08")), "E8 03 01 00 01 00");
}

TEST_F(NeoM8tSimulator, AnswersAResetRequestWhenToldTo)
{
    receiver.answerWith(0x0604, bytes("01 02 03 04"));

    host.send("06 04", "00 00 00 00");

    EXPECT_EQ(outline(host.collect()), "0604:4");
}

TEST_F(NeoM8tSimulator, SaysExactlyTheGivenBytesInsteadOfAnAnswer)
{
    receiver.answerRaw(0x0608, bytes("DE AD BE EF"), 1);

    host.send("06 08");

    EXPECT_EQ(raw(host.collect()), "DE AD BE EF");
}

TEST_F(NeoM8tSimulator, AnswersLateWhileOthersAreAnswered)
{
    receiver.answerLate(0x0608, 120ms, 1);
    const auto asked = std::chrono::steady_clock::now();

    host.send("06 08");
    host.send("06 11");
    EXPECT_TRUE(host.waitFor(0x0611, 100ms).has_value());
    EXPECT_TRUE(host.waitFor(0x0608).has_value());

    EXPECT_GE(std::chrono::steady_clock::now() - asked, 120ms);
}

TEST_F(NeoM8tSimulator, AnswersTwice)
{
    receiver.answerTwice(0x0608, 1);

    host.send("06 08");

    EXPECT_EQ(outline(host.collect()), "0608:6 0501:2 0608:6 0501:2");
}

TEST_F(NeoM8tSimulator, AnswersOutOfOrder)
{
    receiver.play(fault("out-of-order CFG-RATE x1"));

    host.send("06 08");
    host.send("06 11");

    EXPECT_EQ(outline(host.collect()), "0611:2 0501:2 0608:6 0501:2");
}

TEST_F(NeoM8tSimulator, AnswersInPiecesWithGaps)
{
    receiver.answerInPieces(0x0608, 1, 3ms, 1);
    const auto asked = std::chrono::steady_clock::now();

    host.send("06 08");
    const auto items = host.collect();

    EXPECT_EQ(outline(items), "0608:6 0501:2");
    EXPECT_GE(std::chrono::steady_clock::now() - asked, 23 * 3ms) << "24 bytes have 23 gaps";
}

TEST_F(NeoM8tSimulator, SpoilsTheChecksumOnceAndThenNoMore)
{
    receiver.corruptChecksum(0x0608);

    host.send("06 08");
    const auto spoilt = host.collect();
    EXPECT_EQ(outline(spoilt), "0501:2");
    EXPECT_EQ(raw(spoilt).substr(0, kGoodRate.size() - 2), kGoodRate.substr(0, kGoodRate.size() - 2));
    EXPECT_EQ(hexOf(host.poll("06 08")), "E8 03 01 00 01 00");
}

TEST_F(NeoM8tSimulator, SendsAGoodCopyAfterASpoiltOne)
{
    receiver.corruptChecksum(0x0107);
    receiver.answerTwice(0x0107, 1);

    host.send("01 07");

    const auto items = host.collect();
    EXPECT_EQ(outline(items), "0107:92");
    EXPECT_EQ(items.front().kind, client::Item::Kind::noise);
}

TEST_F(NeoM8tSimulator, TruncatesTheFrame)
{
    receiver.play(fault("truncate CFG-RATE 9 x1"));

    host.send("06 08");

    EXPECT_EQ(raw(host.collect()), "B5 62 06 08 06 00 E8 03 01 B5 62 05 01 02 00 06 08 16 3F");
}

TEST_F(NeoM8tSimulator, SendsAWrongLengthField)
{
    receiver.play(fault("wrong-length CFG-RATE 4 x1"));

    host.send("06 08");

    EXPECT_EQ(raw(host.collect()).substr(0, 17), "B5 62 06 08 0A 00");
}

TEST_F(NeoM8tSimulator, PutsOtherThingsBeforeTheReply)
{
    receiver.play(fault("precede CFG-RATE nmea 3 x1"));
    receiver.play(fault("precede CFG-RATE noise 50 x1"));
    receiver.play(fault("precede CFG-RATE false-sync 2 x1"));
    receiver.play(fault("precede CFG-RATE frame NAV-EOE 01 02 03 04 x1"));
    const auto ask = [this] {
        host.send("06 08");
        return host.collect();
    };

    const auto burst = ask();
    const auto noise = ask();
    const auto falseSync = ask();
    const auto otherFrame = ask();

    ASSERT_EQ(burst.size(), 5U);
    EXPECT_EQ(burst[2].kind, client::Item::Kind::sentence);
    EXPECT_EQ(noise.front().kind, client::Item::Kind::noise);
    EXPECT_EQ(outline(noise), "0608:6 0501:2");
    EXPECT_EQ(raw(falseSync).substr(0, 11 + kGoodRate.size() + 1), "B5 62 B5 62 " + kGoodRate);
    EXPECT_EQ(outline(otherFrame), "0161:4 0608:6 0501:2");
}

TEST_F(NeoM8tSimulator, GetsAReplyThroughABurstLargerThanTheHostsBuffer)
{
    receiver.play(fault("precede CFG-RATE nmea 400 x1")); // 21 kB

    EXPECT_TRUE(host.poll("06 08").has_value());
}

TEST_F(NeoM8tSimulator, PlaysAFaultForSetsOnly)
{
    receiver.play(fault("ignore CFG-RATE sets"));

    host.send("06 08", "D0 07 01 00 01 00");

    EXPECT_EQ(hexOf(host.poll("06 08")), "E8 03 01 00 01 00");
}

TEST_F(NeoM8tSimulator, PlaysAFaultForEveryMessage)
{
    receiver.play(fault("ignore * x2"));

    host.send("06 08");
    host.send("0A 04");

    EXPECT_TRUE(host.collect().empty());
    EXPECT_TRUE(host.poll("0A 04").has_value());
}

TEST_F(NeoM8tSimulator, PlaysFaultsInTheOrderGiven)
{
    receiver.ignore(0x0608, 1);
    receiver.refuse(0x0608, 1);

    host.send("06 08");
    host.send("06 08");
    host.send("06 08");

    EXPECT_EQ(outline(host.collect()), "0500:2 0608:6 0501:2");
}

TEST_F(NeoM8tSimulator, SaysBytesUnasked)
{
    receiver.say(bytes("B5 62 01 02"));

    EXPECT_EQ(raw(host.collect()), "B5 62 01 02");
}

TEST_F(NeoM8tSimulator, ShowsJammingInItsHardwareStatus)
{
    const auto state = [this] {
        const auto status = host.poll("0A 09");
        return status ? (*status)[22] >> 2 & 3 : -1;
    };
    EXPECT_EQ(state(), 0) << "the monitor is off";
    receiver.setKeyValue(0x1041000D, 1);
    EXPECT_EQ(state(), 1);

    receiver.happen(std::get<ubxsim::Event>(ubxsim::parseAction("jamming on").what));

    EXPECT_TRUE(eventually([&] { return state() == 3; }));
    EXPECT_LT(client::number(*host.poll("01 07"), 23, 1), 8U) << "few satellites get through";
}

TEST_F(NeoM8tSimulator, ShowsAnOpenAndAShortedAntenna)
{
    receiver.setKeyValue(0x20920007, 7);

    receiver.happen(std::get<ubxsim::Event>(ubxsim::parseAction("antenna open").what));
    EXPECT_TRUE(host.waitForText("$GNTXT,01,01,02,ANTSTATUS=OPEN"));
    EXPECT_TRUE(eventually([this] { return host.poll("0A 09")->at(20) == 4; }));
    receiver.happen(std::get<ubxsim::Event>(ubxsim::parseAction("antenna short").what));
    EXPECT_TRUE(host.waitForText("$GNTXT,01,01,02,ANTSTATUS=SHORT"));
    EXPECT_TRUE(eventually([this] { return host.poll("0A 09")->at(20) == 3; }));
}

TEST_F(NeoM8tSimulator, DoesAtATimeWhatItWasToldBefore)
{
    receiver.schedule(ubxsim::parseAction("at 1s ignore MON-VER x1")); // 5 ms of wall time

    const auto deadline = std::chrono::steady_clock::now() + 2s;
    bool ignored = false;
    while (!ignored && std::chrono::steady_clock::now() < deadline) {
        host.send("0A 04");
        ignored = !host.waitFor(0x0A04, 100ms);
    }

    EXPECT_TRUE(ignored);
}
