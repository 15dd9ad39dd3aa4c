// Every operation on a receiver that just does what it is told.

#include <cstdio>

#include "NeoM8tTest.h"

namespace
{

using testsupport::Lines;

class FullRun : public testsupport::NeoM8tTest
{};

TEST_F(FullRun, OfAllSettingsSucceedsAndReadsEveryValueBack)
{
    std::string word;
    int delay = 0;
    unsigned short mask = 0;
    bool flag = false;
    signed char level = 0;
    unsigned char number = 0;
    unsigned char fixMode = 0;

    EXPECT_EQ(controller.Init(), 0);
    EXPECT_EQ(controller.configureProtocols(), 0);
    EXPECT_EQ(controller.setZedf9tConfigurationInterfaceMode(true), 0);

    EXPECT_EQ(controller.setAntennaDelay(-123), 0);
    EXPECT_EQ(controller.getAntennaDelay(delay), 0);
    EXPECT_EQ(delay, -123);

    EXPECT_EQ(controller.setAntennaType("active"), 0);
    EXPECT_EQ(controller.getAntennaType(word), 0);
    EXPECT_EQ(word, "active");
    EXPECT_EQ(controller.setAntennaType("passive"), 0);
    EXPECT_EQ(controller.getAntennaType(word), 0);
    EXPECT_EQ(word, "passive");

    EXPECT_EQ(controller.setGnssSystem(65), 0);
    EXPECT_EQ(controller.getGnssSystem(mask), 0);
    EXPECT_EQ(mask, 65);
    EXPECT_EQ(controller.setGnssSystem(9, true), 0);
    EXPECT_EQ(controller.getGnssSystem(mask), 0);
    EXPECT_EQ(mask, 9);

    EXPECT_EQ(controller.setJammingDetection(true), 0);
    EXPECT_EQ(controller.getJammingDetection(flag), 0);
    EXPECT_TRUE(flag);

    EXPECT_EQ(controller.setMinCNo(33), 0);
    EXPECT_EQ(controller.getMinCNo(level), 0);
    EXPECT_EQ(level, 33);

    EXPECT_EQ(controller.setElevationLimit(17), 0);
    EXPECT_EQ(controller.getElevationLimit(number), 0);
    EXPECT_EQ(number, 17);

    EXPECT_EQ(controller.setDynamicModel(4), 0);
    EXPECT_EQ(controller.setFixMode(2), 0);
    EXPECT_EQ(controller.getDynamicModel(number, fixMode), 0);
    EXPECT_EQ(number, 4);
    EXPECT_EQ(fixMode, 2);
    EXPECT_EQ(controller.setDynamicModel(2, 3), 0);
    EXPECT_EQ(controller.getDynamicModel(number, fixMode), 0);
    EXPECT_EQ(number, 2);
    EXPECT_EQ(fixMode, 3);
    EXPECT_EQ(controller.getElevationLimit(number), 0);
    EXPECT_EQ(number, 17) << "the model's message must not touch the elevation limit";

    EXPECT_EQ(controller.setTimeReference("UTC"), 0);
    EXPECT_EQ(controller.getTimeReference(word), 0);
    EXPECT_EQ(word, "UTC");
    EXPECT_EQ(controller.setTimeReference("GPS"), 0);
    EXPECT_EQ(controller.getTimeReference(word), 0);
    EXPECT_EQ(word, "GPS");

    EXPECT_EQ(controller.setRxMode("POWERSAVE"), 0);
    EXPECT_EQ(controller.getRxMode(word), 0);
    EXPECT_EQ(word, "POWERSAVE");
    EXPECT_EQ(controller.setRxMode("CONTINUOUS"), 0);
    EXPECT_EQ(controller.getRxMode(word), 0);
    EXPECT_EQ(word, "CONTINUOUS");

    EXPECT_EQ(controller.setUtcStandardAuto(), 0);
    EXPECT_EQ(controller.setUtsStandardTime(1), 0);
    EXPECT_EQ(controller.configureSBAS(), 0);
    EXPECT_EQ(controller.configExtendedPowerManagment(), 0);
    EXPECT_EQ(controller.configureUbxPolling(1), 0);
    EXPECT_EQ(controller.configureNmeaPolling(1), 0);
    EXPECT_EQ(controller.configurNmeaPollingPartial(1), 0);
    EXPECT_EQ(controller.programGroupDelayCal(5), 0);
    EXPECT_EQ(controller.getResetInfo(), 0);
    EXPECT_EQ(controller.setAntennaPower("ON"), 0);
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(FullRun, OfTheTimingModesSucceedsAndReadsThemBack)
{
    std::string word;

    EXPECT_EQ(controller.setSurveyStatic(45.5, 7.25, 300.0, 1.5), 0);
    EXPECT_EQ(controller.getSurveyMode(word), 0);
    EXPECT_EQ(word, "STATIC");

    EXPECT_EQ(controller.setSurveyAuto(600, 2.0F), 0);
    EXPECT_EQ(controller.getSurveyMode(word), 0);
    EXPECT_EQ(word, "AUTO");
    EXPECT_EQ(controller.setSurveyAuto(), 0);

    EXPECT_EQ(controller.setSurveyDynamic(), 0);
    EXPECT_EQ(controller.getSurveyMode(word), 0);
    EXPECT_EQ(word, "DYNAMIC");

    for (const char* mode : {"AUTO", "STATIC", "DYNAMIC"}) {
        EXPECT_EQ(controller.setSurveyMode(mode), 0);
        EXPECT_EQ(controller.getSurveyMode(word), 0);
        EXPECT_EQ(word, mode);
    }
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(FullRun, OfTheReportsSucceedsAndTheyAgree)
{
    std::string text;
    unsigned char mode = 99;
    unsigned char count = 0;
    double latitude = 0;
    double longitude = 0;
    double height = 0;
    double accuracy = 0;
    unsigned duration = 0;
    float limit = 0;
    controller.setSurveyAuto(10800, 1.0F);

    EXPECT_EQ(controller.getSurveyInfo(mode, latitude, longitude, height, accuracy, duration, limit), 0);
    EXPECT_EQ(mode, 1);
    EXPECT_EQ(duration, 10800U);
    EXPECT_EQ(limit, 1.0F);

    EXPECT_EQ(controller.getNavsolution("POS", text), 0);
    double reportedLatitude = 0;
    double reportedLongitude = 0;
    ASSERT_EQ(std::sscanf(text.c_str(), "%lf,%lf", &reportedLatitude, &reportedLongitude), 2) << text;
    EXPECT_NEAR(reportedLatitude, latitude, 0.01);
    EXPECT_NEAR(reportedLongitude, longitude, 0.01);

    EXPECT_EQ(controller.getNofSatellitesInNavSol(count), 0);
    EXPECT_EQ(controller.getSatelliteInfo(text), 0);
    std::size_t used = 0;
    for (std::size_t at = text.find("\tUsed    \t"); at != std::string::npos; at = text.find("\tUsed    \t", at + 1))
        ++used;
    EXPECT_GT(count, 0);
    EXPECT_EQ(used, count);

    EXPECT_EQ(controller.getInfo(text), 0);
    EXPECT_NE(text.find(": 00080000: "), std::string::npos) << text;
    EXPECT_NE(text.find(": MOD=NEO-M8T-0"), std::string::npos) << text;
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(FullRun, OfOnAndOffFollowsTheSecondTimePulse)
{
    bool on = true;

    EXPECT_EQ(controller.configTimePulse(1, 1, false), 0);
    EXPECT_EQ(controller.isOn(on), 0);
    EXPECT_FALSE(on);
    EXPECT_EQ(controller.turnOff(), 0);

    EXPECT_EQ(controller.configTimePulse(1, 1, true), 0);
    EXPECT_EQ(controller.turnOn(), 0);
    EXPECT_EQ(controller.isOn(on), 0);
    EXPECT_TRUE(on);
    EXPECT_EQ(controller.restart(true), 0);
    EXPECT_EQ(controller.restart(false), 0);
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(FullRun, OfTheSequencesLeavesTheReceiverAsTheySay)
{
    int delay = 0;
    unsigned short mask = 0;
    signed char level = 0;
    unsigned char number = 0;
    unsigned char fixMode = 0;
    std::string word;

    EXPECT_EQ(controller.resetUbloxDefaults(), 0);
    EXPECT_EQ(controller.resetFactoryDefaults(), 0);
    EXPECT_EQ(controller.setDefaultConfiguration(), 0);

    EXPECT_EQ(controller.getAntennaDelay(delay), 0);
    EXPECT_EQ(delay, 28);
    EXPECT_EQ(controller.getGnssSystem(mask), 0);
    EXPECT_EQ(mask, 1);
    EXPECT_EQ(controller.getMinCNo(level), 0);
    EXPECT_EQ(level, 9);
    EXPECT_EQ(controller.getElevationLimit(number), 0);
    EXPECT_EQ(number, 10);
    EXPECT_EQ(controller.getDynamicModel(number, fixMode), 0);
    EXPECT_EQ(number, 2);
    EXPECT_EQ(fixMode, 2);
    EXPECT_EQ(controller.getSurveyMode(word), 0);
    EXPECT_EQ(word, "AUTO");

    EXPECT_EQ(controller.setApplicationDefaults(), 0);
    EXPECT_EQ(controller.getDynamicModel(number, fixMode), 0);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(fixMode, 3);
    EXPECT_EQ(controller.save(), 0);
    EXPECT_EQ(controller.load(), 0);
    EXPECT_EQ(errors(), Lines{});
}

} // namespace
