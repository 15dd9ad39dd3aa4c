// Through the facade every operation does what it does on the controller of the receiver's model: the same frames, the
// same result, the same values. The arguments differ from each other, so that none can change place.

#include <ubxController_NEOM8T.h>
#include <ubxController_ZEDF9T.h>

#include <functional>
#include <regex>
#include <set>
#include <sstream>
#include <type_traits>

#include <gtest/gtest.h>
#include <unistd.h>

#include "CapturedOutput.h"
#include "FacadeTest.h"
#include "Frames.h"

using namespace testsupport;

namespace
{

using Control = UBXControlInterface;

/// A result and what was written into the references, in words.
template <typename... Values>
std::string told(int result, const Values&... values)
{
    std::ostringstream text;
    text.precision(12);
    text << result;
    ((text << " | " << +values), ...);
    return text.str();
}

std::string toldText(int result, const std::string& value)
{
    return std::to_string(result) + " | " + value;
}

struct Operation
{
    const char* name;
    std::function<std::string(Control&)> run;
};

template <typename Value>
std::function<std::string(Control&)> getter(int (Control::*operation)(Value&), Value before)
{
    return [operation, before](Control& control) {
        Value value = before;
        const int result = (control.*operation)(value);
        if constexpr (std::is_same_v<Value, std::string>) {
            return toldText(result, value);
        } else {
            return told(result, value);
        }
    };
}

template <typename... Parameters, typename... Arguments>
std::function<std::string(Control&)> setter(int (Control::*operation)(Parameters...), Arguments... arguments)
{
    return [operation, arguments...](Control& control) { return told((control.*operation)(arguments...)); };
}

std::string surveyInfo(Control& control)
{
    unsigned char mode = 9;
    double latitude = 9;
    double longitude = 9;
    double height = 9;
    double accuracy = 9;
    unsigned int duration = 9;
    float limit = 9;
    const int result = control.getSurveyInfo(mode, latitude, longitude, height, accuracy, duration, limit);
    return told(result, mode, latitude, longitude, height, accuracy, duration, limit);
}

std::string dynamicModel(Control& control)
{
    unsigned char model = 9;
    unsigned char fixMode = 9;
    const int result = control.getDynamicModel(model, fixMode);
    return told(result, model, fixMode);
}

std::string solution(Control& control)
{
    std::string text;
    const int result = control.getNavsolution("POS", text);
    return toldText(result, text);
}

/// Not what it says, which changes, but that it says what log lines begin with.
std::string stampForm(Control& control)
{
    return std::regex_replace(control.timeStamp(), std::regex("[0-9]"), "9");
}

/// Without setAntennaPower, which the facade does not forward.
std::vector<Operation> operations()
{
    using Text = std::string;
    using Mask = unsigned short;
    using Byte = unsigned char;

    return {
        {"Init", setter(&Control::Init)},
        {"save", setter(&Control::save)},
        {"load", setter(&Control::load)},
        {"resetFactoryDefaults", setter(&Control::resetFactoryDefaults)},
        {"resetUbloxDefaults", setter(&Control::resetUbloxDefaults)},
        {"restart, hot", setter(&Control::restart, true)},
        {"restart, cold", setter(&Control::restart, false)},
        {"setDefaultConfiguration", setter(&Control::setDefaultConfiguration)},
        {"setApplicationDefaults", setter(&Control::setApplicationDefaults)},
        {"turnOff", setter(&Control::turnOff)},
        {"turnOn", setter(&Control::turnOn)},
        {"isOn", getter<bool>(&Control::isOn, false)},
        {"getResetInfo", setter(&Control::getResetInfo)},
        {"getInfo", getter<Text>(&Control::getInfo, "before")},
        {"setAntennaDelay", setter(&Control::setAntennaDelay, -1234)},
        {"getAntennaDelay", getter<int>(&Control::getAntennaDelay, 9)},
        {"setAntennaType", setter(&Control::setAntennaType, Text("passive"))},
        {"getAntennaType", getter<Text>(&Control::getAntennaType, "before")},
        {"setGnssSystem, one band", setter<Mask, bool>(&Control::setGnssSystem, Mask{65}, false)},
        {"setGnssSystem, two bands", setter<Mask, bool>(&Control::setGnssSystem, Mask{65}, true)},
        {"setGnssSystem", setter<Mask>(&Control::setGnssSystem, Mask{5})},
        {"getGnssSystem", getter<Mask>(&Control::getGnssSystem, Mask{0x8000})},
        {"setJammingDetection, on", setter(&Control::setJammingDetection, true)},
        {"setJammingDetection, off", setter(&Control::setJammingDetection, false)},
        {"getJammingDetection", getter<bool>(&Control::getJammingDetection, true)},
        {"getNavsolution", solution},
        {"setSurveyMode", setter(&Control::setSurveyMode, Text("STATIC"))},
        {"getSurveyMode", getter<Text>(&Control::getSurveyMode, "before")},
        {"setSurveyStatic", setter(&Control::setSurveyStatic, 47.25, -122.5, 455.75, 0.5)},
        {"setSurveyAuto, given", setter<unsigned int, float>(&Control::setSurveyAuto, 600U, 2.5F)},
        {"setSurveyAuto", setter<>(&Control::setSurveyAuto)},
        {"setSurveyDynamic", setter(&Control::setSurveyDynamic)},
        {"getSurveyInfo", surveyInfo},
        {"getSatelliteInfo", getter<Text>(&Control::getSatelliteInfo, "before")},
        {"getNofSatellitesInNavSol", getter<Byte>(&Control::getNofSatellitesInNavSol, Byte{9})},
        {"setMinCNo", setter(&Control::setMinCNo, static_cast<signed char>(33))},
        {"getMinCNo", getter<signed char>(&Control::getMinCNo, static_cast<signed char>(-9))},
        {"setElevationLimit", setter(&Control::setElevationLimit, Byte{22})},
        {"getElevationLimit", getter<Byte>(&Control::getElevationLimit, Byte{9})},
        {"setDynamicModel", setter<Byte>(&Control::setDynamicModel, Byte{4})},
        {"setDynamicModel and fix mode", setter<Byte, Byte>(&Control::setDynamicModel, Byte{6}, Byte{1})},
        {"getDynamicModel", dynamicModel},
        {"setFixMode", setter(&Control::setFixMode, Byte{2})},
        {"setTimeReference", setter(&Control::setTimeReference, Text("UTC"))},
        {"getTimeReference", getter<Text>(&Control::getTimeReference, "before")},
        {"setRxMode", setter(&Control::setRxMode, Text("POWERSAVE"))},
        {"getRxMode", getter<Text>(&Control::getRxMode, "before")},
        {"setUtcStandardAuto", setter(&Control::setUtcStandardAuto)},
        {"setUtsStandardTime", setter(&Control::setUtsStandardTime, static_cast<signed char>(64))},
        {"configureUbxPolling", setter(&Control::configureUbxPolling, Byte{3})},
        {"configureSBAS", setter(&Control::configureSBAS)},
        {"configureNmeaPolling", setter(&Control::configureNmeaPolling, Byte{7})},
        {"configurNmeaPollingPartial", setter(&Control::configurNmeaPollingPartial, Byte{8})},
        {"configureProtocols", setter(&Control::configureProtocols)},
        {"configExtendedPowerManagment", setter(&Control::configExtendedPowerManagment)},
        {"getUtcGrid", setter(&Control::getUtcGrid, Mask{64})},
        {"configTimePulse", setter(&Control::configTimePulse, Mask{64}, Byte{1}, false)},
        {"timeStamp", stampForm},
        {"programGroupDelayCal", setter(&Control::programGroupDelayCal, -77)},
        {"setZedf9tConfigurationInterfaceMode", setter(&Control::setZedf9tConfigurationInterfaceMode, false)},
    };
}

/// Refused texts: the facade hands on what it is given, whatever that is.
std::vector<Operation> refusals()
{
    return {
        {"setAntennaType", setter(&Control::setAntennaType, std::string("Active"))},
        {"setTimeReference", setter(&Control::setTimeReference, std::string("utc"))},
        {"setSurveyMode", setter(&Control::setSurveyMode, std::string("static"))},
        {"getNavsolution",
         [](Control& control) {
             std::string text = "before";
             const int result = control.getNavsolution("all", text);
             return toldText(result, text);
         }},
    };
}

class Forwarding : public FacadeTest
{
protected:
    explicit Forwarding(ubxsim::SimulatorOptions options = quietReceiver(ubxsim::Model::neoM8t))
        : FacadeTest(std::move(options))
    {
        // A receiver that stands still.
        receiver().answerWith(0x0107,
                              bytes(payload(92, {{20, "03"}, {23, "11"}, {24, "00 E1 F5 05"}, {28, "00 C2 EB 0B"}})));
        receiver().answerWith(0x0102,
                              bytes(payload(28, {{4, "00 E1 F5 05"}, {8, "00 C2 EB 0B"}, {12, "10 27 00 00"}})));
        receiver().answerWith(0x0135, bytes(payload(20, {{5, "01"}, {8, "06 0C 2A"}, {16, "0F"}})));
        receiver().answerWith(0x0604, bytes("01 02 03 04")); // no real one would
        viaFacade = facade();
        takeFrames();
    }

