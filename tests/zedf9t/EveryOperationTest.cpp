// What every operation of a ZED-F9T's controller makes of a silent receiver and of replies of any length.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "Files.h"
#include "TestClock.h"
#include "WholeRun.h"

using testsupport::CapturedOutput;
using zedtest::Operation;
using Lines = std::vector<std::string>;

namespace
{

using Controller = ubxController_ZEDF9T;

class EveryOperation : public zedtest::WholeRun
{};

INSTANTIATE_TEST_SUITE_P(All, EveryOperation, zedtest::kKinds, zedtest::nameOf);

/// What an operation returns and logs on a silent receiver. Where the two modes differ, by key first.
struct Silent
{
    const char* name;
    Operation run;
    int byKey;
    Lines byKeyLog;
    int legacy;
    Lines legacyLog;
};

// What the log calls the messages and items.
const std::string kDelay = "Antenna cable delay";
const std::string kAntenna = "Antenna setting";
const std::string kJamming = "Enable interference detection";
const std::string kMode = "Receiver mode";
const std::string kLevel = "Minimum satellite signal level for navigation";
const std::string kElevation = "Minimum elevation for a GNSS satellite to be used in navigation";
const std::string kItems = "06 8B: Configuration Items";
const std::string kPrt = "06 00: Port Configuration for UART/USB/SPI/DCC Port";
const std::string kRst = "06 04: Reset Receiver / Clear Backup Data Structures";
const std::string kRate = "06 08: Navigation/Measurement Rate Settings";
const std::string kNavx5 = "06 23: Navigation Engine Expert Settings";
const std::string kNav5 = "06 24: Navigation Engine Settings";
const std::string kTp5 = "06 31: Poll Time Pulse Parameters for Time Pulse 0";
const std::string kTp5OfIndex = "06 31: Poll Time Pulse Parameters";
const std::string kItfm = "06 39: Jamming/Interference Monitor configuration";
const std::string kTmode2 = "06 3D: Time Mode Settings 2";
const std::string kGnss = "06 3E: GNSS system configuration";
const std::string kPvt = "01 07: Navigation Position Velocity Time Solution";
const std::string kPosllh = "01 02: Geodetic Position Solution";
const std::string kSat = "01 35: Satellite Information";
const std::string kVer = "0A 04: Poll Receiver/Software Version";

template <typename Value>
Operation reads(int (Controller::*getter)(Value&))
{
    return [getter](Controller& c) {
        Value value{};
        return (c.*getter)(value);
    };
}

int surveyInfo(Controller& c)
{
    unsigned char mode = 0;
    double number = 0;
    unsigned int duration = 0;
    float limit = 0;
    return c.getSurveyInfo(mode, number, number, number, number, duration, limit);
}

int dynamicModel(Controller& c)
{
    unsigned char model = 0;
    unsigned char fixMode = 0;
    return c.getDynamicModel(model, fixMode);
}

int navsolution(Controller& c)
{
    std::string solution;
    return c.getNavsolution("", solution);
}

const std::vector<Silent> kSilent = {
    {"save", [](auto& c) { return c.save(); }, 0, {}, 0, {}},
    {"load", [](auto& c) { return c.load(); }, 0, {}, 0, {}},
    {"resetUbloxDefaults", [](auto& c) { return c.resetUbloxDefaults(); }, 0, {}, 0, {}},
    {"restart", [](auto& c) { return c.restart(false); }, 0, {}, 0, {}},
    {"setApplicationDefaults", [](auto& c) { return c.setApplicationDefaults(); }, 4, {kPrt}, 4, {kPrt}},
    {"turnOff", [](auto& c) { return c.turnOff(); }, 4, {kDelay, kElevation}, 4, {kGnss, kTp5OfIndex}},
    {"turnOn", [](auto& c) { return c.turnOn(); }, 5, {kDelay, kElevation}, 5, {kGnss, kTp5OfIndex}},
    {"isOn", reads(&Controller::isOn), 4, {kElevation}, 4, {kTp5OfIndex}},
    {"getResetInfo", [](auto& c) { return c.getResetInfo(); }, 4, {kRst}, 4, {kRst}},
    {"getInfo", reads(&Controller::getInfo), 4, {kVer}, 4, {kVer}},
    {"setAntennaDelay", [](auto& c) { return c.setAntennaDelay(28); }, 5, {kDelay}, 5, {kTp5}},
    {"getAntennaDelay", reads(&Controller::getAntennaDelay), 4, {kDelay}, 4, {kTp5}},
    {"setAntennaType", [](auto& c) { return c.setAntennaType("active"); }, 5, {kAntenna}, 4, {kItfm}},
    {"getAntennaType", reads(&Controller::getAntennaType), 4, {kAntenna}, 4, {kItfm}},
    {"setGnssSystem", [](auto& c) { return c.setGnssSystem(1); }, 5, {kDelay}, 5, {kGnss}},
    {"getGnssSystem", reads(&Controller::getGnssSystem), 4, {kDelay}, 4, {kGnss}},
    {"setJammingDetection", [](auto& c) { return c.setJammingDetection(true); }, 5, {kJamming}, 4, {kItfm}},
    {"getJammingDetection", reads(&Controller::getJammingDetection), 4, {kJamming}, 4, {kItfm}},
    {"getNavsolution", navsolution, 4, {kPvt}, 4, {kPvt}},
    {"setSurveyMode", [](auto& c) { return c.setSurveyMode("AUTO"); }, 0, {kPvt, kTmode2}, 0, {kPvt, kTmode2}},
    {"getSurveyMode", reads(&Controller::getSurveyMode), 4, {kMode}, 4, {kTmode2}},
    {"setSurveyStatic", [](auto& c) { return c.setSurveyStatic(45, 7, 300, 1); }, 5, {kMode}, 5, {kTmode2}},
    {"setSurveyAuto", [](auto& c) { return c.setSurveyAuto(); }, 5, {kMode, kMode, kMode}, 5, {kTmode2}},
    {"setSurveyDynamic", [](auto& c) { return c.setSurveyDynamic(); }, 5, {kMode}, 5, {kTmode2}},
    {"getSurveyInfo", surveyInfo, 4, {kTmode2}, 4, {kTmode2}},
    {"getSatelliteInfo", reads(&Controller::getSatelliteInfo), 4, {kSat}, 4, {kSat}},
    {"getNofSatellitesInNavSol", reads(&Controller::getNofSatellitesInNavSol), 4, {kPvt}, 4, {kPvt}},
    {"getDurationConfiguration", reads(&Controller::getDurationConfiguration), 4, {kMode}, 4, {kMode}},
    {"getAccuracyConfiguration", reads(&Controller::getAccuracyConfiguration), 4, {kMode}, 4, {kMode}},
    {"setMinCNo", [](auto& c) { return c.setMinCNo(40); }, 5, {kLevel}, 5, {kNavx5}},
    {"getMinCNo", reads(&Controller::getMinCNo), 4, {kLevel}, 4, {kNavx5}},
    {"setElevationLimit", [](auto& c) { return c.setElevationLimit(10); }, 5, {kElevation}, 0, {}},
    {"getElevationLimit", reads(&Controller::getElevationLimit), 4, {kElevation}, 4, {kNav5}},
    {"setDynamicModel", [](auto& c) { return c.setDynamicModel(2); }, 0, {}, 0, {}},
    {"getDynamicModel", dynamicModel, 4, {kNav5}, 4, {kNav5}},
    {"setFixMode", [](auto& c) { return c.setFixMode(3); }, 0, {}, 0, {}},
    {"setTimeReference", [](auto& c) { return c.setTimeReference("GPS"); }, 5, {kElevation}, 4, {kRate}},
    {"getTimeReference", reads(&Controller::getTimeReference), 4, {kElevation}, 4, {kRate}},
    {"setUtcStandardAuto", [](auto& c) { return c.setUtcStandardAuto(); }, 0, {}, 0, {}},
    {"setUtsStandardTime", [](auto& c) { return c.setUtsStandardTime(1); }, 0, {}, 0, {}},
    {"configureUbxPolling", [](auto& c) { return c.configureUbxPolling(1); }, 0, {}, 0, {}},
    {"configureSBAS", [](auto& c) { return c.configureSBAS(); }, 0, {}, 0, {}},
    {"configureNmeaPolling", [](auto& c) { return c.configureNmeaPolling(1); }, 0, {}, 0, {}},
    {"configurNmeaPollingPartial", [](auto& c) { return c.configurNmeaPollingPartial(1); }, 0, {}, 0, {}},
    {"configureProtocols", [](auto& c) { return c.configureProtocols(); }, 4, {kPrt}, 4, {kPrt}},
    {"configTimePulse", [](auto& c) { return c.configTimePulse(1, 0, true); }, 0, {}, 0, {}},
    {"programGroupDelayCal", [](auto& c) { return c.programGroupDelayCal(1); }, 0, {}, 0, {}},
    {"configPollTest", [](auto& c) { return c.configPollTest(); }, 0, {kItems}, 0, {kItems}},
};

TEST_P(EveryOperation, SilentReceiverIsReportedAndLoggedByEveryOperation)
{
    const std::size_t openBefore = testsupport::openDescriptors();
    silence();
    const testclock::FastClock clock(250);
    for (const Silent& silent : kSilent) {
        SCOPED_TRACE(silent.name);
        const std::size_t before = log().size();
        Lines expected;
        for (const std::string& label : byKey() ? silent.byKeyLog : silent.legacyLog)
            expected.push_back("Did not receive : " + label);
        int status = -1;
        {
            const CapturedOutput errors(STDERR_FILENO);
            status = quietly([&] { return silent.run(controller); });
        }

        EXPECT_EQ(status, byKey() ? silent.byKey : silent.legacy);
        const Lines all = log();
        EXPECT_EQ(Lines(all.begin() + static_cast<std::ptrdiff_t>(before), all.end()), expected);
    }
    EXPECT_EQ(testsupport::openDescriptors(), openBefore);
}

// Every message that is polled.
constexpr std::uint16_t kPolls[] = {0x0102, 0x0107, 0x0135, 0x0600, 0x0604, 0x0608, 0x0611, 0x0623,
                                    0x0624, 0x0631, 0x0639, 0x063D, 0x063E, 0x068B, 0x0A04};

// Whatever the receiver makes of it: nothing is read outside a reply, and nothing stays open.
TEST_P(EveryOperation, RepliesOfAnyLengthAreOutlived)
{
    const std::size_t openBefore = testsupport::openDescriptors();
    for (std::size_t length = 0; length <= 120; length += length < 48 ? 1 : 9) {
        receiver().clearFaults();
        for (const std::uint16_t poll : kPolls)
            receiver().answerWith(poll, testsupport::Bytes(length, 0xFF));
        for (const Silent& operation : kSilent) {
            const int status = quietly([&] { return operation.run(controller); });
            EXPECT_TRUE(status == 0 || status == 1) << operation.name << " with " << length << " bytes: " << status;
        }
    }
    EXPECT_EQ(log(), Lines{});
    EXPECT_EQ(testsupport::openDescriptors(), openBefore);
}

} // namespace
