#include <algorithm>
#include <iterator>

#include "NeoM8tTest.h"

namespace
{

using testsupport::bytes;
using testsupport::frame;
using testsupport::kPollConstellations;
using testsupport::Lines;
using testsupport::payload;

constexpr const char* kPulse0OnGps = "B5 62 06 31 20 00 00 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                                     "00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 98 3E";
constexpr const char* kPulse1OnGps = "B5 62 06 31 20 00 01 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                                     "00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 99 5E";
constexpr const char* kPulse0OnUtc = "B5 62 06 31 20 00 00 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                                     "00 00 00 00 A0 86 01 00 00 00 00 00 77 00 00 00 18 3E";
constexpr const char* kPulse1OnUtc = "B5 62 06 31 20 00 01 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                                     "00 00 00 00 A0 86 01 00 00 00 00 00 77 00 00 00 19 5E";

struct Selection
{
    unsigned short mask;
    const char* blocks; // gnssId, resTrkCh, maxTrkCh, reserved, flags: GPS SBAS Galileo, BeiDou IMES, QZSS GLONASS
};

constexpr Selection kListed[] = {
    {1, "00 10 20 00 01 00 01 00  01 00 00 00 00 00 01 00  02 00 00 00 00 00 01 00 "
        "03 00 00 00 00 00 01 00  04 00 00 00 00 00 01 00 "
        "05 00 00 00 00 00 01 00  06 00 00 00 00 00 01 00"},
    {3, "00 08 10 00 01 00 01 00  01 08 10 00 01 00 01 00  02 00 00 00 00 00 01 00 "
        "03 00 00 00 00 00 01 00  04 00 00 00 00 00 01 00 "
        "05 00 00 00 00 00 01 00  06 00 00 00 00 00 01 00"},
    {4, "00 00 00 00 00 00 01 00  01 00 00 00 00 00 01 00  02 08 08 00 01 00 01 00 "
        "03 00 00 00 00 00 01 00  04 00 00 00 00 00 01 00 "
        "05 00 00 00 00 00 01 00  06 00 00 00 00 00 01 00"},
    {5, "00 08 10 00 01 00 01 00  01 00 00 00 00 00 01 00  02 08 08 00 01 00 01 00 "
        "03 00 00 00 00 00 01 00  04 00 00 00 00 00 01 00 "
        "05 00 00 00 00 00 01 00  06 00 00 00 00 00 01 00"},
    {6, "00 00 00 00 00 00 01 00  01 08 10 00 01 00 01 00  02 08 08 00 01 00 01 00 "
        "03 00 00 00 00 00 01 00  04 00 00 00 00 00 01 00 "
        "05 00 00 00 00 00 01 00  06 00 00 00 00 00 01 00"},
    {8, "00 00 00 00 00 00 01 00  01 00 00 00 00 00 01 00  02 00 00 00 00 00 01 00 "
        "03 10 20 00 01 00 01 00  04 00 00 00 00 00 01 00 "
        "05 00 00 00 00 00 01 00  06 00 00 00 00 00 01 00"},
    {9, "00 08 10 00 01 00 01 00  01 00 00 00 00 00 01 00  02 00 00 00 00 00 01 00 "
        "03 08 10 00 01 00 01 00  04 00 00 00 00 00 01 00 "
        "05 00 00 00 00 00 01 00  06 00 00 00 00 00 01 00"},
    {10, "00 00 00 00 00 00 01 00  01 08 10 00 01 00 01 00  02 00 00 00 00 00 01 00 "
         "03 08 10 00 01 00 01 00  04 00 00 00 00 00 01 00 "
         "05 00 00 00 00 00 01 00  06 00 00 00 00 00 01 00"},
    {16, "00 00 00 00 00 00 01 00  01 00 00 00 00 00 01 00  02 00 00 00 00 00 01 00 "
         "03 00 00 00 00 00 01 00  04 10 20 00 01 00 01 00 "
         "05 00 00 00 00 00 01 00  06 00 00 00 00 00 01 00"},
    {64, "00 00 00 00 00 00 01 00  01 00 00 00 00 00 01 00  02 00 00 00 00 00 01 00 "
         "03 00 00 00 00 00 01 00  04 00 00 00 00 00 01 00 "
         "05 00 00 00 00 00 01 00  06 10 20 00 01 00 01 00"},
    {65, "00 08 10 00 01 00 01 00  01 00 00 00 00 00 01 00  02 00 00 00 00 00 01 00 "
         "03 00 00 00 00 00 01 00  04 00 00 00 00 00 01 00 "
         "05 00 00 00 00 00 01 00  06 08 10 00 01 00 01 00"},
    {66, "00 00 00 00 00 00 01 00  01 08 10 00 01 00 01 00  02 00 00 00 00 00 01 00 "
         "03 00 00 00 00 00 01 00  04 00 00 00 00 00 01 00 "
         "05 00 00 00 00 00 01 00  06 08 10 00 01 00 01 00"},
    {67, "00 08 10 00 01 00 01 00  01 08 10 00 01 00 01 00  02 00 00 00 00 00 01 00 "
         "03 00 00 00 00 00 01 00  04 00 00 00 00 00 01 00 "
         "05 00 00 00 00 00 01 00  06 08 10 00 01 00 01 00"},
    {68, "00 00 00 00 00 00 01 00  01 00 00 00 00 00 01 00  02 08 08 00 01 00 01 00 "
         "03 00 00 00 00 00 01 00  04 00 00 00 00 00 01 00 "
         "05 00 00 00 00 00 01 00  06 04 08 00 01 00 01 00"},
    {71, "00 08 10 00 01 00 01 00  01 04 08 00 01 00 01 00  02 08 08 00 01 00 01 00 "
         "03 00 00 00 00 00 01 00  04 00 00 00 00 00 01 00 "
         "05 00 00 00 00 00 01 00  06 04 08 00 01 00 01 00"},
    {72, "00 00 00 00 00 00 01 00  01 00 00 00 00 00 01 00  02 00 00 00 00 00 01 00 "
         "03 08 10 00 01 00 01 00  04 00 00 00 00 00 01 00 "
         "05 00 00 00 00 00 01 00  06 08 10 00 01 00 01 00"},
};

constexpr unsigned short kOnUtc[] = {8, 10, 64, 66, 72};

// A receiver refuses to run without GPS, Galileo, BeiDou and GLONASS, and keeps what it had.
constexpr unsigned short kImesAlone = 16;

bool followsUtc(unsigned short mask)
{
    return std::find(std::begin(kOnUtc), std::end(kOnUtc), mask) != std::end(kOnUtc);
}

class Constellations : public testsupport::NeoM8tTest
{
protected:
    unsigned short readBack(const std::string& reply)
    {
        receiver().clearFaults();
        receiver().answerWith(0x063E, bytes(reply));
        unsigned short mask = 0xAAAA;
        EXPECT_EQ(controller.getGnssSystem(mask), 0);
        return mask;
    }

