#include "queries/Asking.h"

namespace fuzz
{

const std::vector<Operation>& operations()
{
    using Control = UBXControlInterface;
    static const std::vector<Operation> all = {
        [](Control& control) { return control.save(); },
        [](Control& control) { return control.load(); },
        [](Control& control) { return control.resetFactoryDefaults(); },
        [](Control& control) { return control.resetUbloxDefaults(); },
        [](Control& control) { return control.restart(true); },
        [](Control& control) { return control.setDefaultConfiguration(); },
        [](Control& control) { return control.setApplicationDefaults(); },
        [](Control& control) { return control.turnOff(); },
        [](Control& control) { return control.turnOn(); },
        [](Control& control) { return control.getResetInfo(); },
        [](Control& control) { return control.setAntennaDelay(-5); },
        [](Control& control) { return control.setAntennaType("active"); },
        [](Control& control) { return control.setGnssSystem(72, true); },
        [](Control& control) { return control.setGnssSystem(10, false); },
        [](Control& control) { return control.setGnssSystem(1); },
        [](Control& control) { return control.setJammingDetection(true); },
        [](Control& control) { return control.setSurveyMode("AUTO"); },
        [](Control& control) { return control.setSurveyMode("STATIC"); },
        [](Control& control) { return control.setSurveyMode("DYNAMIC"); },
        [](Control& control) { return control.setSurveyStatic(-31.9505, 115.8605, 24.5, 0.05); },
        [](Control& control) { return control.setSurveyAuto(10800, 0.01F); },
        [](Control& control) { return control.setSurveyAuto(); },
        [](Control& control) { return control.setSurveyDynamic(); },
        [](Control& control) { return control.setMinCNo(40); },
        [](Control& control) { return control.setElevationLimit(10); },
        [](Control& control) { return control.setDynamicModel(2); },
        [](Control& control) { return control.setDynamicModel(2, 3); },
        [](Control& control) { return control.setFixMode(3); },
        [](Control& control) { return control.setTimeReference("GPS"); },
        [](Control& control) { return control.setRxMode("POWERSAVE"); },
        [](Control& control) { return control.setUtcStandardAuto(); },
        [](Control& control) { return control.setUtsStandardTime(65); },
        [](Control& control) { return control.configureUbxPolling(1); },
        [](Control& control) { return control.configureSBAS(); },
        [](Control& control) { return control.configureNmeaPolling(1); },
        [](Control& control) { return control.configurNmeaPollingPartial(1); },
        [](Control& control) { return control.configureProtocols(); },
        [](Control& control) { return control.configExtendedPowerManagment(); },
        [](Control& control) { return control.configTimePulse(1, 1, true); },
        [](Control& control) { return control.programGroupDelayCal(-20); },
    };
    return all;
}

} // namespace fuzz