    /// What an operation sent, printed and gave back.
    Lines traceOf(const Operation& operation, Control& control)
    {
        const CapturedOutput output(STDOUT_FILENO);
        Lines trace{operation.run(control)};
        trace.push_back(output.text());
        for (const std::string& frame : takeFrames())
            trace.push_back(frame);
        return trace;
    }

    void expectSame(const std::vector<Operation>& all, Control& model)
    {
        for (const Operation& operation : all) {
            traceOf(operation, model); // what it changes in the receiver is changed from now on

            const Lines direct = traceOf(operation, model);
            const Lines forwarded = traceOf(operation, *viaFacade);

            EXPECT_EQ(forwarded, direct) << operation.name;
        }
    }

    std::unique_ptr<ubxController> viaFacade;
};

class ForwardingToAZedF9t : public Forwarding
{
protected:
    ForwardingToAZedF9t() : Forwarding(quietReceiver(ubxsim::Model::zedF9t)) {}
};

TEST_F(Forwarding, CoversEveryOperationButAntennaPower)
{
    std::set<std::string> names;
    for (const Operation& operation : operations()) {
        names.insert(std::regex_replace(operation.name, std::regex("(,| and) .*"), ""));
    }

    EXPECT_EQ(names.size(), 57U - 3U) << "three names stand for two operations each";
}

TEST_F(Forwarding, ReachesTheNeoM8tWithEveryOperation)
{
    ubxController_NEOM8T model;

    expectSame(operations(), model);
    expectSame(refusals(), model);
}

TEST_F(ForwardingToAZedF9t, ReachesItWithEveryOperationThroughTheConfigurationInterface)
{
    ubxController_ZEDF9T model("TIM 2.20", true);

    expectSame(operations(), model);
    expectSame(refusals(), model);
}

TEST_F(ForwardingToAZedF9t, ReachesItWithEveryOperationThroughLegacyMessages)
{
    ubxController_ZEDF9T model("TIM 2.20", false);
    viaFacade->setZedf9tConfigurationInterfaceMode(false);

    expectSame(operations(), model);
}

TEST_F(ForwardingToAZedF9t, HandsOnTheMode)
{
    signed char minCNo = 0;
    viaFacade->setZedf9tConfigurationInterfaceMode(false);
    viaFacade->getMinCNo(minCNo);
    viaFacade->setZedf9tConfigurationInterfaceMode(true);
    viaFacade->getMinCNo(minCNo);

    expectFrames({"B5 62 06 23 00 00 29 81", "B5 62 06 8B 08 00 00 00 00 00 A3 00 11 20 6D 5F"});
}

TEST_F(Forwarding, SendsAWholeCommandAndItsReadBack)
{
    EXPECT_EQ(viaFacade->setMinCNo(40), 0);

    expectFrames({
        "B5 62 06 23 28 00 02 00 08 00 00 00 00 00 00 00 00 00 28 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
        "00 "
        "00 00 00 00 00 00 00 00 00 83 59",
        "B5 62 06 23 00 00 29 81",
    });
}

TEST_F(Forwarding, WritesErrorsToTheLogOfTheModel)
{
    std::string text;

    EXPECT_EQ(viaFacade->getNavsolution("all", text), 1);

    EXPECT_EQ(log("/var/log/rxtool-neom8t-errors.log"), (Lines{"Parameter invalid: all"}));
    EXPECT_EQ(facadeErrors(), Lines{});
}

TEST_F(Forwarding, OfTheTimeStampGivesTimeOfDayAndMilliseconds)
{
    const std::string stamp = viaFacade->timeStamp();

    EXPECT_TRUE(std::regex_match(stamp, std::regex("([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9]_[0-9]{3}: "))) << stamp;
}

TEST_F(Forwarding, WorksThroughAReferenceToTheInterface)
{
    UBXControlInterface& control = *viaFacade;
    int delay = 0;

    EXPECT_EQ(control.setAntennaDelay(28), 0);
    EXPECT_EQ(control.getAntennaDelay(delay), 0);

    EXPECT_EQ(delay, 28);
}

TEST_F(Forwarding, LeavesNothingOpenAfterwards)
{
    const std::size_t before = openDescriptors();

    const CapturedOutput output(STDOUT_FILENO);
    for (const Operation& operation : operations())
        operation.run(*viaFacade);

    EXPECT_EQ(openDescriptors(), before + 2) << "what the captured output takes";
}

} // namespace
