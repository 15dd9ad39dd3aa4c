#include "SimulatorTest.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <sstream>

using namespace std::chrono_literals;

// Periodic output: NMEA of each model, message rates, protocol masks.

namespace
{

ubxsim::SimulatorOptions talking(ubxsim::Model model)
{
    ubxsim::SimulatorOptions options;
    options.model = model;
    options.startTime = std::chrono::seconds(1700000000);
    options.epoch = 20ms;
    return options;
}

/// The sentences between two GNRMC, as "GNRMC GNVTG ...".
std::vector<std::string> oneSecond(client::Client& host)
{
    std::vector<std::string> sentences;
    bool begun = false;
    for (const client::Item& item : host.listen(100ms)) {
        if (item.kind != client::Item::Kind::sentence) {
            continue;
        }
        if (item.text.compare(0, 6, "$GNRMC") == 0) {
            if (begun) {
                return sentences;
            }
            begun = true;
        }
        if (begun) {
            sentences.push_back(item.text);
        }
    }
    return sentences;
}

std::string kinds(const std::vector<std::string>& sentences)
{
    std::string text;
    for (const std::string& sentence : sentences) {
        text += (text.empty() ? "" : " ") + sentence.substr(1, 5);
    }
    return text;
}

bool hasRightChecksum(const std::string& sentence)
{
    int sum = 0;
    const std::size_t star = sentence.find('*');
    for (std::size_t i = 1; i < star; ++i) {
        sum ^= sentence[i];
    }
    return star != std::string::npos && std::stoi(sentence.substr(star + 1), nullptr, 16) == sum;
}

std::string withStart(const std::vector<std::string>& sentences, const std::string& start)
{
    for (const std::string& sentence : sentences) {
        if (sentence.compare(0, start.size(), start) == 0) {
            return sentence;
        }
    }
    return "";
}

std::string fieldOf(const std::string& sentence, int number)
{
    std::istringstream fields(sentence);
    std::string field;
    for (int i = 0; i <= number; ++i)
        std::getline(fields, field, ',');
    return field;
}

} // namespace

TEST(NeoM8tOutput, IsTheSentencesOfItsGenerationInTheirOrder)
{
    ubxsim::ReceiverSimulator receiver(talking(ubxsim::Model::neoM8t));
    client::Client host(receiver.devicePath());

    const auto sentences = oneSecond(host);

    EXPECT_EQ(kinds(sentences), "GNRMC GNVTG GNGGA GNGSA GNGSA GPGSV GPGSV GPGSV GPGSV GLGSV GLGSV GNGLL GNZDA");
    std::size_t size = 0;
    for (const std::string& sentence : sentences) {
        EXPECT_TRUE(hasRightChecksum(sentence)) << sentence;
        EXPECT_LE(sentence.size(), 80U) << sentence;
        size += sentence.size() + 2;
    }
    EXPECT_NEAR(static_cast<double>(size), 750, 75) << "bytes a second";
    EXPECT_EQ(withStart(sentences, "$GNZDA").substr(13),
              ".00,14,11,2023,00,00" + withStart(sentences, "$GNZDA").substr(33));
    // Degrees and minutes; the solution wanders by a metre or two.
    constexpr double kTenMetres = 0.006;
    const std::string position = withStart(sentences, "$GNGGA");
    EXPECT_NEAR(std::stod(fieldOf(position, 2)), 3157.03, kTenMetres) << position;
    EXPECT_EQ(fieldOf(position, 3), "S");
    EXPECT_NEAR(std::stod(fieldOf(position, 4)), 11551.63, kTenMetres) << position;
    EXPECT_EQ(fieldOf(position, 5), "E");
}

TEST(ZedF9tOutput, IsTheSentencesOfItsGenerationBySignal)
{
    ubxsim::ReceiverSimulator receiver(talking(ubxsim::Model::zedF9t));
    client::Client host(receiver.devicePath());

    const auto sentences = oneSecond(host);

    ASSERT_FALSE(sentences.empty());
    EXPECT_EQ(kinds(sentences).substr(0, 42), "GNRMC GNVTG GNGGA GNGSA GNGSA GNGSA GNGSA ");
    EXPECT_EQ(kinds(sentences).substr(kinds(sentences).size() - 5), "GNGLL");
    EXPECT_EQ(withStart(sentences, "$GNZDA"), "");
    std::map<std::string, std::string> signals; // the last field of each constellation's sentences
    for (const std::string& sentence : sentences) {
        EXPECT_TRUE(hasRightChecksum(sentence)) << sentence;
        if (sentence.substr(3, 3) == "GSV") {
            const std::string signal = sentence.substr(sentence.rfind(',') + 1, 1);
            std::string& known = signals[sentence.substr(1, 2)];
            known += known.find(signal) == std::string::npos ? signal : "";
        }
    }
    EXPECT_EQ(signals["GP"], "16");
    EXPECT_EQ(signals["GL"], "13");
    EXPECT_EQ(signals["GA"], "27");
    EXPECT_EQ(signals["GB"], "13");
}

