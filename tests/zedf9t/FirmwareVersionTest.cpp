// The rule by which the firmware's version chooses among keys, and what an unreadable version does.

#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "WireFrames.h"
#include "ZedF9tTest.h"

using zedtest::kByKey;
using zedtest::kLegacy;
using zedtest::ZedF9tTest;
using Lines = std::vector<std::string>;

namespace
{

int rule(const std::string& version)
{
    return ubxController_ZEDF9T(version, kByKey).checkUbloxChipFirmVer();
}

class FirmwareVersion : public ZedF9tTest
{};

TEST_F(FirmwareVersion, From2_20OnYields0)
{
    EXPECT_EQ(rule("FWVER=TIM 2.20"), 0);
    EXPECT_EQ(rule("FWVER=TIM 2.21"), 0);
    EXPECT_EQ(rule("TIM 2.20"), 0);
    EXPECT_EQ(rule("TIM 2.2"), 0);
    EXPECT_EQ(rule("FWVER=TIM 2.25"), 0);
    EXPECT_EQ(rule("FWVER=TIM 10"), 0);
}

TEST_F(FirmwareVersion, Before2_20Yields1)
{
    EXPECT_EQ(rule("FWVER=TIM 2.01"), 1);
    EXPECT_EQ(rule("FWVER=TIM 2.13"), 1);
    EXPECT_EQ(rule("FWVER=TIM 2.19"), 1);
    EXPECT_EQ(rule("FWVER=TIM 2.199999"), 1);
    EXPECT_EQ(rule("FWVER=TIM 1.10"), 1);
    EXPECT_EQ(rule("FWVER=TIM -3"), 1);
}

TEST_F(FirmwareVersion, WithoutTimYields999)
{
    EXPECT_EQ(rule("2.20"), 999);
    EXPECT_EQ(rule(""), 999);
    EXPECT_EQ(rule("FWVER=HPG 1.32"), 999);
    EXPECT_EQ(rule("FWVER=tim 2.20"), 999);
    EXPECT_EQ(rule("FWVER=TI"), 999);
}

TEST_F(FirmwareVersion, CountsFromTheFirstTim)
{
    EXPECT_EQ(rule("TIM 2.01 TIM 2.20"), 1);
    EXPECT_EQ(rule("TIM 2.20 TIM 2.01"), 0);
}

TEST_F(FirmwareVersion, TakesWhateverANumberMayLookLike)
{
    EXPECT_EQ(rule("TIM  2.20"), 0);   // another blank
    EXPECT_EQ(rule("TIM=2.20"), 0);    // any one character between
    EXPECT_EQ(rule("TIM 2.20B01"), 0); // more behind it
    EXPECT_EQ(rule("TIM2.20"), 1);     // ".20": the digit counts as the character between
    EXPECT_EQ(rule("TIM 22e-1"), 0);
    EXPECT_EQ(rule("TIM 0x2.4p0"), 0);
    EXPECT_EQ(rule("TIM inf"), 0);
    EXPECT_EQ(rule("TIM nan"), 1);
}

std::string thrown(const std::string& version)
{
    try {
        return std::to_string(rule(version));
    } catch (const std::invalid_argument& error) {
        return std::string("invalid_argument ") + error.what();
    } catch (const std::out_of_range& error) {
        return std::string("out_of_range ") + error.what();
    }
}

TEST_F(FirmwareVersion, ThatIsNoNumberRaises)
{
    EXPECT_EQ(thrown("FWVER=TIM x"), "invalid_argument stof");
    EXPECT_EQ(thrown("FWVER=TIM x2.20"), "invalid_argument stof");
    EXPECT_EQ(thrown("FWVER=TIM "), "invalid_argument stof");
    EXPECT_EQ(thrown("TIM x TIM 2.20"), "invalid_argument stof");
    EXPECT_EQ(thrown("FWVER=TIM 1e99"), "out_of_range stof");
    EXPECT_EQ(thrown("FWVER=TIM -1e99"), "out_of_range stof");
}

TEST_F(FirmwareVersion, ThatEndsInTimRaisesOutOfRange)
{
    EXPECT_THROW(rule("FWVER=TIM"), std::out_of_range);
    EXPECT_THROW(rule("TIM"), std::out_of_range);
}

using Operation = std::function<void(ubxController_ZEDF9T&)>;

struct Dependent
{
    const char* name;
    Operation operation;
    Lines framesBefore; // what has been sent when the version is looked at
    const char* printed;
};

void PrintTo(const Dependent& dependent, std::ostream* out)
{
    *out << dependent.name;
}

const std::vector<Dependent> kDependents = {
    {"SetGnssSystem", [](auto& c) { c.setGnssSystem(1); }, {}, "GNSS_FLAG_GPS\n"},
    {"GetGnssSystem",
     [](auto& c) {
         unsigned short mask = 0;
         c.getGnssSystem(mask);
     },
     {},
     ""},
    {"ConfigExtendedPowerManagment", [](auto& c) { c.configExtendedPowerManagment(); }, {}, ""},
    {"SetRxMode", [](auto& c) { c.setRxMode("no word"); }, {}, ""}, // looked at before the word
    {"GetRxMode",
     [](auto& c) {
         std::string mode;
         c.getRxMode(mode);
     },
     {},
     ""},
    {"TurnOff", [](auto& c) { c.turnOff(); }, {}, ""},
    {"TurnOn", [](auto& c) { c.turnOn(); }, {zedtest::kStart}, ""},
    {"ResetFactoryDefaults", [](auto& c) { c.resetFactoryDefaults(); }, {zedtest::kClear}, ""},
};

enum Outcome
{
    kReturned,
    kInvalidArgument,
    kOutOfRange,
};

class OperationThatNeedsTheVersion : public ZedF9tTest, public testing::WithParamInterface<Dependent>
{
protected:
    static Outcome outcome(ubxController_ZEDF9T& controller)
    {
        try {
            GetParam().operation(controller);
            return kReturned;
        } catch (const std::invalid_argument&) {
            return kInvalidArgument;
        } catch (const std::out_of_range&) {
            return kOutOfRange;
        }
    }
};

INSTANTIATE_TEST_SUITE_P(All, OperationThatNeedsTheVersion, testing::ValuesIn(kDependents),
                         [](const auto& dependent) { return std::string(dependent.param.name); });

TEST_P(OperationThatNeedsTheVersion, IsLeftByItsException)
{
    receiver();
    ubxController_ZEDF9T unreadable("FWVER=TIM x", kByKey);
    std::string printed;

    EXPECT_EQ(printing(printed, [&] { return outcome(unreadable); }), kInvalidArgument);

    EXPECT_EQ(printed, GetParam().printed);
    expectFrames(GetParam().framesBefore);
    EXPECT_EQ(log(), Lines{});
}

TEST_P(OperationThatNeedsTheVersion, IsLeftByTheExceptionOfATextThatEndsInTim)
{
    receiver();
    ubxController_ZEDF9T unreadable("FWVER=TIM", kByKey);

    EXPECT_EQ(quietly([&] { return outcome(unreadable); }), kOutOfRange);

    expectFrames(GetParam().framesBefore);
}

TEST_P(OperationThatNeedsTheVersion, LeavesTheModeAsItWas)
{
    receiver();
    for (const bool mode : {kByKey, kLegacy}) {
        ubxController_ZEDF9T unreadable("FWVER=TIM 1e99", mode);
        quietly([&] { return outcome(unreadable); });
        takeFrames();
        bool on = false;

        unreadable.isOn(on);

        expectFrames({mode == kByKey ? zedtest::kPollSecondPulseItem : zedtest::kPollSecondPulse});
    }
}

TEST_F(FirmwareVersion, ThatIsNoNumberIsNotLookedAtByTheLegacyConstellations)
{
    renewTimePulse();
    ubxController_ZEDF9T unreadable("FWVER=TIM x", kLegacy);
    unsigned short mask = 0;

    EXPECT_NO_THROW(unreadable.setGnssSystem(1));
    EXPECT_NO_THROW(unreadable.getGnssSystem(mask));

    EXPECT_EQ(mask, 1);
}

} // namespace
