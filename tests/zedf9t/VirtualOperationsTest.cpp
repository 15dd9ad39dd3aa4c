// A controller derived from that of the ZED-F9T: what it overrides is what the others call.

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

/// Notes the calls of everything that composite operations are made of. Each returns a bit of its own.
class NotingController : public ubxController_ZEDF9T
{
public:
    NotingController() : ubxController_ZEDF9T(zedtest::kVersion2_20, kByKey) {}

    Lines calls;

    int configureProtocols() override { return noted("configureProtocols", 0x1); }
    int setAntennaDelay(int delay) override { return noted("setAntennaDelay " + std::to_string(delay), 0x2); }
    int setGnssSystem(unsigned short mask) override { return noted("setGnssSystem " + std::to_string(mask), 0x4); }
    int setMinCNo(signed char minCNo) override { return noted("setMinCNo " + std::to_string(minCNo), 0x8); }
    int setElevationLimit(unsigned char degrees) override
    {
        return noted("setElevationLimit " + std::to_string(degrees), 0x10);
    }
    int setDynamicModel(unsigned char model) override
    {
        return noted("setDynamicModel " + std::to_string(model), 0x8000);
    }
    int setDynamicModel(unsigned char model, unsigned char fixMode) override
    {
        return noted("setDynamicModel " + std::to_string(model) + " " + std::to_string(fixMode), 0x20);
    }
    int setSurveyAuto() override { return noted("setSurveyAuto", 0x40); }
    int configureSBAS() override { return noted("configureSBAS", 0x80); }
    int setUtcStandardAuto() override { return noted("setUtcStandardAuto", 0x100); }
    int configExtendedPowerManagment() override { return noted("configExtendedPowerManagment", 0x200); }
    int configureUbxPolling(unsigned char rate) override
    {
        return noted("configureUbxPolling " + std::to_string(rate), 0x400);
    }
    int configureNmeaPolling(unsigned char rate) override
    {
        return noted("configureNmeaPolling " + std::to_string(rate), 0x800);
    }
    int save() override { return noted("save", 0x1000); }

private:
    int noted(const std::string& call, int status)
    {
        calls.push_back(call);
        return status;
    }
};

class VirtualOperations : public ZedF9tTest
{
protected:
    VirtualOperations() { receiver(); }

    NotingController noting;
};

const Lines kDefaultSteps = {"configureProtocols", "setAntennaDelay 28",   "setGnssSystem 1",
                             "setMinCNo 9",        "setElevationLimit 10", "setDynamicModel 2 2",
                             "setSurveyAuto",      "configureSBAS",        "setUtcStandardAuto"};

TEST_F(VirtualOperations, SetDefaultConfigurationCallsNineAndReportsAllThatTheyReport)
{
    EXPECT_EQ(noting.setDefaultConfiguration(), 0x1FF);

    EXPECT_EQ(noting.calls, kDefaultSteps);
    expectNoFrames();
}

TEST_F(VirtualOperations, SetApplicationDefaultsCallsThree)
{
    EXPECT_EQ(noting.setApplicationDefaults(), 0x1 | 0x20 | 0x100);

    EXPECT_EQ(noting.calls, (Lines{"configureProtocols", "setDynamicModel 0 3", "setUtcStandardAuto"}));
    expectNoFrames();
}

TEST_F(VirtualOperations, ResetFactoryDefaultsTurnsNmeaOffOnlyWithoutAUsbNode)
{
    Lines steps = {"configExtendedPowerManagment", "configureUbxPolling 1", "configureNmeaPolling 0"};
    steps.insert(steps.end(), kDefaultSteps.begin(), kDefaultSteps.end());
    steps.emplace_back("save");

    EXPECT_EQ(noting.resetFactoryDefaults(), 0x1FFF);
    EXPECT_EQ(noting.calls, steps);

    plugIntoUsb();
    noting.calls.clear();
    steps.erase(steps.begin() + 2);
    EXPECT_EQ(noting.resetFactoryDefaults(), 0x1FFF - 0x800);
    EXPECT_EQ(noting.calls, steps);
    expectFrames({zedtest::kClear, zedtest::kClear});
}

TEST_F(VirtualOperations, ResetUbloxDefaultsCallsSave)
{
    EXPECT_EQ(noting.resetUbloxDefaults(), 0x1000);

    EXPECT_EQ(noting.calls, Lines{"save"});
}

/// Its readers answer without the receiver.
class KnowingController : public ubxController_ZEDF9T
{
public:
    explicit KnowingController(bool mode) : ubxController_ZEDF9T(zedtest::kVersion2_20, mode) {}

    int status = 0;

    int getAntennaDelay(int& delay) override { return answered(delay, 28); }
    int getAntennaType(std::string& type) override { return answered(type, std::string("active")); }
    int getGnssSystem(unsigned short& mask) override { return answered(mask, static_cast<unsigned short>(5)); }
    int getJammingDetection(bool& on) override { return answered(on, true); }
    int getSurveyMode(std::string& mode) override { return answered(mode, std::string("STATIC")); }
    int getMinCNo(signed char& minCNo) override { return answered(minCNo, static_cast<signed char>(40)); }
    int getElevationLimit(unsigned char& degrees) override { return answered(degrees, static_cast<unsigned char>(15)); }
    int getTimeReference(std::string& reference) override { return answered(reference, std::string("GLO")); }
    int isOn(bool& on) override { return answered(on, true); }
    int configTimePulse(unsigned short mask, unsigned char pulse, bool active) override
    {
        pulses.push_back(std::to_string(mask) + " " + std::to_string(pulse) + (active ? " on" : " off"));
        return 0;
    }
    int setSurveyAuto(unsigned int duration, float accuracy) override
    {
        return duration == 10800 && accuracy == 1.0F ? 77 : 0;
    }
    using ubxController_ZEDF9T::setSurveyAuto;

