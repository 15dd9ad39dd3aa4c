#pragma once

#include <string>
#include <vector>

#include <ubxController_NEOM8T.h>

#include "Frames.h"
#include "ReceiverTest.h"
#include "sandbox/Sandbox.h"

namespace testsupport
{

// Polls as the receiver gets them.
inline constexpr const char* kPollPort = "B5 62 06 00 00 00 06 18";
inline constexpr const char* kPollRate = "B5 62 06 08 00 00 0E 30";
inline constexpr const char* kPollPowerMode = "B5 62 06 11 00 00 17 4B";
inline constexpr const char* kPollExpertNavigation = "B5 62 06 23 00 00 29 81";
inline constexpr const char* kPollFirstTimePulse = "B5 62 06 31 00 00 37 AB";
inline constexpr const char* kPollSecondTimePulse = "B5 62 06 31 01 00 01 39 E6";
inline constexpr const char* kPollInterference = "B5 62 06 39 00 00 3F C3";
inline constexpr const char* kPollTimeMode = "B5 62 06 3D 00 00 43 CF";
inline constexpr const char* kPollConstellations = "B5 62 06 3E 00 00 44 D2";
inline constexpr const char* kPollPosition = "B5 62 01 02 00 00 03 0A";
inline constexpr const char* kPollSolution = "B5 62 01 07 00 00 08 19";
inline constexpr const char* kPollSatellites = "B5 62 01 35 00 00 36 A3";
inline constexpr const char* kPollVersion = "B5 62 0A 04 00 00 0E 34";

/// The whole frame of a message, as hexadecimal text.
inline std::string frameOf(const UBXMessage& message)
{
    const unsigned char* const data = message.getPacketData();
    return hex({data, data + message.getPacketLength()});
}

/// A test of the NEO-M8T's controller, with its receiver. The time pulse settings, which a process keeps, begin anew.
class NeoM8tTest : public ReceiverTest
{
protected:
    NeoM8tTest()
    {
        receiver();
        controller.setAntennaDelay(0);
        controller.configTimePulse(1, 0, true);
        takeFrames();
    }

    /// What the controller's error log holds, without time stamps.
    static std::vector<std::string> errors() { return log("/var/log/rxtool-neom8t-errors.log"); }

    static void takeDeviceAway() { sandbox::removeGps(); }

    ubxController_NEOM8T controller;
};

using Lines = std::vector<std::string>;

} // namespace testsupport
