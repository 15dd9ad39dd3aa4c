#include "SimulatorTest.h"

using namespace std::chrono_literals;

// The legacy messages as views of one store of settings.

namespace
{

// So that a long payload can be typed in parts.
std::string zeros(std::size_t count)
{
    std::string text;
    for (; count > 0; --count) {
        text += " 00";
    }
    return text;
}

} // namespace

TEST_F(NeoM8tSimulator, AnswersPollsWithTheSettingsAsDelivered)
{
    EXPECT_EQ(hexOf(host.poll("06 00")), "01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 00 00 00 00 00");
    EXPECT_EQ(hexOf(host.poll("06 00", "03")), "03 00 00 00 00 00 00 00 00 00 00 00 07 00 03 00 00 00 00 00");
    EXPECT_EQ(hexOf(host.poll("06 08")), "E8 03 01 00 01 00");
    EXPECT_EQ(hexOf(host.poll("06 11")), "48 00");
    EXPECT_EQ(hexOf(host.poll("06 39")), "F3 AC 62 2D 1E 03 00 00");
    EXPECT_EQ(hexOf(host.poll("06 31")), "00 01 00 00 32 00 00 00 40 42 0F 00 40 42 0F 00 00 00 00 00 A0 86 01 00 "
                                         "00 00 00 00 F7 00 00 00");
    EXPECT_EQ(hexOf(host.poll("06 31", "01")), "01 01 00 00 32 00 00 00 40 42 0F 00 40 42 0F 00 00 00 00 00 A0 86 01 "
                                               "00 00 00 00 00 76 00 00 00");
    EXPECT_EQ(hexOf(host.poll("06 3D")), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                                         "00 00 00");
    EXPECT_EQ(hexOf(host.poll("06 24")), "FF FF 02 03 00 00 00 00 10 27 00 00 05 00 FA 00 FA 00 64 00 5E 01 00 3C 00 "
                                         "00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(hexOf(host.poll("06 3E")), "00 20 20 07 "
                                         "00 08 10 00 01 00 01 01 "
                                         "01 01 03 00 00 00 01 01 "
                                         "02 04 08 00 00 00 01 01 "
                                         "03 08 10 00 00 00 01 01 "
                                         "04 00 08 00 00 00 01 03 "
                                         "05 00 03 00 01 00 01 05 "
                                         "06 08 0E 00 01 00 01 01");
    EXPECT_EQ(hexOf(host.poll("06 01", "01 35")), "01 35 00 00 00 00 00 00");
}

TEST_F(NeoM8tSimulator, AppliesOnlyTheNavigationFieldsThatTheMaskNames)
{
    // Elevation limit 30 under its mask bit; the other fields of the message are zero and must not count.
    EXPECT_EQ(host.set("06 24", "02 00 00 00 00 00 00 00 00 00 00 00 1E" + zeros(23)), true);

    EXPECT_EQ(hexOf(host.poll("06 24")), "FF FF 02 03 00 00 00 00 10 27 00 00 1E 00 FA 00 FA 00 64 00 5E 01 00 3C 00 "
                                         "00 00 00 00 00 00 00 00 00 00 00");

    EXPECT_EQ(host.set("06 24", "05 00 00 02" + zeros(32)), true);

    EXPECT_EQ(hexOf(host.poll("06 24")).substr(0, 11), "FF FF 00 02");
    EXPECT_EQ(receiver.keyValue(0x201100A4), 30U);
}

TEST_F(NeoM8tSimulator, AppliesTheMinimumSignalUnderItsMaskBitOnly)
{
    EXPECT_EQ(host.set("06 23", "02 00 08 00 00 00 00 00 00 00 00 00 28" + zeros(27)), true);
    EXPECT_EQ(hexOf(host.poll("06 23")).substr(36, 2), "28");

    EXPECT_EQ(host.set("06 23", "02 00 00 00 00 00 00 00 00 00 00 00 0A" + zeros(27)), true);
    EXPECT_EQ(hexOf(host.poll("06 23")).substr(36, 2), "28");

    EXPECT_EQ(host.set("06 23", "00 00 08 00 00 00 00 00 00 00 00 00 0A" + zeros(27)), false) << "another version";
}

TEST_F(NeoM8tSimulator, RefusesValuesThatNoReceiverTakes)
{
    EXPECT_EQ(host.set("06 24", "01 00 01" + zeros(33)), false) << "dynamic model 1 does not exist";
    EXPECT_EQ(host.set("06 3D", "03" + zeros(27)), false) << "time mode 3";
    EXPECT_EQ(host.set("06 00", "01 00 00 00 C0 08 00 00 01 00 00 00 07 00 03 00 00 00 00 00"), false) << "1 baud";
    EXPECT_EQ(host.set("06 00", "07 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 00 00 00 00 00"), false) << "port 7";
}

