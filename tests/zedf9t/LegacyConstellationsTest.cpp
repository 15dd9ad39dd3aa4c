// The constellations of a ZED-F9T through CFG-GNSS: channels, signals and what is read back.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "Frames.h"
#include "WireFrames.h"
#include "ZedF9tTest.h"

using testsupport::CapturedOutput;
using testsupport::frame;
using testsupport::payload;
using zedtest::kLegacy;
using zedtest::ZedF9tTest;
using Lines = std::vector<std::string>;

namespace
{

// Reserved and greatest number of channels of the systems by gnssId, and which of them are enabled.
struct Row
{
    unsigned short mask;
    const char* channels[7]; // GPS, SBAS, Galileo, BeiDou, IMES, QZSS, GLONASS
    const char* enabled;
    bool utc; // the time grid of the pulses
};

const std::vector<Row> kListed = {
    {1, {"10 20", "04 05", "0A 12", "04 05", "00 00", "00 03", "08 0C"}, "1000000", false},
    {3, {"08 10", "08 10", "0A 12", "04 05", "00 00", "00 03", "08 0C"}, "1100000", false},
    {4, {"08 10", "04 05", "04 08", "04 05", "00 00", "00 03", "08 0C"}, "0010000", true},
    {5, {"08 18", "04 05", "04 08", "04 05", "00 00", "00 03", "08 0C"}, "1010000", false},
    {6, {"08 10", "10 05", "08 12", "04 05", "00 00", "00 03", "08 0C"}, "0110000", true},
    {8, {"08 10", "04 05", "0A 12", "10 20", "00 00", "00 03", "08 0C"}, "0001000", true},
    {9, {"08 10", "04 05", "0A 12", "08 10", "00 00", "00 03", "08 0C"}, "1001000", false},
    {10, {"08 10", "08 10", "0A 12", "08 10", "00 00", "00 03", "08 0C"}, "0101000", true},
    {16, {"08 10", "04 05", "0A 12", "04 05", "10 20", "00 03", "08 0C"}, "0000100", false},
    {64, {"08 10", "04 05", "0A 12", "04 05", "00 00", "00 03", "10 20"}, "0000001", true},
    {65, {"08 10", "04 05", "0A 12", "04 05", "00 00", "00 03", "08 10"}, "1000001", false},
    {66, {"08 10", "08 10", "0A 12", "04 05", "00 00", "00 03", "08 10"}, "0100001", true},
    {67, {"08 10", "08 10", "0A 12", "04 05", "00 00", "00 03", "08 10"}, "1100001", false},
    {68, {"08 10", "04 05", "04 08", "04 05", "00 00", "00 03", "08 18"}, "0010001", true},
    {71, {"08 10", "04 08", "02 04", "04 05", "00 00", "00 03", "02 04"}, "1110001", false},
    {72, {"08 10", "04 05", "0A 12", "08 10", "00 00", "00 03", "08 10"}, "0001001", true},
};

// A mask that is not in the table has these channels, whatever it enables.
Row unlisted(unsigned short mask, const char* enabled)
{
    return {mask, {"08 10", "04 05", "0A 12", "04 05", "00 00", "00 03", "08 0C"}, enabled, false};
}

const std::vector<Row> kUnlisted = {
    unlisted(0, "0000000"),   unlisted(2, "0100000"),   unlisted(7, "1110000"),     unlisted(11, "1101000"),
    unlisted(12, "0011000"),  unlisted(32, "0000010"),  unlisted(70, "0110001"),    unlisted(73, "1001001"),
    unlisted(127, "1111111"), unlisted(128, "0000000"), unlisted(255, "1111111"),   unlisted(257, "1000000"),
    unlisted(328, "0001001"), unlisted(520, "0001000"), unlisted(65535, "1111111"),
};

// The signal bytes of the seven systems: those of IMES have no top byte.
constexpr const char* kTwoBands[] = {"00 11 01", "00 01 01", "00 21 01", "00 11 01",
                                     "00 01 00", "00 11 01", "00 11 01"};
constexpr const char* kOneBand[] = {"00 01 01", "00 01 01", "00 01 01", "00 01 01", "00 01 00", "00 01 01", "00 01 01"};

std::string selection(const Row& row, const char* const (&signals)[7])
{
    std::string all = "00 20 20 07";
    for (std::size_t system = 0; system < 7; ++system) {
        all += " 0" + std::to_string(system) + " " + row.channels[system] + " 00 0" + row.enabled[system] + " " +
               signals[system];
    }
    return frame("06 3E", all);
}

class LegacyConstellations : public ZedF9tTest
{
protected:
    LegacyConstellations()
    {
        renewTimePulse();
        controller.setZedf9tConfigurationInterfaceMode(kLegacy);
    }

    /// What the receiver says when asked, by gnssId, as "1000000".
    void reports(const std::string& enabled)
    {
        std::string reply = "00 20 20 07";
        for (std::size_t system = 0; system < 7; ++system)
            reply += " 0" + std::to_string(system) + " 08 10 00 0" + enabled[system] + " 00 01 01";
        answer(0x063E, reply);
    }

    /// Each row is sent as it stands, with both pulses and one poll, and reported as read back.
    void expectRows(const std::vector<Row>& rows)
    {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.mask);
            const char* const first = row.utc ? zedtest::kFirstPulseUtc : zedtest::kFirstPulseGps;
            const char* const second = row.utc ? zedtest::kSecondPulseUtc : zedtest::kSecondPulseGps;
            const int status = row.mask > 127 ? 1 : 0; // bits above GLONASS are never read back
            receiver().clearFaults();
            reports(row.enabled);

