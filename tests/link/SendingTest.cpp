// Writing frames, and reading plain bytes.

#include <ubxIO.h>

#include <array>
#include <cerrno>
#include <string>
#include <vector>

#include "Calls.h"
#include "LinkTest.h"

namespace
{

using namespace linktest;
using testsupport::bytes;
using testsupport::hex;

using Calls = std::vector<std::string>;

class Sending : public LinkTest
{
protected:
    Sending()
    {
        port();
        calls::clearLog();
    }

    int send(UBXMessage& message)
    {
        int status = 4711;
        errors = errorsOf([&] { status = port().SendMessage(&message); });
        return status;
    }

    const Bytes payload = bytes("E8 03 01 00 01 00");
    UBXMessage rate{0x0608, 6, payload.data()};
    std::string errors;
};

TEST_F(Sending, PutsTheWholeFrameOnTheLine)
{
    EXPECT_EQ(send(rate), 0);

    EXPECT_EQ(hex(line.written(14)), "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39");
    EXPECT_EQ(errors, "");
}

TEST_F(Sending, TakesOneWriteAndThenWaitsForIt)
{
    send(rate);

    EXPECT_EQ(calls::log(), (Calls{"write 14", "fsync"}));
}

TEST_F(Sending, SucceedsThoughTheLineCannotWait)
{
    calls::refuse({0, 0, 0, EINVAL, {}});

    EXPECT_EQ(send(rate), 0);
}

TEST_F(Sending, KeepsTheOrderOfSeveralFrames)
{
    UBXMessage poll(0x0A04, 0, nullptr);

    EXPECT_EQ(send(poll), 0);
    EXPECT_EQ(send(rate), 0);
    EXPECT_EQ(send(poll), 0);

    EXPECT_EQ(hex(line.written(30)), "B5 62 0A 04 00 00 0E 34 "
                                     "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39 "
                                     "B5 62 0A 04 00 00 0E 34");
}

TEST_F(Sending, DoesNotChangeTheBytesOnTheirWay)
{
    Bytes everyByte(256);
    for (std::size_t i = 0; i < everyByte.size(); ++i)
        everyByte[i] = static_cast<std::uint8_t>(i);
    UBXMessage message(0x0104, everyByte.size(), everyByte.data());

    EXPECT_EQ(send(message), 0);

    const Bytes arrived = line.written(264);
    ASSERT_EQ(arrived.size(), 264U);
    EXPECT_EQ(Bytes(arrived.begin() + 6, arrived.begin() + 262), everyByte);
}

TEST_F(Sending, LeavesTheMessageToTheCaller)
{
    send(rate);

    EXPECT_EQ(hex(Bytes(rate.getPacketData(), rate.getPacketData() + 14)), "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39");
}

TEST_F(Sending, FailsWhenOnlyAPartIsTakenAndDoesNotTryAgain)
{
    calls::refuse({0, 0, 0, 0, 13});

    EXPECT_EQ(send(rate), -1);

    EXPECT_EQ(hex(line.written(13)), "B5 62 06 08 06 00 E8 03 01 00 01 00 01");
    EXPECT_EQ(calls::log(), (Calls{"write 14", "fsync"}));
    EXPECT_EQ(errors, "");
}

TEST_F(Sending, FailsWhenTheLineIsAlmostFull)
{
    UBXMessage longest(0x0604, 65535, nullptr);

    EXPECT_EQ(send(longest), -1);

    const std::size_t arrived = line.written(1).size();
    EXPECT_GT(arrived, 0U);
    EXPECT_LT(arrived, 65543U);
}

TEST_F(Sending, FailsWhenTheLineTakesNothing)
{
    calls::refuse({0, 0, EAGAIN, 0, {}});
    EXPECT_EQ(send(rate), -1);

    calls::refuse({0, 0, EINTR, 0, {}});
    EXPECT_EQ(send(rate), -1);

    EXPECT_EQ(calls::log(), (Calls{"write 14", "fsync", "write 14", "fsync"}));
    EXPECT_EQ(errors, "");
}

TEST_F(Sending, FailsWhenTheLineHasHungUp)
{
    line.hangUp();

    EXPECT_EQ(send(rate), -1);

    EXPECT_EQ(errors, "");
}

TEST_F(Sending, WorksAgainAfterAFailure)
{
    calls::refuse({0, 0, EIO, 0, {}});
    EXPECT_EQ(send(rate), -1);
    calls::refuse({});

    EXPECT_EQ(send(rate), 0);
    EXPECT_EQ(hex(line.written(14)), "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39");
}

class Reading : public LinkTest
{
protected:
    std::array<unsigned char, 16> buffer{};
};

TEST_F(Reading, GivesWhatHasArrived)
{
    port();
    line.say(bytes("24 47 4E B5"));

    EXPECT_EQ(port().ReadFromUART(buffer.data(), 16), 4);

    EXPECT_EQ(hex(Bytes(buffer.begin(), buffer.begin() + 5)), "24 47 4E B5 00");
}

TEST_F(Reading, GivesNoMoreThanThereIsRoomFor)
{
    port();
    line.say(bytes("01 02 03 04 05"));

    EXPECT_EQ(port().ReadFromUART(buffer.data(), 3), 3);
    EXPECT_EQ(buffer[3], 0);
    EXPECT_EQ(port().ReadFromUART(buffer.data(), 3), 2);
    EXPECT_EQ(hex(Bytes(buffer.begin(), buffer.begin() + 3)), "04 05 03");
}

TEST_F(Reading, GivesNothingAndDoesNotWaitWhenNothingHasArrived)
{
    EXPECT_EQ(port().ReadFromUART(buffer.data(), 16), 0);
}

TEST_F(Reading, TakesOneReadEach)
{
    port();
    line.say(bytes("01 02 03"));

    port().ReadFromUART(buffer.data(), 1);

    EXPECT_EQ(calls::reads(), 1U);
}

TEST_F(Reading, GivesNothingIntoNoRoom)
{
    port();
    line.say(bytes("01 02 03"));

    EXPECT_EQ(port().ReadFromUART(buffer.data(), 0), 0);
    EXPECT_EQ(port().ReadFromUART(buffer.data(), -1), 0);
    EXPECT_EQ(port().ReadFromUART(buffer.data(), 16), 3);
}

TEST_F(Reading, GivesNothingFromALineThatHasHungUp)
{
    port();
    line.hangUp();

    EXPECT_EQ(port().ReadFromUART(buffer.data(), 16), 0);
}

} // namespace
