// configuraProtocolsDefault(): the port in use puts out UBX and NMEA.

#include <gtest/gtest.h>
#include <unistd.h>

#include "CapturedOutput.h"
#include "FacadeTest.h"
#include "sandbox/Sandbox.h"

using namespace testsupport;

namespace
{

/// With a facade that has been constructed already.
class PortSetUp : public FacadeTest
{
protected:
    PortSetUp()
    {
        receiver();
        controller = facade();
        takeFrames();
    }

    std::unique_ptr<ubxController> controller;
};

TEST_F(PortSetUp, WritesThePortBackWithUbxAndNmeaOut)
{
    receiver().answerWith(0x0600, bytes("01 00 00 00 C0 08 00 00 80 25 00 00 07 00 21 01 02 00 00 00"), 1);

    EXPECT_EQ(controller->configuraProtocolsDefault(), 0);

    expectFrames({"B5 62 06 00 00 00 06 18",
                  "B5 62 06 00 14 00 01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 01 02 00 00 00 95 C2"});
}

TEST_F(PortSetUp, SendsAReplyWhoseMaskIsRightAlreadyBackUnchanged)
{
    receiver().answerWith(0x0600, bytes("01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 00 00 00 00 00"), 1);

    EXPECT_EQ(controller->configuraProtocolsDefault(), 0);

    expectFrames({"B5 62 06 00 00 00 06 18",
                  "B5 62 06 00 14 00 01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 00 00 00 00 00 92 B5"});
}

TEST_F(PortSetUp, SendsAShortReplyBackAtItsOwnLength)
{
    struct Exchange
    {
        const char* reply;
        const char* writtenBack;
    };
    for (const Exchange& exchange : {
             Exchange{"", "B5 62 06 00 00 00 06 18"},
             Exchange{"01", "B5 62 06 00 01 00 01 08 22"},
             Exchange{"01 00 00 00 C0 08 00 00 80 25 00 00 07 00",
                      "B5 62 06 00 0E 00 01 00 00 00 C0 08 00 00 80 25 00 00 07 00 89 E9"},
             Exchange{"01 00 00 00 C0 08 00 00 80 25 00 00 07 00 07",
                      "B5 62 06 00 0F 00 01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 8D 86"},
         }) {
        receiver().answerWith(0x0600, bytes(exchange.reply), 1);

        EXPECT_EQ(controller->configuraProtocolsDefault(), 0);

        expectFrames({kPortPoll, exchange.writtenBack});
    }
}

TEST_F(PortSetUp, SendsALongReplyBackWhole)
{
    receiver().answerWith(0x0600, bytes("01 00 00 00 C0 08 00 00 80 25 00 00 07 00 07 00 00 00 00 00 AA BB CC DD"), 1);

    EXPECT_EQ(controller->configuraProtocolsDefault(), 0);

    expectFrames({kPortPoll, "B5 62 06 00 18 00 01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 00 00 00 00 00 AA BB CC "
                             "DD A4 B3"});
}

TEST_F(PortSetUp, AwaitsNoAcknowledgement)
{
    receiver().answerRaw(0x0600,
                         bytes("B5 62 06 00 14 00 01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 00 00 00 00 00 "
                               "92 B5 0D 0A"),
                         1);
    receiver().ignore(0x0600);

    EXPECT_EQ(controller->configuraProtocolsDefault(), 0);
    EXPECT_EQ(facadeErrors(), Lines{});
}

TEST_F(PortSetUp, WithoutAReplyReturns4AndLogsThatItCouldNotSend)
{
    EXPECT_EQ(whenSilent([this] { return controller->configuraProtocolsDefault(); }), 4);

    EXPECT_EQ(facadeErrors(), (Lines{"Could not send : 06 00: Port Configuration for UART/USB/SPI/DCC Port"}));
    expectFrames({kPortPoll});
}

TEST_F(PortSetUp, WithoutADeviceReturns8AndLogsThatItDidNotReceive)
{
    sandbox::removeGps();
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(controller->configuraProtocolsDefault(), 8);

    EXPECT_EQ(facadeErrors(), (Lines{"Did not receive : 06 00: Port Configuration for UART/USB/SPI/DCC Port"}));
}

TEST_F(PortSetUp, KeepsTheDeviceOpenOnlyForItsExchange)
{
    const std::size_t before = openDescriptors();

    controller->configuraProtocolsDefault();
    whenSilent([this] { return controller->configuraProtocolsDefault(); });

    EXPECT_EQ(openDescriptors(), before);
}

} // namespace