TEST(NeoM8tOutput, StopsSentenceBySentence)
{
    ubxsim::ReceiverSimulator receiver(talking(ubxsim::Model::neoM8t));
    client::Client host(receiver.devicePath());
    for (const char* sentence : {"F0 02 00", "F0 03 00", "F0 01 00", "F0 05 00", "F0 08 00"}) {
        ASSERT_EQ(host.set("06 01", sentence), true);
    }

    EXPECT_EQ(kinds(oneSecond(host)), "GNRMC GNGGA");
}

TEST_F(NeoM8tSimulator, SaysNothingUnaskedWhenQuiet)
{
    EXPECT_TRUE(host.listen(60ms).empty());
}

TEST_F(NeoM8tSimulator, PutsAMessageOutAtItsRate)
{
    ASSERT_EQ(host.set("06 01", "01 35 04"), true);
    ASSERT_EQ(host.set("06 01", "01 61 01"), true);

    std::map<std::uint16_t, int> count;
    for (const client::Item& item : host.listen(400ms)) {
        ++count[item.classId];
    }

    EXPECT_GT(count[0x0135], 5);
    // Roughly, since a receiver that runs so fast leaves out an epoch when the machine is busy.
    EXPECT_NEAR(count[0x0161], 4 * count[0x0135], 2 * count[0x0135]);
}

TEST_F(ZedF9tSimulator, ObeysOutputKeysOfItsPortOnly)
{
    ASSERT_EQ(host.set("06 8A", "00 01 00 00 18 00 91 20 01"), true); // NAV-SAT on USB
    EXPECT_TRUE(host.listen(40ms).empty());

    ASSERT_EQ(host.set("06 8A", "00 01 00 00 16 00 91 20 01"), true); // on UART1
    EXPECT_TRUE(host.waitFor(0x0135).has_value());
}

TEST_F(NeoM8tSimulator, PutsOutTheMessagesOfAnEpochInTheOrderOfTheRealOne)
{
    for (const char* message : {"0D 01 01", "01 35 01", "01 03 01", "01 01 01", "01 02 01", "01 04 01", "01 20 01",
                                "01 21 01", "01 26 01", "0D 04 01"}) {
        ASSERT_EQ(host.set("06 01", message), true);
    }
    host.collect(1ms);

    const std::string order = client::outline(host.listen(60ms));

    EXPECT_NE(order.find("0D01:16 0135:" + std::to_string(receiver.legacyPayload(0x0135).size())), order.size());
    EXPECT_NE(order.find("0103:16 0101:20 0102:28 0104:18 0120:16 0121:20 0126:24 0D04:28 0D01:16"), std::string::npos)
        << order;
}

TEST(SimulatorOutput, ObeysTheProtocolMasksOfThePort)
{
    ubxsim::ReceiverSimulator receiver(talking(ubxsim::Model::neoM8t));
    client::Client host(receiver.devicePath());

    // Output UBX only: the sentences stop, answers come.
    ASSERT_EQ(host.set("06 00", "01 00 00 00 C0 08 00 00 80 25 00 00 07 00 01 00 00 00 00 00"), true);
    host.collect(10ms);
    EXPECT_TRUE(host.listen(60ms).empty());
    EXPECT_TRUE(host.poll("0A 04").has_value());

    // Output NMEA only: no answers any more, not even to this set.
    host.send("06 00", "01 00 00 00 C0 08 00 00 80 25 00 00 07 00 02 00 00 00 00 00");
    host.send("0A 04");
    const auto items = host.listen(100ms);
    EXPECT_EQ(client::outline(items), "");
    EXPECT_GT(items.size(), 10U);
}

TEST_F(NeoM8tSimulator, IsDeafToUbxWhenItsPortTakesNone)
{
    ASSERT_EQ(host.set("06 00", "01 00 00 00 C0 08 00 00 80 25 00 00 06 00 03 00 00 00 00 00"), true);

    host.send("0A 04");

    EXPECT_TRUE(host.collect().empty());
}

TEST(SimulatorOutput, FollowsTheMeasurementRate)
{
    ubxsim::SimulatorOptions options = talking(ubxsim::Model::neoM8t);
    options.nmea = false;
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());
    ASSERT_EQ(host.set("06 01", "01 61 01"), true);

    ASSERT_EQ(host.set("06 08", "F4 01 01 00 01 00"), true); // twice a second
    host.collect(1ms);
    std::vector<std::uint64_t> times;
    for (const client::Item& item : host.listen(200ms)) {
        times.push_back(client::number(item.payload, 0, 4));
    }

    ASSERT_GE(times.size(), 4U);
    std::adjacent_difference(times.begin(), times.end(), times.begin());
    EXPECT_EQ(*std::min_element(times.begin() + 1, times.end()), 500U);
}
