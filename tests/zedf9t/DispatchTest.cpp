// The operations that a ZED-F9T's controller has in two forms.

#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "WireFrames.h"
#include "WriteCalls.h"
#include "ZedF9tTest.h"

using zedtest::kByKey;
using zedtest::kLegacy;
using zedtest::ZedF9tTest;

namespace
{

using Controller = ubxController_ZEDF9T;

// The classes and ids of the frames that an operation sends: 068A sets items, 068B asks for them.
struct Dispatched
{
    const char* name;
    int (*operation)(Controller&);
    const char* byKey;
    const char* legacy;
    int (*legacyForm)(Controller&);
    const char* legacyFormInItemMode; // what it reads back and sets along with it goes by the mode
    int (*itemForm)(Controller&);
    const char* itemFormInLegacyMode;
    int itemFormStatus = 0;
};

void PrintTo(const Dispatched& dispatched, std::ostream* out)
{
    *out << dispatched.name;
}

template <typename Value, typename Owner>
int get(Controller& controller, int (Owner::*getter)(Value&))
{
    Value value{};
    return (controller.*getter)(value);
}

const std::vector<Dispatched> kDispatched = {
    {"SetAntennaDelay", [](Controller& c) { return c.setAntennaDelay(28); }, "068A 068B", "0631 0631",
     [](Controller& c) { return c.setAntennaDelayForLegacy(28); }, "0631 068B",
     [](Controller& c) { return c.setAntennaDelayForConfigInterface(28); }, "068A 0631"},
    {"GetAntennaDelay", [](Controller& c) { return get(c, &Controller::getAntennaDelay); }, "068B", "0631",
     [](Controller& c) { return get(c, &Controller::getAntennaDelayForLegacy); }, "0631",
     [](Controller& c) { return get(c, &Controller::getAntennaDelayForConfigInterface); }, "068B"},
    {"SetAntennaType", [](Controller& c) { return c.setAntennaType("active"); }, "068A 068B", "0639 0639",
     [](Controller& c) { return c.setAntennaTypeForLegacy("active"); }, "0639 0639",
     [](Controller& c) { return c.setAntennaTypeForConfigInterface("active"); }, "068A 0639"},
    {"GetAntennaType", [](Controller& c) { return get(c, &Controller::getAntennaType); }, "068B", "0639",
     [](Controller& c) { return get(c, &Controller::getAntennaTypeForLegacy); }, "0639",
     [](Controller& c) { return get(c, &Controller::getAntennaTypeForConfigInterface); }, "068B"},
    {"SetGnssSystem", [](Controller& c) { return c.setGnssSystem(5, false); }, "068A 068A 068A 068B",
     "063E 0631 0631 063E", [](Controller& c) { return c.setGnssSystemForLegacy(5, false); }, "063E 068A 068A 068B",
     [](Controller& c) { return c.setGnssSystemForConfigInterface(5, false); }, "068A 0631 0631 063E"},
    {"SetGnssSystemWithOneArgument", [](Controller& c) { return c.setGnssSystem(5); }, "068A 068A 068A 068B",
     "063E 0631 0631 063E", [](Controller& c) { return c.setGnssSystemForLegacy(5, true); }, "063E 068A 068A 068B",
     [](Controller& c) { return c.setGnssSystemForConfigInterface(5, true); }, "068A 0631 0631 063E"},
    {"GetGnssSystem", [](Controller& c) { return get(c, &Controller::getGnssSystem); }, "068B", "063E",
     [](Controller& c) { return get(c, &Controller::getGnssSystemForLegacy); }, "063E",
     [](Controller& c) { return get(c, &Controller::getGnssSystemForConfigInterface); }, "068B"},
    {"SetJammingDetection", [](Controller& c) { return c.setJammingDetection(true); }, "068A 068B", "0639 0639",
     [](Controller& c) { return c.setJammingDetectionForLegacy(true); }, "0639 0639",
     [](Controller& c) { return c.setJammingDetectionForConfigInterface(true); }, "068A 0639",
     1}, // the legacy getter looks at another bit than the one that enables the detection
    {"GetJammingDetection", [](Controller& c) { return get(c, &Controller::getJammingDetection); }, "068B", "0639",
     [](Controller& c) { return get(c, &Controller::getJammingDetectionForLegacy); }, "0639",
     [](Controller& c) { return get(c, &Controller::getJammingDetectionForConfigInterface); }, "068B"},
    {"SetSurveyStatic", [](Controller& c) { return c.setSurveyStatic(45, 7, 300, 1); }, "068A 068B", "063D 063D",
     [](Controller& c) { return c.setSurveyStaticForLegacy(45, 7, 300, 1); }, "063D 068B",
     [](Controller& c) { return c.setSurveyStaticForConfigInterface(45, 7, 300, 1); }, "068A 063D"},
    {"SetSurveyAuto", [](Controller& c) { return c.setSurveyAuto(60, 1.0F); }, "068A 068B 068B 068B", "063D 063D",
     [](Controller& c) { return c.setSurveyAutoForLegacy(60, 1.0F); }, "063D 068B",
     [](Controller& c) { return c.setSurveyAutoForConfigInterface(60, 1.0F); }, "068A 063D 068B 068B"},
    {"SetSurveyAutoWithoutArguments", [](Controller& c) { return c.setSurveyAuto(); }, "068A 068B 068B 068B",
     "063D 063D", [](Controller& c) { return c.setSurveyAutoForLegacy(10800, 1.0F); }, "063D 068B",
     [](Controller& c) { return c.setSurveyAutoForConfigInterface(10800, 1.0F); }, "068A 063D 068B 068B"},
    {"SetSurveyDynamic", [](Controller& c) { return c.setSurveyDynamic(); }, "068A 068B", "063D 063D",
     [](Controller& c) { return c.setSurveyDynamicForLegacy(); }, "063D 068B",
     [](Controller& c) { return c.setSurveyDynamicForConfigInterface(); }, "068A 063D"},
    {"GetSurveyMode", [](Controller& c) { return get(c, &Controller::getSurveyMode); }, "068B", "063D",
     [](Controller& c) { return get(c, &Controller::getSurveyModeForLegacy); }, "063D",
     [](Controller& c) { return get(c, &Controller::getSurveyModeForConfigInterface); }, "068B"},
    {"SetMinCNo", [](Controller& c) { return c.setMinCNo(40); }, "068A 068B", "0623 0623",
     [](Controller& c) { return c.setMinCNoForLegacy(40); }, "0623 068B",
     [](Controller& c) { return c.setMinCNoForConfigInterface(40); }, "068A 0623"},
    {"GetMinCNo", [](Controller& c) { return get(c, &Controller::getMinCNo); }, "068B", "0623",
     [](Controller& c) { return get(c, &Controller::getMinCNoForLegacy); }, "0623",
     [](Controller& c) { return get(c, &Controller::getMinCNoForConfigInterface); }, "068B"},
    {"SetElevationLimit", [](Controller& c) { return c.setElevationLimit(10); }, "068A 068B", "0624",
     [](Controller& c) { return c.setElevationLimitForLegacy(10); }, "0624",
     [](Controller& c) { return c.setElevationLimitForConfigInterface(10); }, "068A 0624"},
    {"GetElevationLimit", [](Controller& c) { return get(c, &Controller::getElevationLimit); }, "068B", "0624",
     [](Controller& c) { return get(c, &Controller::getElevationLimitForLegacy); }, "0624",
     [](Controller& c) { return get(c, &Controller::getElevationLimitForConfigInterface); }, "068B"},
    {"SetUtcStandardAuto", [](Controller& c) { return c.setUtcStandardAuto(); }, "068A", "0624",
     [](Controller& c) { return c.setUtcStandardAutoForLegacy(); }, "0624",
     [](Controller& c) { return c.setUtcStandardAutoForConfigInterface(); }, "068A"},
    {"SetUtsStandardTime", [](Controller& c) { return c.setUtsStandardTime(1); }, "068A", "0624",
     [](Controller& c) { return c.setUtsStandardTimeForLegacy(1); }, "0624",
     [](Controller& c) { return c.setUtsStandardTimeForConfigInterface(1); }, "068A"},
    {"SetTimeReference", [](Controller& c) { return c.setTimeReference("GPS"); }, "068A 068B", "0608 0608",
     [](Controller& c) { return c.setTimeReferenceForLegacy("GPS"); }, "0608 0608",
     [](Controller& c) { return c.setTimeReferenceForConfigInterface("GPS"); }, "068A 0608"},
    {"GetTimeReference", [](Controller& c) { return get(c, &Controller::getTimeReference); }, "068B", "0608",
     [](Controller& c) { return get(c, &Controller::getTimeReferenceForLegacy); }, "0608",
     [](Controller& c) { return get(c, &Controller::getTimeReferenceForConfigInterface); }, "068B"},
    {"IsOn", [](Controller& c) { return get(c, &Controller::isOn); }, "068B", "0631",
     [](Controller& c) { return get(c, &Controller::isOnForLegacy); }, "0631",
     [](Controller& c) { return get(c, &Controller::isOnForConfigInterface); }, "068B"},
    {"ConfigTimePulse", [](Controller& c) { return c.configTimePulse(1, 1, true); }, "068A", "0631",
     [](Controller& c) { return c.configTimePulseForLegacy(1, 1, true); }, "0631",
     [](Controller& c) { return c.configTimePulseForConfigInterface(1, 1, true); }, "068A"},
};

class DispatchTest : public ZedF9tTest, public testing::WithParamInterface<Dispatched>
{
protected:
    DispatchTest() { receiver(); }

