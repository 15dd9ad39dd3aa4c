// The constellations of a ZED-F9T through the configuration interface.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "WireFrames.h"
#include "ZedF9tTest.h"

using testsupport::CapturedOutput;
using zedtest::ZedF9tTest;
using Lines = std::vector<std::string>;

namespace
{

// Firmware from 2.20 on is told of BeiDou's geostationary satellites, too.
constexpr const char* kBeiDouItems = "B5 62 06 8A 09 00 00 01 00 00 14 00 34 10 01 F3 52";

constexpr const char* kNothing = "0 0 0 0 0 0";

class SignalsTest : public ZedF9tTest
{
protected:
    SignalsTest() { receiver(); }

    /// What the receiver says when asked: GPS, SBAS, Galileo, BeiDou, QZSS, GLONASS, as "1 0 0 0 0 0".
    void reports(const std::string& enabled)
    {
        const char* const keys[] = {"1F 00 31 10 0",  " 20 00 31 10 0", " 21 00 31 10 0",
                                    " 22 00 31 10 0", " 24 00 31 10 0", " 25 00 31 10 0"};
        std::string items;
        for (std::size_t i = 0; i < 6; ++i)
            items += keys[i] + enabled.substr(2 * i, 1);
        answerItems(items + " 26 00 31 10 00");
    }

    ubxController_ZEDF9T older{zedtest::kVersion2_13, zedtest::kByKey};
};

TEST_F(SignalsTest, GpsInBothBandsOnOlderFirmware)
{
    reports("1 0 0 0 0 0");
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return older.setGnssSystem(1, true); }), 0);

    EXPECT_EQ(printed, "GNSS_FLAG_GPS\n");
    expectFrames({"B5 62 06 8A 5E 00 "
                  "00 01 00 00 "
                  "1F 00 31 10 01 01 00 31 10 01 03 00 31 10 01 "
                  "20 00 31 10 00 05 00 31 10 00 "
                  "21 00 31 10 00 07 00 31 10 00 0A 00 31 10 00 "
                  "22 00 31 10 00 0D 00 31 10 00 0E 00 31 10 00 "
                  "24 00 31 10 00 12 00 31 10 00 14 00 31 10 00 15 00 31 10 00 "
                  "25 00 31 10 00 18 00 31 10 00 1A 00 31 10 00 "
                  "F1 67",
                  zedtest::kFirstPulseGpsItems, zedtest::kSecondPulseGpsItems, zedtest::kPollSignalItems});
}

TEST_F(SignalsTest, GpsInBothBandsFromTim2_20On)
{
    reports("1 0 0 0 0 0");
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return controller.setGnssSystem(1, true); }), 0);

    EXPECT_EQ(printed, "GNSS_FLAG_GPS\n");
    expectFrames({"B5 62 06 8A 7C 00 "
                  "00 01 00 00 "
                  "01 00 31 10 01 03 00 31 10 01 04 00 31 10 00 "
                  "05 00 31 10 00 "
                  "07 00 31 10 00 09 00 31 10 00 0A 00 31 10 00 "
                  "0D 00 31 10 00 0E 00 31 10 00 0F 00 31 10 00 "
                  "12 00 31 10 00 15 00 31 10 00 17 00 31 10 00 "
                  "18 00 31 10 00 1A 00 31 10 00 "
                  "1D 00 31 10 00 "
                  "1F 00 31 10 01 20 00 31 10 00 21 00 31 10 00 22 00 31 10 00 "
                  "24 00 31 10 00 25 00 31 10 00 26 00 31 10 00 28 00 31 10 00 "
                  "1F 10",
                  zedtest::kFirstPulseGpsItems, zedtest::kSecondPulseGpsItems, zedtest::kPollSignalItemsTim2_20});
}

TEST_F(SignalsTest, EverySystemButSbasInBothBandsOnOlderFirmware)
{
    reports("1 0 1 1 1 1");
    std::string printed;

    EXPECT_EQ(older.setGnssSystem(109), 0); // without the second argument: both bands

    EXPECT_EQ(printed, "");
    expectFrames({"B5 62 06 8A 5E 00 "
                  "00 01 00 00 "
                  "1F 00 31 10 01 01 00 31 10 01 03 00 31 10 01 "
                  "20 00 31 10 00 05 00 31 10 00 "
                  "21 00 31 10 01 07 00 31 10 01 0A 00 31 10 01 "
                  "22 00 31 10 01 0D 00 31 10 01 0E 00 31 10 01 "
                  "24 00 31 10 01 12 00 31 10 01 14 00 31 10 01 15 00 31 10 01 "
                  "25 00 31 10 01 18 00 31 10 01 1A 00 31 10 01 "
                  "FE FA",
                  zedtest::kFirstPulseUtcItems, zedtest::kSecondPulseUtcItems, zedtest::kPollSignalItems});
}