    void expectSelection(unsigned short mask, const std::string& blocks)
    {
        const bool utc = followsUtc(mask);
        expectFrames({frame("06 3E", "00 20 20 07 " + blocks), utc ? kPulse0OnUtc : kPulse0OnGps,
                      utc ? kPulse1OnUtc : kPulse1OnGps, kPollConstellations});
    }
};

TEST_F(Constellations, GpsAloneIsSelectedWithBothTimePulsesAndReadBack)
{
    EXPECT_EQ(controller.setGnssSystem(1), 0);

    expectFrames({"B5 62 06 3E 3C 00 00 20 20 07 "
                  "00 10 20 00 01 00 01 00 01 00 00 00 00 00 01 00 02 00 00 00 00 00 01 00 03 00 00 00 00 00 01 00 "
                  "04 00 00 00 00 00 01 00 05 00 00 00 00 00 01 00 06 00 00 00 00 00 01 00 14 53",
                  kPulse0OnGps, kPulse1OnGps, kPollConstellations});
}

TEST_F(Constellations, EveryListedSelectionHasItsChannels)
{
    for (const Selection& selection : kListed) {
        SCOPED_TRACE(selection.mask);

        EXPECT_EQ(controller.setGnssSystem(selection.mask), selection.mask == kImesAlone ? 1 : 0);

        expectSelection(selection.mask, selection.blocks);
    }
}

TEST_F(Constellations, TheFlagForTwoBandsChangesNothing)
{
    for (const Selection& selection : kListed) {
        SCOPED_TRACE(selection.mask);

        controller.setGnssSystem(selection.mask, true);
        expectSelection(selection.mask, selection.blocks);

        controller.setGnssSystem(selection.mask, false);
        expectSelection(selection.mask, selection.blocks);
    }
}

TEST_F(Constellations, SbasAloneIsEnabledWithZeroChannelsEverywhere)
{
    controller.setGnssSystem(2);

    expectSelection(2, "00 00 00 00 00 00 01 00  01 00 00 00 01 00 01 00  02 00 00 00 00 00 01 00 "
                       "03 00 00 00 00 00 01 00  04 00 00 00 00 00 01 00 "
                       "05 00 00 00 00 00 01 00  06 00 00 00 00 00 01 00");
}

TEST_F(Constellations, NoneDisablesAllSevenSystems)
{
    controller.setGnssSystem(0);

    expectSelection(0, "00 00 00 00 00 00 01 00  01 00 00 00 00 00 01 00  02 00 00 00 00 00 01 00 "
                       "03 00 00 00 00 00 01 00  04 00 00 00 00 00 01 00 "
                       "05 00 00 00 00 00 01 00  06 00 00 00 00 00 01 00");
}

TEST_F(Constellations, UnlistedSelectionsAreSentWithZeroChannels)
{
    const auto blocks = [](unsigned mask) {
        const auto bit = [&](unsigned system) { return (mask >> system) & 1U ? "01" : "00"; };
        return payload(56,
                       {{0, "00"},    {4, bit(0)}, {6, "01"},    {8, "01"},    {12, bit(1)}, {14, "01"},   {16, "02"},
                        {20, bit(2)}, {22, "01"},  {24, "03"},   {28, bit(3)}, {30, "01"},   {32, "04"},   {36, bit(4)},
                        {38, "01"},   {40, "05"},  {44, bit(5)}, {46, "01"},   {48, "06"},   {52, bit(6)}, {54, "01"}});
    };
    for (const int each : {7, 11, 17, 32, 70, 73, 96, 127, 128, 256, 265, 328, 32768, 65535}) {
        const auto mask = static_cast<unsigned short>(each);
        SCOPED_TRACE(mask);

        controller.setGnssSystem(mask);

        expectSelection(mask, blocks(mask));
    }
}

TEST_F(Constellations, SelectionsAreComparedAsWhole16BitValues)
{
    controller.setGnssSystem(328); // bits 3, 6 and 8: not 72, whose channels and time grid it would have

    expectSelection(328, "00 00 00 00 00 00 01 00  01 00 00 00 00 00 01 00  02 00 00 00 00 00 01 00 "
                         "03 00 00 00 01 00 01 00  04 00 00 00 00 00 01 00 "
                         "05 00 00 00 00 00 01 00  06 00 00 00 01 00 01 00");
}

TEST_F(Constellations, SelectionThatTheReceiverCanNotHoldIsAMismatch)
{
    EXPECT_EQ(controller.setGnssSystem(328), 1);
    EXPECT_EQ(controller.setGnssSystem(128), 1);
}

TEST_F(Constellations, SelectionReportsAMismatchWhenTheReceiverKeepsItsOwn)
{
    controller.setGnssSystem(65);
    receiver().keepValue(0x063E);

    EXPECT_EQ(controller.setGnssSystem(8), 1);
}

TEST_F(Constellations, SelectionOnASilentReceiverReportsNoReplyAndAMismatch)
{
    EXPECT_EQ(whenSilent([&] { return controller.setGnssSystem(1); }), 5);

    EXPECT_EQ(errors(), Lines{"Did not receive : 06 3E: GNSS system configuration"});
}

TEST_F(Constellations, NoneOnASilentReceiverMatchesWhatWasPreset)
{
    EXPECT_EQ(whenSilent([&] { return controller.setGnssSystem(0); }), 4);
}

TEST_F(Constellations, SelectionWithoutADeviceLogsAllFourMessages)
{
    takeDeviceAway();

    EXPECT_EQ(controller.setGnssSystem(1), 9);

    EXPECT_EQ(
        errors(),
        (Lines{"Could not send : 06 3E: GNSS system configuration", "Could not send : 06 31: Time Pulse Parameters",
               "Could not send : 06 31: Time Pulse Parameters", "Could not send : 06 3E: GNSS system configuration"}));
}

TEST_F(Constellations, ReplyWithBlocks0And6EnabledIsMask65)
{
    EXPECT_EQ(readBack(payload(60, {{0, "00 20 20 07"}, {8, "01"}, {56, "01"}})), 65);
}

TEST_F(Constellations, EachBlockOfAReplyHasItsBit)
{
    EXPECT_EQ(readBack(payload(60, {{8, "01"}})), 1);
    EXPECT_EQ(readBack(payload(60, {{16, "01"}})), 2);
    EXPECT_EQ(readBack(payload(60, {{24, "01"}})), 4);
    EXPECT_EQ(readBack(payload(60, {{32, "01"}})), 8);
    EXPECT_EQ(readBack(payload(60, {{40, "01"}})), 16);
    EXPECT_EQ(readBack(payload(60, {{48, "01"}})), 32);
    EXPECT_EQ(readBack(payload(60, {{56, "01"}})), 64);
}

TEST_F(Constellations, AnyEnableByteThatIsNotZeroCounts)
{
    EXPECT_EQ(readBack(payload(60, {{8, "80"}, {16, "02"}, {24, "FF"}, {32, "10"}})), 15);
}

TEST_F(Constellations, OtherBytesOfAReplyDoNotCount)
{
    EXPECT_EQ(readBack(payload(60, {{0, "FF FF FF FF FF FF FF FF"},
                                    {9, "FF FF FF FF FF FF FF"},
                                    {17, "FF FF FF FF FF FF FF"},
                                    {25, "FF FF FF FF FF FF FF"},
                                    {33, "FF FF FF FF FF FF FF"},
                                    {41, "FF FF FF FF FF FF FF"},
                                    {49, "FF FF FF FF FF FF FF"},
                                    {57, "FF FF FF"}})),
              0);
}

TEST_F(Constellations, BlocksBeyondTheSeventhAreIgnored)
{
    EXPECT_EQ(readBack(payload(76, {{0, "00 20 20 09"}, {8, "01"}, {64, "01"}, {72, "01"}})), 1);
}

TEST_F(Constellations, BlocksCountByPlaceAndNotByTheirGnssId)
{
    EXPECT_EQ(readBack(payload(60, {{0, "00 20 20 07"}, {4, "06"}, {8, "01"}, {52, "00"}})), 1);
}

TEST_F(Constellations, SbasConfigurationIsSent)
{
    EXPECT_EQ(controller.configureSBAS(), 0);

    expectFrames({"B5 62 06 16 08 00 01 03 03 00 E9 A3 37 00 EE B4"});
}

TEST_F(Constellations, SbasConfigurationWithoutADeviceIsLogged)
{
    takeDeviceAway();

    EXPECT_EQ(controller.configureSBAS(), 0);

    EXPECT_EQ(errors(), Lines{"Could not send : 06 16: SBAS Configuration"});
}

} // namespace
