// What every query has in common. How each decodes its reply is tested where its setting is.

#include <functional>
#include <ostream>

#include "Files.h"
#include "NeoM8tTest.h"

namespace
{

using testsupport::bytes;
using testsupport::Lines;
using testsupport::payload;

/// The variables of a caller, with what it had in them before.
struct Outputs
{
    int delay = 1234;
    std::string text = "as it was";
    unsigned short mask = 4321;
    bool flag = true;
    unsigned char count = 99;
    unsigned char second = 98;
    signed char level = 97;

    bool operator==(const Outputs& o) const
    {
        return delay == o.delay && text == o.text && mask == o.mask && flag == o.flag && count == o.count &&
               second == o.second && level == o.level;
    }
};

struct Query
{
    const char* name;
    int (*run)(ubxController_NEOM8T& controller, Outputs& out);
    std::uint16_t classId;
    const char* poll;
    const char* description;
    Outputs afterFailure;
};

std::ostream& operator<<(std::ostream& out, const Query& query)
{
    return out << query.name;
}

Outputs withMask(unsigned short mask)
{
    Outputs outputs;
    outputs.mask = mask;
    return outputs;
}

Outputs withLevel(signed char level)
{
    Outputs outputs;
    outputs.level = level;
    return outputs;
}

const Query kQueries[] = {
    {"AntennaDelay",
     [](auto& c, auto& out) { return c.getAntennaDelay(out.delay); },
     0x0631,
     "B5 62 06 31 00 00 37 AB",
     "06 31: Poll Time Pulse Parameters for Time Pulse 0",
     {}},
    {"AntennaType",
     [](auto& c, auto& out) { return c.getAntennaType(out.text); },
     0x0639,
     "B5 62 06 39 00 00 3F C3",
     "06 39: Jamming/Interference Monitor configuration",
     {}},
    {"GnssSystem", [](auto& c, auto& out) { return c.getGnssSystem(out.mask); }, 0x063E, "B5 62 06 3E 00 00 44 D2",
     "06 3E: GNSS system configuration", withMask(0)},
    {"JammingDetection",
     [](auto& c, auto& out) { return c.getJammingDetection(out.flag); },
     0x0639,
     "B5 62 06 39 00 00 3F C3",
     "06 39: Jamming/Interference Monitor configuration",
     {}},
    {"SurveyMode",
     [](auto& c, auto& out) { return c.getSurveyMode(out.text); },
     0x063D,
     "B5 62 06 3D 00 00 43 CF",
     "06 3D: Time Mode Settings 2",
     {}},
    {"NofSatellitesInNavSol",
     [](auto& c, auto& out) { return c.getNofSatellitesInNavSol(out.count); },
     0x0107,
     "B5 62 01 07 00 00 08 19",
     "01 07: Navigation Position Velocity Time Solution",
     {}},
    {"MinCNo", [](auto& c, auto& out) { return c.getMinCNo(out.level); }, 0x0623, "B5 62 06 23 00 00 29 81",
     "06 23: Navigation Engine Expert Settings", withLevel(0)},
    {"ElevationLimit",
     [](auto& c, auto& out) { return c.getElevationLimit(out.count); },
     0x0624,
     "B5 62 06 24 00 00 2A 84",
     "06 24: Navigation Engine Settings",
     {}},
    {"DynamicModel",
     [](auto& c, auto& out) { return c.getDynamicModel(out.count, out.second); },
     0x0624,
     "B5 62 06 24 00 00 2A 84",
     "06 24: Navigation Engine Settings",
     {}},
    {"TimeReference",
     [](auto& c, auto& out) { return c.getTimeReference(out.text); },
     0x0608,
     "B5 62 06 08 00 00 0E 30",
     "06 08: Navigation/Measurement Rate Settings",
     {}},
    {"RxMode",
     [](auto& c, auto& out) { return c.getRxMode(out.text); },
     0x0611,
     "B5 62 06 11 00 00 17 4B",
     "06 11: RXM Configuration",
     {}},
    {"On",
     [](auto& c, auto& out) { return c.isOn(out.flag); },
     0x0631,
     "B5 62 06 31 01 00 01 39 E6",
     "06 31: Poll Time Pulse Parameters",
     {}},
};

class EveryQuery : public testsupport::NeoM8tTest, public testing::WithParamInterface<Query>
{
protected:
    Outputs out;
};

std::string nameOf(const testing::TestParamInfo<Query>& query)
{
    return query.param.name;
}

INSTANTIATE_TEST_SUITE_P(Of, EveryQuery, testing::ValuesIn(kQueries), nameOf);

TEST_P(EveryQuery, SendsItsPollAndReturnsSuccess)
{
    EXPECT_EQ(GetParam().run(controller, out), 0);

    expectFrames({GetParam().poll});
    EXPECT_EQ(errors(), Lines{});
}

TEST_P(EveryQuery, OnASilentReceiverReturns4LogsOneLineAndLeavesTheOutputAlone)
{
    EXPECT_EQ(whenSilent([&] { return GetParam().run(controller, out); }), 4);

    expectFrames({GetParam().poll});
    EXPECT_EQ(errors(), Lines{std::string("Did not receive : ") + GetParam().description});
    EXPECT_TRUE(out == GetParam().afterFailure);
}

TEST_P(EveryQuery, WithoutADeviceReturns8LogsOneLineAndLeavesTheOutputAlone)
{
    takeDeviceAway();

    EXPECT_EQ(GetParam().run(controller, out), 8);

    EXPECT_EQ(errors(), Lines{std::string("Could not send : ") + GetParam().description});
    EXPECT_TRUE(out == GetParam().afterFailure);
}

TEST_P(EveryQuery, WaitsForFiveSeconds)
{
    int status = 0;

    expectWait(std::chrono::seconds(5), GetParam().classId, [&] { status = GetParam().run(controller, out); });

    EXPECT_EQ(status, 4);
}

TEST_P(EveryQuery, LeavesNoDescriptorOpen)
{
    takeFrames();
    const std::size_t before = testsupport::openDescriptors();

    GetParam().run(controller, out);
    whenSilent([&] { return GetParam().run(controller, out); });
    takeDeviceAway();
    GetParam().run(controller, out);

    EXPECT_EQ(testsupport::openDescriptors(), before);
}

TEST_P(EveryQuery, WorksAgainAfterADeviceThatWasAway)
{
    takeDeviceAway();
    GetParam().run(controller, out);
    receiver().linkAt("/dev/tty_gps");

    EXPECT_EQ(GetParam().run(controller, out), 0);
}

class Decoding : public testsupport::NeoM8tTest
{
protected:
    void answer(std::uint16_t classId, const std::string& reply)
    {
        receiver().clearFaults();
        receiver().answerWith(classId, bytes(reply));
    }
};

TEST_F(Decoding, AntennaDelayOfBytesFFFFIsMinus1)
{
    int delay = 0;
    answer(0x0631, payload(32, {{4, "FF FF"}}));

    EXPECT_EQ(controller.getAntennaDelay(delay), 0);

    EXPECT_EQ(delay, -1);
}

TEST_F(Decoding, AntennaDelayIsBytes4And5WithTheirSign)
{
    int delay = 0;
    answer(0x0631, payload(32, {{0, "FF FF FF FF 34 12 FF FF FF FF"}}));
    EXPECT_EQ(controller.getAntennaDelay(delay), 0);
    EXPECT_EQ(delay, 0x1234);

    answer(0x0631, payload(32, {{4, "00 80"}}));
    EXPECT_EQ(controller.getAntennaDelay(delay), 0);
    EXPECT_EQ(delay, -32768);
}

TEST_F(Decoding, ReceiverIsOnWhenTheSecondTimePulseIsActive)
{
    bool on = false;
    answer(0x0631, payload(32, {{0, "01 01"}, {28, "01"}}));
    EXPECT_EQ(controller.isOn(on), 0);
    EXPECT_TRUE(on);

    answer(0x0631, payload(32, {{0, "01 01"}, {24, "FF FF FF FF FE FF FF FF"}}));
    EXPECT_EQ(controller.isOn(on), 0);
    EXPECT_FALSE(on);
}

TEST_F(Decoding, MinimumSignalIsByte12WithItsSign)
{
    signed char level = 0;
    answer(0x0623, payload(40, {{11, "FF 2A FF"}}));
    EXPECT_EQ(controller.getMinCNo(level), 0);
    EXPECT_EQ(level, 42);

    answer(0x0623, payload(40, {{12, "FE"}}));
    EXPECT_EQ(controller.getMinCNo(level), 0);
    EXPECT_EQ(level, -2);
}

TEST_F(Decoding, ElevationLimitIsByte12)
{
    unsigned char degrees = 0;
    answer(0x0624, payload(36, {{11, "FF C8 FF"}}));

    EXPECT_EQ(controller.getElevationLimit(degrees), 0);

    EXPECT_EQ(degrees, 200);
}

TEST_F(Decoding, DynamicModelAndFixModeAreBytes2And3)
{
    unsigned char model = 0;
    unsigned char fixMode = 0;
    answer(0x0624, payload(36, {{0, "FF FF C8 C9 FF"}}));

    EXPECT_EQ(controller.getDynamicModel(model, fixMode), 0);

    EXPECT_EQ(model, 200);
    EXPECT_EQ(fixMode, 201);
}

TEST_F(Decoding, SatellitesInTheSolutionAreByte23)
{
    unsigned char count = 0;
    answer(0x0107, payload(92, {{22, "FF C8 FF"}}));

    EXPECT_EQ(controller.getNofSatellitesInNavSol(count), 0);

    EXPECT_EQ(count, 200);
}

TEST_F(Decoding, SurveyModeHasAWordForEachTimeMode)
{
    const struct
    {
        const char* timeMode;
        const char* word;
    } cases[] = {{"00", "DYNAMIC"}, {"01", "AUTO"}, {"02", "STATIC"}};
    for (const auto& each : cases) {
        std::string mode = "as it was";
        answer(0x063D, payload(28, {{0, each.timeMode}, {1, "FF FF FF"}}));

        EXPECT_EQ(controller.getSurveyMode(mode), 0);

        EXPECT_EQ(mode, each.word);
    }
}

TEST_F(Decoding, SurveyModeOfTimeMode3LeavesACallersStaticUnchanged)
{
    for (const char* timeMode : {"03", "FF"}) {
        std::string mode = "STATIC";
        answer(0x063D, payload(28, {{0, timeMode}}));

        EXPECT_EQ(controller.getSurveyMode(mode), 0);

        EXPECT_EQ(mode, "STATIC");
    }
}

} // namespace