TEST_F(SignalsTest, EverySystemButSbasInOneBandOnOlderFirmware)
{
    reports("1 0 1 1 1 1");

    EXPECT_EQ(older.setGnssSystem(109, false), 0);

    expectFrames({"B5 62 06 8A 5E 00 "
                  "00 01 00 00 "
                  "1F 00 31 10 01 01 00 31 10 01 03 00 31 10 00 "
                  "20 00 31 10 00 05 00 31 10 00 "
                  "21 00 31 10 01 07 00 31 10 01 0A 00 31 10 00 "
                  "22 00 31 10 01 0D 00 31 10 01 0E 00 31 10 00 "
                  "24 00 31 10 01 12 00 31 10 01 14 00 31 10 01 15 00 31 10 00 "
                  "25 00 31 10 01 18 00 31 10 01 1A 00 31 10 00 "
                  "F9 46",
                  zedtest::kFirstPulseUtcItems, zedtest::kSecondPulseUtcItems, zedtest::kPollSignalItems});
}

TEST_F(SignalsTest, EverySystemButSbasInBothBandsFromTim2_20On)
{
    reports("1 0 1 1 1 1");

    EXPECT_EQ(controller.setGnssSystem(109), 0);

    expectFrames({"B5 62 06 8A 7C 00 "
                  "00 01 00 00 "
                  "01 00 31 10 01 03 00 31 10 01 04 00 31 10 00 "
                  "05 00 31 10 00 "
                  "07 00 31 10 01 09 00 31 10 00 0A 00 31 10 01 "
                  "0D 00 31 10 01 0E 00 31 10 01 0F 00 31 10 00 "
                  "12 00 31 10 01 15 00 31 10 01 17 00 31 10 00 "
                  "18 00 31 10 01 1A 00 31 10 01 "
                  "1D 00 31 10 00 "
                  "1F 00 31 10 01 20 00 31 10 00 21 00 31 10 01 22 00 31 10 01 "
                  "24 00 31 10 01 25 00 31 10 01 26 00 31 10 00 28 00 31 10 00 "
                  "2B 8D",
                  kBeiDouItems, zedtest::kFirstPulseUtcItems, zedtest::kSecondPulseUtcItems,
                  zedtest::kPollSignalItemsTim2_20});
}

TEST_F(SignalsTest, EverySystemButSbasInOneBandFromTim2_20On)
{
    reports("1 0 1 1 1 1");

    EXPECT_EQ(controller.setGnssSystem(109, false), 0);

    expectFrames({"B5 62 06 8A 7C 00 "
                  "00 01 00 00 "
                  "01 00 31 10 01 03 00 31 10 00 04 00 31 10 00 "
                  "05 00 31 10 00 "
                  "07 00 31 10 01 09 00 31 10 00 0A 00 31 10 00 "
                  "0D 00 31 10 01 0E 00 31 10 00 0F 00 31 10 00 "
                  "12 00 31 10 01 15 00 31 10 00 17 00 31 10 00 "
                  "18 00 31 10 01 1A 00 31 10 00 "
                  "1D 00 31 10 00 "
                  "1F 00 31 10 01 20 00 31 10 00 21 00 31 10 01 22 00 31 10 01 "
                  "24 00 31 10 01 25 00 31 10 01 26 00 31 10 00 28 00 31 10 00 "
                  "26 11",
                  kBeiDouItems, zedtest::kFirstPulseUtcItems, zedtest::kSecondPulseUtcItems,
                  zedtest::kPollSignalItemsTim2_20});
}

TEST_F(SignalsTest, SbasAndBeiDouSetsBeiDouAloneAndIsVerifiedAgainst8)
{
    reports("0 0 0 1 0 0");
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return controller.setGnssSystem(10); }), 0);

    EXPECT_EQ(printed, "GNSS_FLAG_BEIDOU\n");
    expectFrames({"B5 62 06 8A 7C 00 "
                  "00 01 00 00 "
                  "01 00 31 10 00 03 00 31 10 00 04 00 31 10 00 "
                  "05 00 31 10 00 "
                  "07 00 31 10 00 09 00 31 10 00 0A 00 31 10 00 "
                  "0D 00 31 10 01 0E 00 31 10 01 0F 00 31 10 00 "
                  "12 00 31 10 00 15 00 31 10 00 17 00 31 10 00 "
                  "18 00 31 10 00 1A 00 31 10 00 "
                  "1D 00 31 10 00 "
                  "1F 00 31 10 00 20 00 31 10 00 21 00 31 10 00 22 00 31 10 01 "
                  "24 00 31 10 00 25 00 31 10 00 26 00 31 10 00 28 00 31 10 00 "
                  "1F BB",
                  kBeiDouItems, zedtest::kFirstPulseUtcItems, zedtest::kSecondPulseUtcItems,
                  zedtest::kPollSignalItemsTim2_20});
}

