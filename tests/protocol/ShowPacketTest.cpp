#include <UBXMessage.h>
#include <UBXMessageList.h>

#include <iomanip>
#include <iostream>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "Bytes.h"
#include "CapturedOutput.h"

namespace
{

using testsupport::bytes;
using testsupport::CapturedOutput;

/// Leaves the stream as every program begins with it.
class ShowPacket : public testing::Test
{
protected:
    ~ShowPacket() override { std::cout << std::dec << std::nouppercase << std::setfill(' '); }
};

std::string shown(const UBXMessage& message)
{
    const CapturedOutput output(STDOUT_FILENO);
    message.showPacket();
    return output.text();
}

TEST_F(ShowPacket, WritesTheNameAndEveryFrameByte)
{
    EXPECT_EQ(shown(UBXMessage(0x0A04, 0, nullptr)), "Poll Receiver/Software Version B5 62 0A 04 00 00 0E 34 \n");
}

TEST_F(ShowPacket, WritesTwoUpperCaseDigitsPerByte)
{
    const testsupport::Bytes payload = bytes("E8 03 01 00 01 00");

    EXPECT_EQ(shown(UBXMessage(0x0608, 6, payload.data())),
              "Navigation/Measurement Rate Settings B5 62 06 08 06 00 E8 03 01 00 01 00 01 39 \n");
}

TEST_F(ShowPacket, SaysSoOfAnUnknownMessage)
{
    EXPECT_EQ(shown(UBXMessage(0x0671, 0, nullptr)), "Unknown message type B5 62 06 71 00 00 77 6B \n");
}

TEST_F(ShowPacket, WritesTheSameWhateverTheStreamWasSetTo)
{
    std::cout << std::oct << std::showbase << std::setfill('*') << std::setw(0);

    const std::string line = shown(UBXMessage(0x0A04, 0, nullptr));
    std::cout << std::noshowbase;

    EXPECT_EQ(line, "Poll Receiver/Software Version B5 62 0A 04 00 00 0E 34 \n");
}

TEST_F(ShowPacket, SetsTheStreamBackToDecimalAndLowerCase)
{
    std::cout << std::hex << std::uppercase;
    const UBXMessage message(0x0A04, 0, nullptr);
    const CapturedOutput output(STDOUT_FILENO);

    message.showPacket();
    std::cout << 255 << ' ' << std::hex << 255;

    EXPECT_EQ(output.text(), "Poll Receiver/Software Version B5 62 0A 04 00 00 0E 34 \n255 ff");
}

TEST_F(ShowPacket, IsDoneForAWholeListFromNewestToOldest)
{
    UBXMessageList list;
    list.AddMessage(new UBXMessage(0x0102, 0, nullptr));
    list.AddMessage(new UBXMessage(0x0107, 0, nullptr));
    list.AddMessage(new UBXMessage(0x063D, 0, nullptr));
    const CapturedOutput output(STDOUT_FILENO);

    list.DumpMessages();

    EXPECT_EQ(output.text(), "Time Mode Settings 2 B5 62 06 3D 00 00 43 CF \n"
                             "Navigation Position Velocity Time Solution B5 62 01 07 00 00 08 19 \n"
                             "Geodetic Position Solution B5 62 01 02 00 00 03 0A \n");
    EXPECT_FALSE(list.isEmpty());
}

TEST_F(ShowPacket, PassesOverANullPointerInAList)
{
    UBXMessageList list;
    list.AddMessage(nullptr);
    list.AddMessage(new UBXMessage(0x0107, 0, nullptr));
    list.AddMessage(nullptr);
    const CapturedOutput output(STDOUT_FILENO);

    list.DumpMessages();

    EXPECT_EQ(output.text(), "Navigation Position Velocity Time Solution B5 62 01 07 00 00 08 19 \n");
}

TEST_F(ShowPacket, WritesNothingForAnEmptyList)
{
    UBXMessageList list;
    const CapturedOutput output(STDOUT_FILENO);

    list.DumpMessages();

    EXPECT_EQ(output.text(), "");
}

} // namespace