    /// The classes and ids of what has been sent since the last call.
    std::string sent()
    {
        std::string all;
        for (const std::string& frame : takeFrames())
            all += (all.empty() ? "" : " ") + frame.substr(6, 2) + frame.substr(9, 2);
        return all;
    }
};

INSTANTIATE_TEST_SUITE_P(All, DispatchTest, testing::ValuesIn(kDispatched),
                         [](const auto& dispatched) { return std::string(dispatched.param.name); });

TEST_P(DispatchTest, GoesByTheModeAtTheCall)
{
    EXPECT_EQ(GetParam().operation(controller), 0);
    EXPECT_EQ(sent(), GetParam().byKey);

    EXPECT_EQ(controller.setZedf9tConfigurationInterfaceMode(kLegacy), 0);
    expectNoFrames();
    EXPECT_EQ(GetParam().operation(controller), 0);
    EXPECT_EQ(sent(), GetParam().legacy);

    EXPECT_EQ(controller.setZedf9tConfigurationInterfaceMode(kByKey), 0);
    EXPECT_EQ(GetParam().operation(controller), 0);
    EXPECT_EQ(sent(), GetParam().byKey);
}

TEST_P(DispatchTest, GoesByTheModeThatTheControllerWasMadeWith)
{
    Controller legacy(zedtest::kVersion2_20, kLegacy);

    EXPECT_EQ(GetParam().operation(legacy), 0);

    EXPECT_EQ(sent(), GetParam().legacy);
}

TEST_P(DispatchTest, LegacyFormReadsBackByKeyInConfigurationInterfaceMode)
{
    EXPECT_EQ(GetParam().legacyForm(controller), 0);

    EXPECT_EQ(sent(), GetParam().legacyFormInItemMode);
}

TEST_P(DispatchTest, ItemFormReadsBackThroughLegacyMessagesInLegacyMode)
{
    controller.setZedf9tConfigurationInterfaceMode(kLegacy);

    EXPECT_EQ(GetParam().itemForm(controller), GetParam().itemFormStatus);

    EXPECT_EQ(sent(), GetParam().itemFormInLegacyMode);
}

// A poll of items goes out on a port of its own while the one that listens is open already.
TEST_P(DispatchTest, OpensTheListeningPortBeforeAnItemPoll)
{
    std::vector<std::size_t> expected;
    for (std::size_t at = 0; at < std::string(GetParam().byKey).size(); at += 5)
        expected.push_back(std::string(GetParam().byKey).substr(at, 4) == "068B" ? 2 : 1);

    const writecalls::Observation observation;
    GetParam().operation(controller);

    EXPECT_EQ(observation.portsOpen(), expected);
}

// Both forms at once: what it was set to, not what the receiver answers, decides.
TEST_F(ZedF9tTest, ModesOfTwoControllersAreIndependent)
{
    receiver();
    Controller legacy(zedtest::kVersion2_20, kLegacy);
    signed char minCNo = 0;

    legacy.getMinCNo(minCNo);
    controller.getMinCNo(minCNo);

    expectFrames({zedtest::kPollNavx5, zedtest::kPollMinCNoItem});
}

// Getters that exist in one form only ask by key in both modes.
TEST_F(ZedF9tTest, SurveyDurationAndAccuracyAreAskedForByKeyInLegacyModeToo)
{
    controller.setZedf9tConfigurationInterfaceMode(kLegacy);
    answerItems("10 00 03 40 3C 00 00 00", 1);
    answerItems("11 00 03 40 88 13 00 00", 1);
    unsigned int duration = 0;
    unsigned int accuracy = 0;

    EXPECT_EQ(controller.getDurationConfiguration(duration), 0);
    EXPECT_EQ(controller.getAccuracyConfiguration(accuracy), 0);

    EXPECT_EQ(duration, 60U);
    EXPECT_EQ(accuracy, 5000U);
    expectFrames({zedtest::kPollSurveyDurationItem, zedtest::kPollSurveyAccuracyItem});
}

} // namespace