TEST_F(SignalsTest, SbasAndBeiDouWithGpsSetsBothButReports1)
{
    reports("1 0 0 1 0 0");
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return older.setGnssSystem(11); }), 1);

    EXPECT_EQ(printed, "GNSS_FLAG_BEIDOU\n");
    expectFrames({"B5 62 06 8A 5E 00 "
                  "00 01 00 00 "
                  "1F 00 31 10 01 01 00 31 10 01 03 00 31 10 01 "
                  "20 00 31 10 00 05 00 31 10 00 "
                  "21 00 31 10 00 07 00 31 10 00 0A 00 31 10 00 "
                  "22 00 31 10 01 0D 00 31 10 01 0E 00 31 10 01 "
                  "24 00 31 10 00 12 00 31 10 00 14 00 31 10 00 15 00 31 10 00 "
                  "25 00 31 10 00 18 00 31 10 00 1A 00 31 10 00 "
                  "F4 E2",
                  zedtest::kFirstPulseUtcItems, zedtest::kSecondPulseUtcItems, zedtest::kPollSignalItems});
}

TEST_F(SignalsTest, SbasAndGlonassOnOlderFirmware)
{
    reports("0 1 0 0 0 1");
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return older.setGnssSystem(66); }), 0);

    EXPECT_EQ(printed, "GNSS_FLAG_GLONASS | GNSS_FLAG_SBAS\n");
    expectFrames({"B5 62 06 8A 5E 00 "
                  "00 01 00 00 "
                  "1F 00 31 10 00 01 00 31 10 00 03 00 31 10 00 "
                  "20 00 31 10 01 05 00 31 10 01 "
                  "21 00 31 10 00 07 00 31 10 00 0A 00 31 10 00 "
                  "22 00 31 10 00 0D 00 31 10 00 0E 00 31 10 00 "
                  "24 00 31 10 00 12 00 31 10 00 14 00 31 10 00 15 00 31 10 00 "
                  "25 00 31 10 01 18 00 31 10 01 1A 00 31 10 01 "
                  "F3 0F",
                  zedtest::kFirstPulseUtcItems, zedtest::kSecondPulseUtcItems, zedtest::kPollSignalItems});
}

TEST_F(SignalsTest, NoSystemAtAll)
{
    reports(kNothing);
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return older.setGnssSystem(0); }), 0);

    EXPECT_EQ(printed, "");
    expectFrames({"B5 62 06 8A 5E 00 "
                  "00 01 00 00 "
                  "1F 00 31 10 00 01 00 31 10 00 03 00 31 10 00 "
                  "20 00 31 10 00 05 00 31 10 00 "
                  "21 00 31 10 00 07 00 31 10 00 0A 00 31 10 00 "
                  "22 00 31 10 00 0D 00 31 10 00 0E 00 31 10 00 "
                  "24 00 31 10 00 12 00 31 10 00 14 00 31 10 00 15 00 31 10 00 "
                  "25 00 31 10 00 18 00 31 10 00 1A 00 31 10 00 "
                  "EE 74",
                  zedtest::kFirstPulseUtcItems, zedtest::kSecondPulseUtcItems, zedtest::kPollSignalItems});
}

TEST_F(SignalsTest, ImesIsNeverReadBackAndReports1)
{
    reports(kNothing);
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return controller.setGnssSystem(16); }), 1);

    EXPECT_EQ(printed, "GNSS_FLAG_IMES\n");
}

TEST_F(SignalsTest, BitsAboveGlonassAreNeverReadBackAndReport1)
{
    reports("1 0 0 0 0 0");

    EXPECT_EQ(controller.setGnssSystem(1 + 128), 1);
    EXPECT_EQ(controller.setGnssSystem(1 + 256), 1); // and the time grid is that of a mask of more than GPS

    const Lines frames = takeFrames();
    ASSERT_EQ(frames.size(), 8U);
    EXPECT_EQ(frames[0], frames[4]);
    EXPECT_EQ(frames[5], zedtest::kFirstPulseUtcItems);
}

