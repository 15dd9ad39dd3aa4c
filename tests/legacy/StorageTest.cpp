#include "NeoM8tTest.h"

namespace
{

using testsupport::Lines;

constexpr const char* kSave = "B5 62 06 09 0D 00 "
                              "00 00 00 00 1F 1E 00 00 00 00 00 00 13 6C D3";
constexpr const char* kLoad = "B5 62 06 09 0D 00 "
                              "00 00 00 00 00 00 00 00 1F 1E 00 00 13 6C DF";
constexpr const char* kClear = "B5 62 06 09 0D 00 "
                               "1F 1E 00 00 00 00 00 00 00 00 00 00 13 6C C7";

class Storage : public testsupport::NeoM8tTest
{};

TEST_F(Storage, SaveWritesAllButTheSensorsSettingsToAllMemories)
{
    EXPECT_EQ(controller.save(), 0);

    expectFrames({kSave});
}

TEST_F(Storage, LoadReadsThemBack)
{
    EXPECT_EQ(controller.load(), 0);

    expectFrames({kLoad});
}

TEST_F(Storage, ResetUbloxDefaultsClearsTheMemoriesAndThenSaves)
{
    EXPECT_EQ(controller.resetUbloxDefaults(), 0);

    expectFrames({kClear, kSave});
}

TEST_F(Storage, NoAcknowledgementIsAwaited)
{
    receiver().refuse(0x0609);

    EXPECT_EQ(controller.save(), 0);
    EXPECT_EQ(controller.load(), 0);

    expectFrames({kSave, kLoad});
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(Storage, CommandWithoutADeviceReturnsSuccessAndLogsOneLine)
{
    takeDeviceAway();

    EXPECT_EQ(controller.save(), 0);

    EXPECT_EQ(errors(), Lines{"Could not send : 06 09: Clear, Save and Load configurations"});
}

TEST_F(Storage, EachOfTwoCommandsWithoutADeviceLogsALine)
{
    takeDeviceAway();

    EXPECT_EQ(controller.resetUbloxDefaults(), 0);

    EXPECT_EQ(errors(), (Lines{"Could not send : 06 09: Clear, Save and Load configurations",
                               "Could not send : 06 09: Clear, Save and Load configurations"}));
}

TEST_F(Storage, WhatSendUbxMessageIsGivenGoesOutAsItIs)
{
    const unsigned char payload[] = {0x01, 0x02, 0x03};

    EXPECT_EQ(controller.sendUBXMessage(UBXMessage(UBX_CFG_MSG, sizeof payload, payload)), 0U);

    expectFrames({"B5 62 06 01 03 00 01 02 03 10 49"});
}

} // namespace
