#include "FlushLog.h"
#include "NeoM8tTest.h"

namespace
{

using testsupport::bytes;
using testsupport::frame;
using testsupport::frameOf;
using testsupport::kPollPort;
using testsupport::Lines;

class OutputRates : public testsupport::NeoM8tTest
{};
class Protocols : public testsupport::NeoM8tTest
{
protected:
    void answer(const char* reply)
    {
        receiver().clearFaults();
        receiver().answerWith(0x0600, bytes(reply));
    }
};

TEST_F(OutputRates, MessageOfARateNamesClassIdAndRate)
{
    EXPECT_EQ(frameOf(controller.createMessageRateByClassIDMessage(0x0135, 1)), "B5 62 06 01 03 00 01 35 01 41 AD");
    EXPECT_EQ(frameOf(controller.createMessageRateByClassIDMessage(0xF008, 255)), frame("06 01", "F0 08 FF"));
    EXPECT_EQ(frameOf(controller.createMessageRateByClassIDMessage(0xFFFE, 0)), frame("06 01", "FF FE 00"));
}

TEST_F(OutputRates, UbxPollingIsTheSatelliteMessage)
{
    EXPECT_EQ(controller.configureUbxPolling(1), 0);
    EXPECT_EQ(controller.configureUbxPolling(255), 0);

    expectFrames({"B5 62 06 01 03 00 01 35 01 41 AD", "B5 62 06 01 03 00 01 35 FF 3F AB"});
}

TEST_F(OutputRates, NmeaPollingIsSevenSentencesInOrder)
{
    EXPECT_EQ(controller.configureNmeaPolling(1), 0);

    expectFrames({
        "B5 62 06 01 03 00 F0 00 01 FB 10", // GGA
        "B5 62 06 01 03 00 F0 01 01 FC 12", // GLL
        "B5 62 06 01 03 00 F0 02 01 FD 14", // GSA
        "B5 62 06 01 03 00 F0 03 01 FE 16", // GSV
        "B5 62 06 01 03 00 F0 04 01 FF 18", // RMC
        "B5 62 06 01 03 00 F0 05 01 00 1A", // VTG
        "B5 62 06 01 03 00 F0 08 01 03 20", // ZDA
    });
}

TEST_F(OutputRates, PartialNmeaPollingSwitchesSatelliteSentencesOffAndThreeOthersOn)
{
    EXPECT_EQ(controller.configurNmeaPollingPartial(5), 0);

    expectFrames({
        "B5 62 06 01 03 00 F0 02 00 FC 13", // GSA off
        "B5 62 06 01 03 00 F0 03 00 FD 15", // GSV off
        "B5 62 06 01 03 00 F0 00 05 FF 14", // GGA
        "B5 62 06 01 03 00 F0 01 05 00 16", // GLL
        "B5 62 06 01 03 00 F0 08 05 07 24", // ZDA
    });
}

TEST_F(OutputRates, WithoutADeviceReturnSuccessAndLogEachMessage)
{
    takeDeviceAway();

    EXPECT_EQ(controller.configureUbxPolling(1), 0);
    EXPECT_EQ(controller.configureNmeaPolling(1), 0);
    EXPECT_EQ(controller.configurNmeaPollingPartial(1), 0);

    EXPECT_EQ(errors(), Lines(13, "Could not send : 06 01: Set Message Rate"));
}

TEST_F(Protocols, PolledPortIsWrittenBackWithUbxAndNmeaOutput)
{
    answer("01 00 00 00 C0 08 00 00 80 25 00 00 07 00 01 00 00 00 00 00");

    EXPECT_EQ(controller.configureProtocols(), 0);

    expectFrames({kPollPort, "B5 62 06 00 14 00 01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 00 00 00 00 00 92 B5"});
}

TEST_F(Protocols, OtherBytesGoBackAsPolled)
{
    answer("11 22 33 44 55 66 77 88 99 AA BB CC DD EE FF F1 F2 F3 F4 F5");

    EXPECT_EQ(controller.configureProtocols(), 0);

    expectFrames({kPollPort, frame("06 00", "11 22 33 44 55 66 77 88 99 AA BB CC DD EE 03 F1 F2 F3 F4 F5")});
}

TEST_F(Protocols, PortThatAlreadyHasBothGoesBackUnchanged)
{
    answer("01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 00 00 00 00 00");

    EXPECT_EQ(controller.configureProtocols(), 0);

    expectFrames({kPollPort, "B5 62 06 00 14 00 01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 00 00 00 00 00 92 B5"});
}

TEST_F(Protocols, ShortReplyGoesBackAtItsOwnLength)
{
    for (const char* reply : {"", "01", "01 00 00 00 C0 08 00 00 80 25 00 00 07 00"}) {
        answer(reply);

        EXPECT_EQ(controller.configureProtocols(), 0);

        expectFrames({kPollPort, frame("06 00", reply)});
    }
    answer("01 00 00 00 C0 08 00 00 80 25 00 00 07 00 01");

    EXPECT_EQ(controller.configureProtocols(), 0);

    expectFrames({kPollPort, frame("06 00", "01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03")});
}

TEST_F(Protocols, ArePolledAndWrittenBackThroughOneOpenPort)
{
    flushlog::clear();

    controller.configureProtocols();

    EXPECT_EQ(flushlog::asked().size(), 1U);
}

TEST_F(Protocols, AreNotWrittenToASilentReceiver)
{
    EXPECT_EQ(whenSilent([&] { return controller.configureProtocols(); }), 4);

    expectFrames({kPollPort});
    EXPECT_EQ(errors(), Lines{"Did not receive : 06 00: Port Configuration for UART/USB/SPI/DCC Port"});
}

TEST_F(Protocols, WithoutADeviceAreThePollThatCouldNotBeSent)
{
    takeDeviceAway();

    EXPECT_EQ(controller.configureProtocols(), 8);

    EXPECT_EQ(errors(), Lines{"Could not send : 06 00: Port Configuration for UART/USB/SPI/DCC Port"});
}

} // namespace
