#include "NeoM8tTest.h"

namespace
{

using testsupport::bytes;
using testsupport::frame;
using testsupport::kPollPowerMode;
using testsupport::kPollRate;
using testsupport::Lines;

class TimeReference : public testsupport::NeoM8tTest
{
protected:
    void answer(const char* reply)
    {
        receiver().clearFaults();
        receiver().answerWith(0x0608, bytes(reply));
    }
};
class PowerMode : public testsupport::NeoM8tTest
{
protected:
    void answer(const char* reply)
    {
        receiver().clearFaults();
        receiver().answerWith(0x0611, bytes(reply));
    }
};

TEST_F(TimeReference, UtcIsWrittenIntoThePolledRates)
{
    answer("E8 03 01 00 01 00");

    EXPECT_EQ(controller.setTimeReference("UTC"), 0);

    expectFrames({kPollRate, "B5 62 06 08 06 00 E8 03 01 00 00 00 00 37"});
}

TEST_F(TimeReference, GpsIsWrittenIntoThePolledRates)
{
    answer("E8 03 01 00 00 00");

    EXPECT_EQ(controller.setTimeReference("GPS"), 0);

    expectFrames({kPollRate, "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39"});
}

TEST_F(TimeReference, LeavesTheOtherBytesAsPolled)
{
    answer("11 22 33 44 55 66 77");

    EXPECT_EQ(controller.setTimeReference("UTC"), 0);

    expectFrames({kPollRate, frame("06 08", "11 22 33 44 00 66 77")});
}

TEST_F(TimeReference, OfAShortReplyIsSentBackAtItsOwnLength)
{
    for (const char* reply : {"", "11", "11 22 33 44"}) {
        answer(reply);

        EXPECT_EQ(controller.setTimeReference("UTC"), 0);

        expectFrames({kPollRate, frame("06 08", reply)});
    }
    answer("11 22 33 44 55");

    EXPECT_EQ(controller.setTimeReference("GPS"), 0);

    expectFrames({kPollRate, frame("06 08", "11 22 33 44 01")});
}

TEST_F(TimeReference, OfAnotherWordIsRefusedAndNothingIsSent)
{
    for (const char* word : {"", "utc", "gps", "GLO", "BDS", "GAL", "UTC ", "GP"}) {
        EXPECT_EQ(controller.setTimeReference(word), 1) << word;
    }

    expectNoFrames();
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(TimeReference, IsNotWrittenToASilentReceiver)
{
    EXPECT_EQ(whenSilent([&] { return controller.setTimeReference("UTC"); }), 4);

    expectFrames({kPollRate});
    EXPECT_EQ(errors(), Lines{"Did not receive : 06 08: Navigation/Measurement Rate Settings"});
}

TEST_F(TimeReference, WithoutADeviceIsThePollThatCouldNotBeSent)
{
    takeDeviceAway();

    EXPECT_EQ(controller.setTimeReference("GPS"), 8);

    EXPECT_EQ(errors(), Lines{"Could not send : 06 08: Navigation/Measurement Rate Settings"});
}

TEST_F(TimeReference, IsReadFromByte4)
{
    std::string reference;
    answer("FF FF FF FF 00 FF");
    EXPECT_EQ(controller.getTimeReference(reference), 0);
    EXPECT_EQ(reference, "UTC");

    answer("00 00 00 00 01 00");
    EXPECT_EQ(controller.getTimeReference(reference), 0);
    EXPECT_EQ(reference, "GPS");
}

TEST_F(TimeReference, WithoutAWordLeavesTheTextAsItWas)
{
    for (const char* reply : {"E8 03 01 00 02 00", "E8 03 01 00 04 00", "E8 03 01 00 FF 00"}) {
        answer(reply);
        std::string reference = "as it was";

        EXPECT_EQ(controller.getTimeReference(reference), 0);

        EXPECT_EQ(reference, "as it was") << reply;
    }
}

TEST_F(PowerMode, IsWrittenBehindTheByteThatWasPolled)
{
    answer("48 07");

    EXPECT_EQ(controller.setRxMode("CONTINUOUS"), 0);
    EXPECT_EQ(controller.setRxMode("POWERSAVE"), 0);
    EXPECT_EQ(controller.setRxMode("ECO"), 0);

    expectFrames({kPollPowerMode, "B5 62 06 11 02 00 48 00 61 11", kPollPowerMode, "B5 62 06 11 02 00 48 01 62 12",
                  kPollPowerMode, "B5 62 06 11 02 00 48 04 65 15"});
}

TEST_F(PowerMode, OfAShortReplyIsSentBackAtItsOwnLength)
{
    for (const char* reply : {"", "48"}) {
        answer(reply);

        EXPECT_EQ(controller.setRxMode("ECO"), 0);

        expectFrames({kPollPowerMode, frame("06 11", reply)});
    }
}

TEST_F(PowerMode, EcoInLowerCaseIsRefused)
{
    EXPECT_EQ(controller.setRxMode("eco"), 1);

    expectNoFrames();
}

TEST_F(PowerMode, OfAnotherWordIsRefusedAndNothingIsSent)
{
    for (const char* word : {"", "Eco", "continuous", "Powersave", "ECO ", "FULL"}) {
        EXPECT_EQ(controller.setRxMode(word), 1) << word;
    }

    expectNoFrames();
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(PowerMode, IsNotWrittenToASilentReceiver)
{
    EXPECT_EQ(whenSilent([&] { return controller.setRxMode("ECO"); }), 4);

    expectFrames({kPollPowerMode});
    EXPECT_EQ(errors(), Lines{"Did not receive : 06 11: RXM Configuration"});
}

TEST_F(PowerMode, WithoutADeviceIsThePollThatCouldNotBeSent)
{
    takeDeviceAway();

    EXPECT_EQ(controller.setRxMode("CONTINUOUS"), 8);

    EXPECT_EQ(errors(), Lines{"Could not send : 06 11: RXM Configuration"});
}

TEST_F(PowerMode, IsReadFromByte1)
{
    const struct
    {
        const char* reply;
        const char* word;
    } cases[] = {{"48 00", "CONTINUOUS"}, {"00 01", "POWERSAVE"}, {"01 04", "ECO"}};
    for (const auto& each : cases) {
        answer(each.reply);
        std::string mode;

        EXPECT_EQ(controller.getRxMode(mode), 0);

        EXPECT_EQ(mode, each.word);
    }
}

TEST_F(PowerMode, WithoutAWordLeavesTheTextAsItWas)
{
    for (const char* reply : {"00 02", "01 03", "04 05", "00 FF"}) {
        answer(reply);
        std::string mode = "as it was";

        EXPECT_EQ(controller.getRxMode(mode), 0);

        EXPECT_EQ(mode, "as it was") << reply;
    }
}

TEST_F(PowerMode, ExtendedPowerManagementIsSent)
{
    EXPECT_EQ(controller.configExtendedPowerManagment(), 0);

    expectFrames({"B5 62 06 3B 2C 00 01 06 00 00 00 94 03 00 E8 03 00 00 10 27 00 00 00 00 00 00 00 00 00 00 "
                  "2C 01 00 00 4F C1 03 00 86 02 00 00 FE 00 00 00 64 40 01 00 98 57"});
}

TEST_F(PowerMode, ExtendedPowerManagementWithoutADeviceIsLogged)
{
    takeDeviceAway();

    EXPECT_EQ(controller.configExtendedPowerManagment(), 0);

    EXPECT_EQ(errors(), Lines{"Could not send : 06 3B: Extended Power Management Configuration"});
}

} // namespace