TEST_F(NeoM8tSimulator, KeepsTheTimeModeParametersWhenTheModeIsSwitchedOff)
{
    const std::string parameters = "00 80 D1 F0 08 40 42 0F 00 05 00 00 00 E8 03 00 00 30 2A 00 00 D0 07 00 00";
    EXPECT_EQ(host.set("06 3D", "02 00 01 " + parameters), true);
    EXPECT_EQ(hexOf(host.poll("06 3D")), "02 00 01 " + parameters);

    EXPECT_EQ(host.set("06 3D", "00" + zeros(27)), true);

    EXPECT_EQ(hexOf(host.poll("06 3D")), "00 00 01 " + parameters);
}

TEST_F(NeoM8tSimulator, KeepsGeodeticAndEarthCentredPositionsApart)
{
    EXPECT_EQ(host.set("06 3D", "02 00 00 00 01 00 00 00 02 00 00 00 03 00 00 00" + zeros(12)), true);

    EXPECT_EQ(receiver.keyValue(0x40030003), 1U);
    EXPECT_EQ(receiver.keyValue(0x40030009), 0U);
    EXPECT_EQ(hexOf(host.poll("06 3D")).substr(0, 47), "02 00 00 00 01 00 00 00 02 00 00 00 03 00 00 00");
}

TEST_F(NeoM8tSimulator, GivesTheSecondTimePulseItsOwnSettingsAndTheSameCableDelay)
{
    EXPECT_EQ(host.set("06 31", "01 01 00 00 1C 00 00 00 20 A1 07 00 20 A1 07 00 00 00 00 00 A0 86 01 00 00 00 00 00 "
                                "F7 00 00 00"),
              true);

    EXPECT_EQ(hexOf(host.poll("06 31", "00")), "00 01 00 00 1C 00 00 00 40 42 0F 00 40 42 0F 00 00 00 00 00 A0 86 01 "
                                               "00 00 00 00 00 F7 00 00 00");
    EXPECT_EQ(hexOf(host.poll("06 31", "01")), "01 01 00 00 1C 00 00 00 20 A1 07 00 20 A1 07 00 00 00 00 00 A0 86 01 "
                                               "00 00 00 00 00 F7 00 00 00");
}

TEST_F(NeoM8tSimulator, ReadsThePulsePeriodAsAFrequencyWhenItsFlagSaysSo)
{
    EXPECT_EQ(host.set("06 31", "00 01 00 00 32 00 00 00 0A 00 00 00 64 00 00 00 00 00 00 00 A0 86 01 00 00 00 00 00 "
                                "FF 00 00 00"),
              true);

    EXPECT_EQ(receiver.keyValue(0x40050024), 10U) << "CFG-TP-FREQ_TP1";
    EXPECT_EQ(receiver.keyValue(0x40050025), 100U);
    EXPECT_EQ(receiver.keyValue(0x40050002), 1000000U) << "the period stays what it was";
}

TEST_F(NeoM8tSimulator, TakesTheOddInterferenceBytesAsTheyAre)
{
    EXPECT_EQ(host.set("06 39", "F3 AC AC 62 AD 03 00 00"), true);

    EXPECT_EQ(hexOf(host.poll("06 39")), "F3 AC AC 62 AD 03 00 00");
}

TEST_F(NeoM8tSimulator, SetsTheMessageRateOfThePortInUse)
{
    EXPECT_EQ(host.set("06 01", "01 35 02"), true);

    EXPECT_EQ(hexOf(host.poll("06 01", "01 35")), "01 35 00 02 00 00 00 00");
    EXPECT_EQ(receiver.outputRate(0x0135), 2U);

    EXPECT_EQ(host.set("06 01", "01 35 01 02 03 04 05 00"), true);
    EXPECT_EQ(hexOf(host.poll("06 01", "01 35")), "01 35 01 02 03 04 05 00");
    EXPECT_EQ(host.set("06 01", "01 43 01"), false) << "NAV-SIG is younger";
}

