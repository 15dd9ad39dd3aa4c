// What the time pulse settings are before anybody has changed them: a program of its own, since a process keeps them.

#include <ubxController_NEOM8T.h>

#include "ReceiverTest.h"

namespace
{

class TimePulseBeginning : public testsupport::ReceiverTest
{};

TEST_F(TimePulseBeginning, HasIndexFlagsAndLengthsOfAnActivePulsePerSecond)
{
    receiver();

    EXPECT_EQ(ubxController_NEOM8T().setAntennaDelay(0), 0);

    expectFrames({"B5 62 06 31 20 00 00 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 98 3E",
                  "B5 62 06 31 00 00 37 AB"});
}

TEST_F(TimePulseBeginning, HasNoCableDelay)
{
    receiver();

    EXPECT_EQ(ubxController_NEOM8T().configTimePulse(1, 1, true), 0);

    expectFrames({"B5 62 06 31 20 00 01 01 00 00 00 00 00 00 40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 00 00 00 00 F7 00 00 00 99 5E"});
}

} // namespace