TEST_F(SignalsTest, EachSystemIsReadBackAtItsPlace)
{
    const struct
    {
        unsigned short mask;
        const char* enabled;
    } rows[] = {{1, "1 0 0 0 0 0"},  {2, "0 1 0 0 0 0"},  {4, "0 0 1 0 0 0"},  {8, "0 0 0 1 0 0"},  {32, "0 0 0 0 1 0"},
                {64, "0 0 0 0 0 1"}, {71, "1 1 1 0 0 1"}, {72, "0 0 0 1 0 1"}, {101, "1 0 1 0 1 1"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.mask);
        receiver().clearFaults();
        reports(row.enabled);
        EXPECT_EQ(quietly([&] { return controller.setGnssSystem(row.mask); }), 0);

        receiver().clearFaults();
        reports(kNothing);
        EXPECT_EQ(quietly([&] { return controller.setGnssSystem(row.mask); }), 1);
    }
}

TEST_F(SignalsTest, SilentReceiverReportsAndLogsOneMissingReply)
{
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(quietly([&] { return whenSilent([&] { return controller.setGnssSystem(4); }); }), 5);
    EXPECT_EQ(quietly([&] { return whenSilent([&] { return controller.setGnssSystem(0); }); }), 4);

    EXPECT_EQ(log(), Lines(2, "Did not receive : Antenna cable delay"));
    EXPECT_EQ(takeFrames().size(), 8U);
}

TEST_F(ZedF9tTest, SetGnssSystemByKeyPrintsTheTextOfEachListedMask)
{
    const auto text = [](unsigned mask) {
        if ((mask & 2) != 0 && (mask & 8) != 0) return "GNSS_FLAG_BEIDOU\n";
        switch (mask) {
        case 1:
            return "GNSS_FLAG_GPS\n";
        case 3:
            return "GNSS_FLAG_GPS | GNSS_FLAG_SBAS\n";
        case 4:
            return "GNSS_FLAG_GAL\n";
        case 5:
            return "GNSS_FLAG_GPS | GNSS_FLAG_GAL\n";
        case 6:
            return "GNSS_FLAG_GAL | GNSS_FLAG_SBAS\n";
        case 8:
            return "GNSS_FLAG_BEIDOU\n";
        case 9:
            return "GNSS_FLAG_GPS | GNSS_FLAG_BEIDOU\n";
        case 16:
            return "GNSS_FLAG_IMES\n";
        case 32:
            return "GNSS_FLAG_QZSS\n";
        case 64:
            return "GNSS_FLAG_GLONASS\n";
        case 65:
            return "GNSS_FLAG_GPS | GNSS_FLAG_GLONASS\n";
        case 66:
            return "GNSS_FLAG_GLONASS | GNSS_FLAG_SBAS\n";
        case 67:
            return "GNSS_FLAG_GPS | GNSS_FLAG_GLONASS |GNSS_FLAG_SBAS\n"; // without the blank
        case 68:
            return "GNSS_FLAG_GAL | GNSS_FLAG_GLONASS\n";
        case 71:
            return "GNSS_FLAG_GPS | GNSS_FLAG_GLONASS | GNSS_FLAG_GAL | GNSS_FLAG_SBAS\n";
        case 72:
            return "GNSS_FLAG_GLONASS | GNSS_FLAG_BEIDOU\n";
        default:
            return "";
        }
    };
    const CapturedOutput errors(STDERR_FILENO);
    for (unsigned mask = 0; mask <= 0x1FF; ++mask) {
        std::string printed;

        printing(printed, [&] { // no device: all the same
            return controller.setGnssSystem(static_cast<unsigned short>(mask), mask % 2 == 0);
        });

        ASSERT_EQ(printed, text(mask)) << mask;
    }
}

TEST_F(ZedF9tTest, SetGnssSystemByKeyWithoutADeviceLogsEveryFrame)
{
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(quietly([&] { return controller.setGnssSystem(8); }), 5);

    EXPECT_EQ(log(), (Lines{"Could not send : 06 8A: Unknown message type", // signals
                            "Could not send : 06 8A: Unknown message type", // BeiDou
                            "Could not send : 06 8A: Unknown message type", // first pulse
                            "Could not send : 06 8A: Unknown message type", // second pulse
                            "Could not send : 06 8B: Configuration Items", "Did not receive : Antenna cable delay"}));
}

} // namespace