TEST_F(NeoM8tSimulator, KeepsTheLongPowerManagementMessageWhole)
{
    EXPECT_EQ(host.set("06 3B", "01 06 00 00 00 94 03 00 E8 03 00 00 10 27 00 00" + zeros(8) +
                                    " 2C 01 00 00 4F C1 03 00 86 02 00 00 FE 00 00 00 64 40 01 00"),
              true);

    EXPECT_EQ(hexOf(host.poll("06 3B")),
              "01 06 00 00 00 94 03 00 E8 03 00 00 10 27 00 00 00 00 00 00 00 00 00 00 2C 01 00 00 4F C1 03 00 86 02 "
              "00 00 FE 00 00 00 64 40 01 00 00 00 00 00");
}

TEST_F(NeoM8tSimulator, SetsTheConstellationsAndShowsThemInOrder)
{
    EXPECT_EQ(host.set("06 3E", "00 20 20 02 00 10 20 00 01 00 01 00 06 00 00 00 00 00 01 00"), true);

    EXPECT_EQ(hexOf(host.poll("06 3E")).substr(12, 23), "00 10 20 00 01 00 01 01");
    EXPECT_EQ(receiver.keyValue(0x1031001F), 1U);
    EXPECT_EQ(receiver.keyValue(0x10310025), 0U);
}

TEST_F(NeoM8tSimulator, RefusesConstellationsThatItCannotReceiveTogether)
{
    EXPECT_EQ(host.set("06 3E", "00 20 20 02 00 08 10 00 00 00 01 00 06 00 00 00 00 00 01 00"), false)
        << "no major constellation would be left";
    EXPECT_EQ(host.set("06 3E", "00 20 20 02 02 04 08 00 01 00 01 00 03 08 10 00 01 00 01 00"), false)
        << "four at once are more than its front end takes";
    EXPECT_EQ(host.set("06 3E", "00 20 20 01 00 21 21 00 01 00 01 00"), false) << "33 reserved channels of 32";
    EXPECT_EQ(host.set("06 3E", "00 20 20 01 09 08 10 00 01 00 01 00"), false) << "constellation 9";
    EXPECT_EQ(host.set("06 3E", "00 20 20 02 00 08 10 00 01 00 01 00"), false) << "a block short";
}

TEST_F(NeoM8tSimulator, TellsThatItResetsItsGnssPartWhenTheConstellationsChange)
{
    receiver.setKeyValue(0x20920007, 7); // information messages on

    host.send("06 3E", "00 20 20 01 06 00 00 00 00 00 01 00");
    const auto items = host.collect(100ms);

    ASSERT_GE(items.size(), 2U);
    EXPECT_EQ(items[0].text, "$GNTXT,01,01,02,Resetting GNSS*3B");
    EXPECT_EQ(items[1].classId, 0x0501);
}

TEST_F(ZedF9tSimulator, AnswersTheLegacyMessagesByDefault)
{
    for (const char* message :
         {"06 00", "06 08", "06 11", "06 16", "06 23", "06 24", "06 31", "06 39", "06 3B", "06 3D", "06 3E", "06 71"}) {
        EXPECT_TRUE(host.poll(message).has_value()) << message;
    }
}

TEST_F(ZedF9tSimulator, ShowsTheConstellationBlocksInTheOrderOfTheirNumbers)
{
    EXPECT_EQ(hexOf(host.poll("06 3E")), "00 3C 3C 07 "
                                         "00 08 10 00 01 00 11 31 "
                                         "01 03 03 00 01 00 00 01 "
                                         "02 0A 12 00 01 00 21 31 "
                                         "03 04 05 00 01 00 11 91 "
                                         "04 00 00 00 00 00 01 03 "
                                         "05 00 03 00 01 00 11 31 "
                                         "06 08 0C 00 01 00 11 11");
}

namespace
{

std::string legacyMessagesAnswered(const std::string& firmware)
{
    ubxsim::SimulatorOptions options;
    options.model = ubxsim::Model::zedF9t;
    options.firmware = firmware;
    options.strictLegacy = true;
    options.nmea = false;
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());
    std::string answered;
    for (const char* message :
         {"06 00", "06 08", "06 11", "06 16", "06 23", "06 24", "06 31", "06 39", "06 3B", "06 3D", "06 3E", "06 71"}) {
        if (host.set(message, "") == true) {
            answered += std::string(message + 3) + " ";
        }
    }
    return answered;
}

} // namespace

TEST(StrictZedF9tSimulator, AnswersOnlyWhatRealOnesWereSeenToAnswer)
{
    EXPECT_EQ(legacyMessagesAnswered("TIM 2.01"), "00 08 16 23 24 31 39 3E 71 ");
    EXPECT_EQ(legacyMessagesAnswered("TIM 2.20"), "00 ");
}
