// Every operation of a ZED-F9T's controller with a receiver that does as a real one does, in both modes, on firmware
// before and from 2.20 on: what is set is read back.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "WholeRun.h"
#include "WireFrames.h"

using zedtest::kByKey;
using zedtest::kLegacy;
using zedtest::Operation;
using zedtest::WholeRun;
using Lines = std::vector<std::string>;

namespace
{

using Controller = ubxController_ZEDF9T;

INSTANTIATE_TEST_SUITE_P(All, WholeRun, zedtest::kKinds, zedtest::nameOf);

TEST_P(WholeRun, AntennaIsSetAndReadBack)
{
    int delay = 0;
    std::string type;
    EXPECT_EQ(controller.setAntennaDelay(-28), 0);
    EXPECT_EQ(controller.getAntennaDelay(delay), 0);
    EXPECT_EQ(delay, -28);
    for (const char* const word : {"active", "passive", "unknown"}) {
        EXPECT_EQ(controller.setAntennaType(word), 0);
        EXPECT_EQ(controller.getAntennaType(type), 0);
        EXPECT_EQ(type, word);
    }
    EXPECT_EQ(controller.Init(), 0);
    EXPECT_EQ(controller.setAntennaPower("ON"), 0);
    EXPECT_EQ(log(), Lines{});
}

TEST_P(WholeRun, ConstellationsAreSetAndReadBack)
{
    for (const unsigned short mask : std::vector<unsigned short>{1, 5, 9, 65, 69, 72, 8, 109}) {
        for (const bool dualBand : {true, false}) {
            unsigned short readBack = 0;
            EXPECT_EQ(quietly([&] { return controller.setGnssSystem(mask, dualBand); }), 0) << mask;
            EXPECT_EQ(controller.getGnssSystem(readBack), 0);
            EXPECT_EQ(readBack, mask);
        }
    }
    EXPECT_EQ(quietly([&] { return controller.setGnssSystem(67); }), 0);
    EXPECT_EQ(log(), Lines{});
}

TEST_P(WholeRun, JammingDetectionIsSetAndReadBack)
{
    for (const bool wanted : {true, false, true}) {
        bool on = !wanted;
        EXPECT_EQ(controller.setJammingDetection(wanted), 0);
        EXPECT_EQ(controller.getJammingDetection(on), 0);
        EXPECT_EQ(on, wanted);
    }
}

TEST_P(WholeRun, TimingModeIsSetAndReadBack)
{
    std::string mode;
    unsigned char number = 9;
    double latitude = 0;
    double longitude = 0;
    double height = 0;
    double accuracy = 0;
    unsigned int duration = 0;
    float limit = 0;

    EXPECT_EQ(controller.setSurveyStatic(47.5, -8.25, 455.12, 0.5), 0);
    EXPECT_EQ(controller.getSurveyMode(mode), 0);
    EXPECT_EQ(mode, "STATIC");
    EXPECT_EQ(controller.setSurveyAuto(600, 2.0F), 0);
    EXPECT_EQ(controller.getSurveyMode(mode), 0);
    EXPECT_EQ(mode, "AUTO");
    EXPECT_EQ(controller.getSurveyInfo(number, latitude, longitude, height, accuracy, duration, limit), 0);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(duration, 600U);
    EXPECT_EQ(limit, 2.0F);
    EXPECT_EQ(controller.setSurveyAuto(), 0);
    EXPECT_EQ(controller.getDurationConfiguration(duration), 0);
    EXPECT_EQ(duration, 10800U);
    unsigned int tenthsOfMillimetre = 0;
    EXPECT_EQ(controller.getAccuracyConfiguration(tenthsOfMillimetre), 0);
    EXPECT_EQ(tenthsOfMillimetre, 10000U);
    EXPECT_EQ(quietly([&] { return controller.configPollTest(); }), 0);
    EXPECT_EQ(controller.setSurveyDynamic(), 0);
    EXPECT_EQ(controller.getSurveyMode(mode), 0);
    EXPECT_EQ(mode, "DYNAMIC");
    for (const char* const name : {"AUTO", "STATIC", "DYNAMIC"}) {
        EXPECT_EQ(controller.setSurveyMode(name), 0);
        EXPECT_EQ(controller.getSurveyMode(mode), 0);
        EXPECT_EQ(mode, name);
    }
    EXPECT_EQ(log(), Lines{});
}

TEST_P(WholeRun, NavigationFiltersAreSetAndReadBack)
{
    signed char minCNo = 0;
    unsigned char degrees = 0;
    unsigned char model = 0;
    unsigned char fixMode = 0;

    EXPECT_EQ(controller.setMinCNo(21), 0);
    EXPECT_EQ(controller.getMinCNo(minCNo), 0);
    EXPECT_EQ(minCNo, 21);
    EXPECT_EQ(controller.setElevationLimit(33), 0);
    EXPECT_EQ(controller.getElevationLimit(degrees), 0);
    EXPECT_EQ(degrees, 33);
    EXPECT_EQ(controller.setDynamicModel(2, 2), 0);
    EXPECT_EQ(controller.getDynamicModel(model, fixMode), 0);
    EXPECT_EQ(model, 2);
    EXPECT_EQ(fixMode, 2);
    EXPECT_EQ(controller.setDynamicModel(0), 0);
    EXPECT_EQ(controller.setFixMode(3), 0);
    EXPECT_EQ(controller.getDynamicModel(model, fixMode), 0);
    EXPECT_EQ(model, 0);
    EXPECT_EQ(fixMode, 3);
    EXPECT_EQ(log(), Lines{});
}

TEST_P(WholeRun, TimeIsSetAndReadBack)
{
    std::string reference;
    bool on = false;

    for (const char* const word : {"GPS", "UTC"}) {
        EXPECT_EQ(controller.setTimeReference(word), 0);
        EXPECT_EQ(controller.getTimeReference(reference), 0);
        EXPECT_EQ(reference, word);
    }
    EXPECT_EQ(controller.setUtcStandardAuto(), 0);
    EXPECT_EQ(controller.setUtsStandardTime(4), 0);
    takeFrames();
    if (!byKey()) {
        EXPECT_EQ(receiver().keyValue(0x2011001C), 5U);
    }
    for (const bool active : {true, false, true}) {
        EXPECT_EQ(controller.configTimePulse(1, 1, active), 0);
        EXPECT_EQ(controller.isOn(on), 0);
        EXPECT_EQ(on, active);
    }
    EXPECT_EQ(controller.programGroupDelayCal(10), 0);
    EXPECT_EQ(log(), Lines{});
}

// By key the other systems' time is set, too; through legacy messages each is set as GPS time.
TEST_P(WholeRun, TimeOfOtherSystems)
{
    const char* const words[] = {"GLO", "BDS", "GAL"};
    for (const char* const word : words) {
        std::string reference;
        EXPECT_EQ(controller.setTimeReference(word), 0);
        EXPECT_EQ(controller.getTimeReference(reference), 0);
        EXPECT_EQ(reference, byKey() ? word : "GPS");
    }
}

TEST_P(WholeRun, OutputPowerAndStorage)
{
    std::string mode;
    const Lines expected = older() ? Lines{} : Lines(3, "It is not supported by the current firmware.");

    EXPECT_EQ(controller.configureProtocols(), 0);
    EXPECT_EQ(controller.configureUbxPolling(1), 0);
    EXPECT_EQ(controller.configureNmeaPolling(1), 0);
    EXPECT_EQ(controller.configurNmeaPollingPartial(0), 0);
    EXPECT_EQ(controller.configureSBAS(), 0);
    EXPECT_EQ(controller.configExtendedPowerManagment(), 0);
    EXPECT_EQ(controller.setRxMode("POWERSAVE"), 0);
    EXPECT_EQ(controller.getRxMode(mode), 0);
    EXPECT_EQ(mode, older() ? "POWERSAVE" : "");
    EXPECT_EQ(controller.save(), 0);
    EXPECT_EQ(controller.load(), 0);
    EXPECT_EQ(controller.resetUbloxDefaults(), 0);
    EXPECT_EQ(controller.setApplicationDefaults(), 0);
    EXPECT_EQ(log(), expected);
}

TEST_P(WholeRun, DefaultsAreSetAndReadBackInEitherMode)
{
    int delay = 0;
    unsigned short mask = 0;
    signed char minCNo = 0;
    unsigned char degrees = 0;
    std::string mode;

    EXPECT_EQ(controller.setDefaultConfiguration(), 0);
    EXPECT_EQ(quietly([&] { return controller.resetFactoryDefaults(); }), 0);

    for (const bool byKey : {kByKey, kLegacy}) {
        controller.setZedf9tConfigurationInterfaceMode(byKey);
        EXPECT_EQ(controller.getAntennaDelay(delay), 0);
        EXPECT_EQ(delay, 28);
        mask = 0;
        EXPECT_EQ(controller.getGnssSystem(mask), 0);
        EXPECT_EQ(mask, 1);
        EXPECT_EQ(controller.getMinCNo(minCNo), 0);
        EXPECT_EQ(minCNo, 9);
        EXPECT_EQ(controller.getElevationLimit(degrees), 0);
        EXPECT_EQ(degrees, 10);
        EXPECT_EQ(controller.getSurveyMode(mode), 0);
        EXPECT_EQ(mode, "AUTO");
    }
}

TEST_P(WholeRun, StopAndStartGoByTheSecondPulse)
{
    EXPECT_EQ(controller.configTimePulse(1, 1, true), 0);
    EXPECT_EQ(controller.turnOn(), 0);
    EXPECT_EQ(controller.turnOff(), 1);
    EXPECT_EQ(controller.restart(true), 0);
    EXPECT_EQ(controller.configTimePulse(1, 1, false), 0);
    EXPECT_EQ(controller.turnOff(), 0);
    EXPECT_EQ(controller.turnOn(), 1);
    EXPECT_EQ(log(), Lines{});
}

TEST_P(WholeRun, ReportsAreTheSameInBothModes)
{
    std::string info;
    std::string solution;
    std::string satellites;
    unsigned char used = 0;

    EXPECT_EQ(controller.getInfo(info), 0);
    EXPECT_EQ(controller.getNavsolution("ALL", solution), 0);
    EXPECT_EQ(controller.getSatelliteInfo(satellites), 0);
    EXPECT_EQ(controller.getNofSatellitesInNavSol(used), 0);

    EXPECT_NE(info.find(std::string(": 00190000: ")), std::string::npos) << info;
    EXPECT_NE(info.find(std::string("FWVER=") + GetParam().firmware), std::string::npos) << info;
    EXPECT_NE(solution.find(",3D-FIX,-31.9505,115.861,"), std::string::npos) << solution;
    EXPECT_NE(satellites.find("\tGPS\tUsed    \t"), std::string::npos) << satellites;
    EXPECT_GT(used, 3);
    expectFrames({zedtest::kPollVersion, zedtest::kPollSolution, zedtest::kPollSatellites, zedtest::kPollSolution});
    EXPECT_EQ(log(), Lines{});
}

struct Kept
{
    const char* name;
    Operation prepare; // makes the present value another one
    Operation set;
};

TEST_P(WholeRun, SettersThatReadBackReport1WhenTheReceiverKeepsItsOldValue)
{
    const Kept byEither[] = {
        {"setAntennaDelay", [](auto& c) { return c.setAntennaDelay(7); },
         [](auto& c) { return c.setAntennaDelay(28); }},
        {"setGnssSystem", [](auto& c) { return c.setGnssSystem(1); }, [](auto& c) { return c.setGnssSystem(65); }},
        {"setSurveyStatic", [](auto& c) { return c.setSurveyDynamic(); },
         [](auto& c) { return c.setSurveyStatic(45, 7, 300, 1); }},
        {"setSurveyAuto", [](auto& c) { return c.setSurveyDynamic(); }, [](auto& c) { return c.setSurveyAuto(); }},
        {"setSurveyDynamic", [](auto& c) { return c.setSurveyStatic(45, 7, 300, 1); },
         [](auto& c) { return c.setSurveyDynamic(); }},
        {"setMinCNo", [](auto& c) { return c.setMinCNo(6); }, [](auto& c) { return c.setMinCNo(40); }},
    };
    const Kept onlyByKey[] = {
        {"setAntennaType", [](auto& c) { return c.setAntennaType("passive"); },
         [](auto& c) { return c.setAntennaType("active"); }},
        {"setJammingDetection", [](auto& c) { return c.setJammingDetection(false); },
         [](auto& c) { return c.setJammingDetection(true); }},
        {"setElevationLimit", [](auto& c) { return c.setElevationLimit(5); },
         [](auto& c) { return c.setElevationLimit(15); }},
        {"setTimeReference", [](auto& c) { return c.setTimeReference("UTC"); },
         [](auto& c) { return c.setTimeReference("GPS"); }},
    };
    const auto run = [this](const Kept& kept) {
        receiver().clearFaults();
        if (quietly([&] { return kept.prepare(controller); }) != 0) return -1;
        for (const std::uint16_t set :
             std::vector<std::uint16_t>{0x068A, 0x0631, 0x063E, 0x063D, 0x0623, 0x0639, 0x0624, 0x0608})
            receiver().keepValue(set);
        return quietly([&] { return kept.set(controller); });
    };
    for (const Kept& kept : byEither)
        EXPECT_EQ(run(kept), 1) << kept.name;
    for (const Kept& kept : onlyByKey)
        EXPECT_EQ(run(kept), byKey() ? 1 : 0) << kept.name;
    EXPECT_EQ(log(), Lines{});
}

} // namespace
