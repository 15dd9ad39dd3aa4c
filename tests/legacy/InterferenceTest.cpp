#include "NeoM8tTest.h"

namespace
{

using testsupport::bytes;
using testsupport::frame;
using testsupport::kPollInterference;
using testsupport::Lines;

/// The receiver holds a value of its own in each byte, so that a wrong one shows.
class Interference : public testsupport::NeoM8tTest
{
protected:
    void answer(const char* reply)
    {
        receiver().clearFaults();
        receiver().answerWith(0x0639, bytes(reply));
    }
};
class AntennaType : public Interference
{};
class JammingDetection : public Interference
{};

TEST_F(AntennaType, ActiveIsWrittenIntoWhatWasPolled)
{
    answer("11 22 33 44 55 66 77 88");

    EXPECT_EQ(controller.setAntennaType("active"), 0);

    expectFrames({kPollInterference, "B5 62 06 39 08 00 11 22 33 44 1E 23 77 88 31 5E"});
}

TEST_F(AntennaType, PassiveIsWrittenIntoWhatWasPolled)
{
    answer("11 22 33 44 55 66 77 88");

    EXPECT_EQ(controller.setAntennaType("passive"), 0);

    expectFrames({kPollInterference, "B5 62 06 39 08 00 11 22 33 44 1E 13 77 88 21 2E"});
}

TEST_F(AntennaType, OfAnotherWordIsRefusedAndNothingIsSent)
{
    using namespace std::string_literals;

    for (const std::string& word : {""s, "unknown"s, "Active"s, "ACTIVE"s, "active "s, " passive"s, "passiv"s,
                                    "active\0"s, std::string(100000, 'a')}) {
        EXPECT_EQ(controller.setAntennaType(word), 1) << word.substr(0, 20);
    }

    expectNoFrames();
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(AntennaType, IsNotWrittenToASilentReceiver)
{
    EXPECT_EQ(whenSilent([&] { return controller.setAntennaType("active"); }), 4);

    expectFrames({kPollInterference});
    EXPECT_EQ(errors(), Lines{"Did not receive : 06 39: Jamming/Interference Monitor configuration"});
}

TEST_F(AntennaType, WithoutADeviceIsThePollThatCouldNotBeSent)
{
    takeDeviceAway();

    EXPECT_EQ(controller.setAntennaType("passive"), 8);

    EXPECT_EQ(errors(), Lines{"Could not send : 06 39: Jamming/Interference Monitor configuration"});
}

TEST_F(AntennaType, NoAcknowledgementIsAwaited)
{
    answer("11 22 33 44 55 66 77 88");
    receiver().keepValue(0x0639);

    EXPECT_EQ(controller.setAntennaType("active"), 0);
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(AntennaType, OfAShortReplyIsSentBackAtItsOwnLength)
{
    const struct
    {
        const char* reply;
        const char* sentBack;
    } cases[] = {
        {"", ""},
        {"11", "11"},
        {"11 22 33 44", "11 22 33 44"},
        {"11 22 33 44 55", "11 22 33 44 1E"},
        {"11 22 33 44 55 66", "11 22 33 44 1E 23"},
        {"11 22 33 44 55 66 77", "11 22 33 44 1E 23 77"},
        {"11 22 33 44 55 66 77 88 99 AA", "11 22 33 44 1E 23 77 88 99 AA"},
    };
    for (const auto& each : cases) {
        answer(each.reply);

        EXPECT_EQ(controller.setAntennaType("active"), 0);

        expectFrames({kPollInterference, frame("06 39", each.sentBack)});
    }
}

TEST_F(AntennaType, OfSetting0Or3IsUnknown)
{
    for (const char* reply : {"F3 AC 62 2D 1E 03 00 00", "F3 AC 62 2D 1E 33 00 00"}) {
        answer(reply);
        std::string type = "active";

        EXPECT_EQ(controller.getAntennaType(type), 0);

        EXPECT_EQ(type, "unknown") << reply;
    }
}

TEST_F(AntennaType, IsReadFromBits4And5OfByte5)
{
    const struct
    {
        const char* reply;
        const char* word;
    } cases[] = {
        {"F3 AC 62 2D 1E 03 00 00", "unknown"}, {"F3 AC 62 2D 1E 13 00 00", "passive"},
        {"F3 AC 62 2D 1E 23 00 00", "active"},  {"F3 AC 62 2D 1E 33 00 00", "unknown"},
        {"00 00 00 00 00 10 00 00", "passive"}, {"FF FF FF FF FF DF FF FF", "passive"},
        {"FF FF FF FF FF EF FF FF", "active"},  {"FF FF FF FF FF CF FF FF", "unknown"},
    };
    for (const auto& each : cases) {
        answer(each.reply);
        std::string type = "as it was";

        EXPECT_EQ(controller.getAntennaType(type), 0);

        EXPECT_EQ(type, each.word) << each.reply;
    }
}

TEST_F(JammingDetection, OnLeavesByte1AsPolledAndSetsByte4ToAD)
{
    answer("11 22 33 44 55 66 77 88");

    EXPECT_EQ(controller.setJammingDetection(true), 0);

    expectFrames({kPollInterference, "B5 62 06 39 08 00 F3 22 AC 62 AD 66 77 88 7C DF"});
}

TEST_F(JammingDetection, OffLeavesByte1AsPolledAndSetsByte4To2D)
{
    answer("11 22 33 44 55 66 77 88");

    EXPECT_EQ(controller.setJammingDetection(false), 0);

    expectFrames({kPollInterference, "B5 62 06 39 08 00 F3 22 AC 62 2D 66 77 88 FC DF"});
}

TEST_F(JammingDetection, OfAShortReplyIsSentBackAtItsOwnLength)
{
    const struct
    {
        const char* reply;
        const char* sentBack;
    } cases[] = {
        {"", ""},
        {"11", "F3"},
        {"11 22", "F3 22"},
        {"11 22 33", "F3 22 AC"},
        {"11 22 33 44", "F3 22 AC 62"},
        {"11 22 33 44 55", "F3 22 AC 62 AD"},
        {"11 22 33 44 55 66 77", "F3 22 AC 62 AD 66 77"},
        {"11 22 33 44 55 66 77 88 99 AA", "F3 22 AC 62 AD 66 77 88 99 AA"},
    };
    for (const auto& each : cases) {
        answer(each.reply);

        EXPECT_EQ(controller.setJammingDetection(true), 0);

        expectFrames({kPollInterference, frame("06 39", each.sentBack)});
    }
}

TEST_F(JammingDetection, IsNotWrittenToASilentReceiver)
{
    EXPECT_EQ(whenSilent([&] { return controller.setJammingDetection(true); }), 4);

    expectFrames({kPollInterference});
    EXPECT_EQ(errors(), Lines{"Did not receive : 06 39: Jamming/Interference Monitor configuration"});
}

TEST_F(JammingDetection, WithoutADeviceIsThePollThatCouldNotBeSent)
{
    takeDeviceAway();

    EXPECT_EQ(controller.setJammingDetection(false), 8);

    EXPECT_EQ(errors(), Lines{"Could not send : 06 39: Jamming/Interference Monitor configuration"});
}

TEST_F(JammingDetection, IsReadFromBit7OfByte4)
{
    bool on = false;
    answer("00 00 00 00 80 00 00 00");
    EXPECT_EQ(controller.getJammingDetection(on), 0);
    EXPECT_TRUE(on);

    answer("FF FF FF FF 7F FF FF FF");
    EXPECT_EQ(controller.getJammingDetection(on), 0);
    EXPECT_FALSE(on);
}

TEST_F(JammingDetection, ThatWasSetIsReadBackAsItWasSet)
{
    bool on = false;
    EXPECT_EQ(controller.setJammingDetection(true), 0);
    EXPECT_EQ(controller.getJammingDetection(on), 0);
    EXPECT_TRUE(on);

    EXPECT_EQ(controller.setJammingDetection(false), 0);
    EXPECT_EQ(controller.getJammingDetection(on), 0);
    EXPECT_FALSE(on);
}

} // namespace