    Lines pulses;

private:
    template <typename Value>
    int answered(Value& value, Value known)
    {
        value = known;
        return status;
    }
};

class Verification : public ZedF9tTest, public testing::WithParamInterface<bool>
{
protected:
    Verification() { receiver(); }

    KnowingController knowing{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(InEitherMode, Verification, testing::Values(kByKey, kLegacy),
                         [](const auto& mode) { return std::string(mode.param ? "ByKey" : "Legacy"); });

TEST_P(Verification, AsksTheDerivedClass)
{
    EXPECT_EQ(knowing.setAntennaDelay(28), 0);
    EXPECT_EQ(knowing.setAntennaDelay(29), 1);
    EXPECT_EQ(knowing.setMinCNo(40), 0);
    EXPECT_EQ(knowing.setMinCNo(41), 1);
    EXPECT_EQ(knowing.setSurveyStatic(45, 7, 300, 1), 0);
    EXPECT_EQ(knowing.setSurveyDynamic(), 1);
    EXPECT_EQ(knowing.setGnssSystem(5), 0);
    EXPECT_EQ(knowing.setGnssSystem(4), 1);

    for (const std::string& sent : takeFrames())
        EXPECT_NE(sent.substr(6, 5), "06 8B");
}

TEST_P(Verification, PassesItsStatusOn)
{
    knowing.status = 4;

    EXPECT_EQ(knowing.setAntennaDelay(28), 4);
    EXPECT_EQ(knowing.setMinCNo(41), 5);
    EXPECT_EQ(knowing.setSurveyStatic(45, 7, 300, 1), 4);
    EXPECT_EQ(knowing.setGnssSystem(5), 4);
}

TEST_P(Verification, ByKeyAsksTheDerivedClassForTheOtherSettings)
{
    knowing.setZedf9tConfigurationInterfaceMode(kByKey);

    EXPECT_EQ(knowing.setAntennaType("active"), 0);
    EXPECT_EQ(knowing.setAntennaType("passive"), 1);
    EXPECT_EQ(knowing.setJammingDetection(true), 0);
    EXPECT_EQ(knowing.setJammingDetection(false), 1);
    EXPECT_EQ(knowing.setElevationLimit(15), 0);
    EXPECT_EQ(knowing.setElevationLimit(16), 1);
    EXPECT_EQ(knowing.setTimeReference("GLO"), 0);
    EXPECT_EQ(knowing.setTimeReference("GPS"), 1);
}

TEST_P(Verification, ConstellationsSetBothPulsesOfTheDerivedClass)
{
    knowing.setGnssSystem(5);
    knowing.setGnssSystem(10);

    const std::string second = GetParam() == kByKey ? "8" : "10"; // SBAS gives way to BeiDou by key only
    EXPECT_EQ(knowing.pulses, (Lines{"5 0 on", "5 1 on", second + " 0 on", second + " 1 on"}));
}

TEST_P(Verification, StopAndStartAskTheDerivedClass)
{
    EXPECT_EQ(knowing.turnOff(), 1); // on, and the pulse is left alone
    EXPECT_EQ(knowing.turnOn(), 0);
    EXPECT_EQ(knowing.pulses, Lines{});

    knowing.status = 8;
    EXPECT_EQ(knowing.turnOff(), 9);
    EXPECT_EQ(knowing.turnOn(), 8);
    EXPECT_EQ(knowing.pulses, (Lines{"5 1 off", "5 1 on"}));
}

TEST_P(Verification, SurveyWithoutArgumentsGoesThroughThatWithArguments)
{
    EXPECT_EQ(knowing.setSurveyAuto(), 77);
}

TEST_P(Verification, LegacyPulseTakesTheGridOfTheDerivedClass)
{
    class OwnGrid : public ubxController_ZEDF9T
    {
    public:
        OwnGrid() : ubxController_ZEDF9T(zedtest::kVersion2_20, kLegacy) {}
        int getUtcGrid(unsigned short) override { return 0x54; }
    };
    renewTimePulse();
    OwnGrid own;

    EXPECT_EQ(own.configTimePulse(1, 0, true), 0);

    expectFrames({"B5 62 06 31 20 00 "
                  "00 01 00 00 00 00 00 00 "
                  "40 42 0F 00 40 42 0F 00 "
                  "00 00 00 00 A0 86 01 00 "
                  "00 00 00 00 55 00 00 00 "
                  "F6 B6"});
}

/// One step throws.
class ThrowingController : public ubxController_ZEDF9T
{
public:
    explicit ThrowingController(bool mode) : ubxController_ZEDF9T(zedtest::kVersion2_20, mode) {}
    int configureProtocols() override { throw std::runtime_error("no protocols"); }
};

TEST_P(Verification, ModeIsRestoredWhenAStepThrows)
{
    ThrowingController throwing(GetParam());
    bool on = false;

    EXPECT_THROW(throwing.setDefaultConfiguration(), std::runtime_error);
    EXPECT_THROW(throwing.setApplicationDefaults(), std::runtime_error);
    EXPECT_THROW(throwing.resetFactoryDefaults(), std::runtime_error);
    takeFrames();

    throwing.isOn(on);
    expectFrames({GetParam() == kByKey ? zedtest::kPollSecondPulseItem : zedtest::kPollSecondPulse});
}

} // namespace