            EXPECT_EQ(controller.setGnssSystem(row.mask, true), status);
            expectFrames({selection(row, kTwoBands), first, second, zedtest::kPollConstellations});
            EXPECT_EQ(controller.setGnssSystem(row.mask, false), status);
            expectFrames({selection(row, kOneBand), first, second, zedtest::kPollConstellations});
            EXPECT_EQ(controller.setGnssSystem(row.mask), status);
            expectFrames({selection(row, kTwoBands), first, second, zedtest::kPollConstellations});
        }
        EXPECT_EQ(log(), Lines{});
    }
};

TEST_F(LegacyConstellations, GpsAloneInBothBands)
{
    reports("1000000");

    EXPECT_EQ(controller.setGnssSystem(1, true), 0);

    expectFrames({"B5 62 06 3E 3C 00 "
                  "00 20 20 07 "
                  "00 10 20 00 01 00 11 01 "
                  "01 04 05 00 00 00 01 01 "
                  "02 0A 12 00 00 00 21 01 "
                  "03 04 05 00 00 00 11 01 "
                  "04 00 00 00 00 00 01 00 "
                  "05 00 03 00 00 00 11 01 "
                  "06 08 0C 00 00 00 11 01 "
                  "BF 41",
                  zedtest::kFirstPulseGps, zedtest::kSecondPulseGps, zedtest::kPollConstellations});
}

TEST_F(LegacyConstellations, FourSystemsInOneBand)
{
    reports("1110001");

    EXPECT_EQ(controller.setGnssSystem(71, false), 0);

    expectFrames({"B5 62 06 3E 3C 00 "
                  "00 20 20 07 "
                  "00 08 10 00 01 00 01 01 "
                  "01 04 08 00 01 00 01 01 "
                  "02 02 04 00 01 00 01 01 "
                  "03 04 05 00 00 00 01 01 "
                  "04 00 00 00 00 00 01 00 "
                  "05 00 03 00 00 00 01 01 "
                  "06 02 04 00 01 00 01 01 "
                  "29 A1",
                  zedtest::kFirstPulseGps, zedtest::kSecondPulseGps, zedtest::kPollConstellations});
}

TEST_F(LegacyConstellations, HaveTheChannelsOfEachListedMask)
{
    expectRows(kListed);
}

TEST_F(LegacyConstellations, HaveTheSameChannelsForEveryMaskThatIsNotListed)
{
    expectRows(kUnlisted);
}

TEST_F(LegacyConstellations, PrintNothing)
{
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return controller.setGnssSystem(1); }), 0);

    EXPECT_EQ(printed, "");
}

TEST_F(LegacyConstellations, AreNotChangedWhenSbasAndBeiDouMeet)
{
    reports("0101000");
    EXPECT_EQ(controller.setGnssSystem(10), 0);

    receiver().clearFaults();
    reports("0001000");
    EXPECT_EQ(controller.setGnssSystem(10), 1);
}

TEST_F(LegacyConstellations, AreReadFromTheEnableByteOfSevenBlocks)
{
    const struct
    {
        const char* enabled;
        unsigned short mask;
    } rows[] = {{"1000000", 1},  {"0100000", 2},  {"0010000", 4},  {"0001000", 8},   {"0000100", 16},
                {"0000010", 32}, {"0000001", 64}, {"1000001", 65}, {"1111111", 127}, {"0000000", 0}};
    for (const auto& row : rows) {
        receiver().clearFaults();
        reports(row.enabled);
        unsigned short mask = 0xFFFF; // cleared first

        EXPECT_EQ(controller.getGnssSystem(mask), 0);

        EXPECT_EQ(mask, row.mask);
        expectFrames({zedtest::kPollConstellations});
    }
}

TEST_F(LegacyConstellations, AreReadByPlaceAndNotBehindTheSeventhBlock)
{
    answer(0x063E, payload(76, {{8, "80 01 01 01"}, {16, "00 FF FF FF"}, {64, "01"}, {72, "01"}}));
    unsigned short mask = 0;

    EXPECT_EQ(controller.getGnssSystem(mask), 0);

    EXPECT_EQ(mask, 1);
}

TEST_F(LegacyConstellations, ReportAndLogWhatASilentReceiverLeavesOut)
{
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(whenSilent([&] { return controller.setGnssSystem(1); }), 5);
    EXPECT_EQ(whenSilent([&] { return controller.setGnssSystem(0); }), 4); // what a missing reply leaves

    EXPECT_EQ(log(), Lines(2, "Did not receive : 06 3E: GNSS system configuration"));
}

// Replies of any length, for every query of a legacy message: a byte that is not there counts as 0.
TEST_F(LegacyConstellations, AreReadOutOfShortRepliesAsFarAsTheyGo)
{
    for (std::size_t length = 0; length <= 60; ++length) {
        receiver().clearFaults();
        receiver().answerWith(0x063E, testsupport::Bytes(length, 0x01));
        unsigned expected = 0;
        for (const std::size_t place : {8U, 16U, 24U, 32U, 40U, 48U, 56U})
            if (length > place) expected = expected * 2 + 1;
        unsigned short mask = 0;

        EXPECT_EQ(controller.getGnssSystem(mask), 0);

        EXPECT_EQ(mask, expected) << length;
    }
}

} // namespace
