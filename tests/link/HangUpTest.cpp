// A device that goes away in the middle of an exchange.

#include <ubxIO.h>

#include "Calls.h"
#include "Files.h"
#include "HeapBlocks.h"
#include "LinkTest.h"

namespace
{

using namespace linktest;
using testsupport::bytes;

constexpr const char* kItem = "B5 62 06 8B 09 00 01 00 00 00 A3 00 11 20 28 97 08";
constexpr unsigned short kItems = 0x068B;

class HangUp : public LinkTest
{
protected:
    HangUp() { port(); }
};

TEST_F(HangUp, WhileWaitingEndsTheWaitAtItsLimit)
{
    const Wait wait = receive(port(), kItems, 5, [&] {
        line.rounds(3);
        line.hangUp();
        clock.pass(4s);
        line.rounds(3);
        clock.pass(1s);
    });

    EXPECT_EQ(wait.frame, "");
    EXPECT_EQ(wait.errors, kTimedOut);
}

TEST_F(HangUp, InTheMiddleOfAReplyGivesNothing)
{
    line.say(bytes("B5 62 06 8B 09 00 01 00"));

    const Wait wait = receive(port(), kItems, 5, [&] {
        line.untilRead();
        line.hangUp();
        line.rounds(3);
        clock.pass(5s);
    });

    EXPECT_EQ(wait.frame, "");
    EXPECT_EQ(wait.errors, kTimedOut);
}

TEST_F(HangUp, IsNotMendedForThePortThatWasOpen)
{
    UBXMessage poll(0x0A04, 0, nullptr);
    line.hangUp();
    line.comeBack();

    EXPECT_EQ(port().SendMessage(&poll), -1);
    const Wait wait = receive(port(), kItems, 5, [&] { letTimePass(); });
    EXPECT_EQ(wait.frame, "");
}

TEST_F(HangUp, IsOverForTheNextPortWhenTheDeviceIsBack)
{
    UBXMessage poll(0x0A04, 0, nullptr);
    line.hangUp();
    line.comeBack();
    reopen();

    EXPECT_EQ(port().SendMessage(&poll), 0);
    EXPECT_EQ(testsupport::hex(line.written(8)), "B5 62 0A 04 00 00 0E 34");
    line.say(bytes(kItem) + bytes("0D"));
    EXPECT_EQ(receive(port(), kItems, 5).frame, kItem);
}

TEST_F(HangUp, LeavesNeitherMemoryNorDescriptorsBehind)
{
    const auto hangUpInTheMiddle = [&] {
        ubxIO another;
        line.opened();
        receive(another, kItems, 5, [&] {
            line.say(bytes("B5 62 04 04 01 00 41 4A 68 B5 62 06 8B"));
            line.untilRead();
            line.hangUp();
            clock.pass(5s);
        });
        line.comeBack();
    };
    hangUpInTheMiddle();
    const long blocks = testsupport::heapBlocks();
    const std::size_t descriptors = testsupport::openDescriptors();

    hangUpInTheMiddle();

    EXPECT_EQ(testsupport::heapBlocks(), blocks);
    EXPECT_EQ(testsupport::openDescriptors(), descriptors);
}

} // namespace
