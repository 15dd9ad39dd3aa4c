#pragma once

#include <cmath>
#include <string>

#include "Operations.h"
#include "Words.h"

// How the operations are called: with numbers as arguments, and showing text.

namespace soak::calls
{

using Control = UBXControlInterface;

template <typename Number, int (Control::*operation)(Number&)>
int getNumber(Control& control, Arguments, std::string& shown)
{
    Number value{};
    const int status = (control.*operation)(value);
    shown = std::to_string(value);
    return status;
}

template <int (Control::*operation)(std::string&)>
int getText(Control& control, Arguments, std::string& shown)
{
    return (control.*operation)(shown);
}

template <typename Number, int (Control::*operation)(Number)>
int setNumber(Control& control, Arguments arguments, std::string&)
{
    return (control.*operation)(static_cast<Number>(arguments.first));
}

template <int (Control::*operation)()>
int run(Control& control, Arguments, std::string&)
{
    return (control.*operation)();
}

inline int getModels(Control& control, Arguments, std::string& shown)
{
    unsigned char model = 0;
    unsigned char fixMode = 0;
    const int status = control.getDynamicModel(model, fixMode);
    shown = std::to_string(model) + " " + std::to_string(fixMode);
    return status;
}

inline int setModels(Control& control, Arguments arguments, std::string&)
{
    return control.setDynamicModel(static_cast<unsigned char>(arguments.first),
                                   static_cast<unsigned char>(arguments.second));
}

inline int getSolution(Control& control, Arguments arguments, std::string&)
{
    std::string solution; // it changes all the time
    return control.getNavsolution(words::kSolutions[arguments.first], solution);
}

inline int getSatellites(Control& control, Arguments, std::string&)
{
    std::string satellites;
    return control.getSatelliteInfo(satellites);
}

inline int getVersions(Control& control, Arguments, std::string&)
{
    std::string versions;
    return control.getInfo(versions);
}

inline int getCount(Control& control, Arguments, std::string&)
{
    unsigned char count = 0;
    return control.getNofSatellitesInNavSol(count);
}

inline int setSurvey(Control& control, Arguments arguments, std::string&)
{
    return control.setSurveyAuto(static_cast<unsigned int>(arguments.first), static_cast<float>(arguments.second));
}

inline int setFixed(Control& control, Arguments arguments, std::string&)
{
    return control.setSurveyStatic(-31.9505, 115.8605, 24.5, static_cast<double>(arguments.first));
}

inline int setMode(Control& control, Arguments arguments, std::string&)
{
    return control.setSurveyMode(words::kTimingModes[arguments.first]);
}

inline int getSurvey(Control& control, Arguments, std::string& shown)
{
    unsigned char mode = 0;
    double latitude = 0, longitude = 0, height = 0, accuracy = 0;
    unsigned int duration = 0;
    float limit = 0;
    const int status = control.getSurveyInfo(mode, latitude, longitude, height, accuracy, duration, limit);
    shown = std::to_string(mode) + " " + std::to_string(std::lround(accuracy * 1000)) + " " + std::to_string(duration) +
            " " + std::to_string(std::lround(limit * 1000)) + " " + std::to_string(latitude) + " " +
            std::to_string(longitude) + " " + std::to_string(height);
    return status;
}

inline int setReference(Control& control, Arguments arguments, std::string&)
{
    return control.setTimeReference(words::kTimeReferences[arguments.first]);
}

inline int setType(Control& control, Arguments arguments, std::string&)
{
    return control.setAntennaType(words::kAntennaTypes[arguments.first]);
}

inline int setSystems(Control& control, Arguments arguments, std::string&)
{
    return control.setGnssSystem(words::kSelections[arguments.first]);
}

inline int setSystemsAndBands(Control& control, Arguments arguments, std::string&)
{
    return control.setGnssSystem(words::kSelections[arguments.first], arguments.second != 0);
}

inline int setPulse(Control& control, Arguments arguments, std::string&)
{
    return control.configTimePulse(1, static_cast<unsigned char>(arguments.first), arguments.second != 0);
}

inline int setModel(Control& control, Arguments arguments, std::string&)
{
    return control.setDynamicModel(static_cast<unsigned char>(arguments.first));
}

inline int setRxMode(Control& control, Arguments arguments, std::string&)
{
    return control.setRxMode(words::kRxModes[arguments.first]);
}

inline int setStandard(Control& control, Arguments arguments, std::string&)
{
    return control.setUtsStandardTime(words::kStandards[arguments.first]);
}

inline int setPower(Control& control, Arguments arguments, std::string&)
{
    return control.setAntennaPower(arguments.first != 0 ? "ON" : "OFF");
}

inline int restart(Control& control, Arguments arguments, std::string&)
{
    return control.restart(arguments.first != 0);
}

/// An argument that is out of range, or a word that is none.
inline int refused(Control& control, Arguments arguments, std::string& shown)
{
    switch (arguments.first) {
    case 0:
        return control.setMinCNo(51);
    case 1:
        return control.setElevationLimit(61);
    case 2:
        return control.setAntennaDelay(32768);
    case 3:
        return control.setSurveyAuto(30000001, 1);
    case 4:
        return control.setSurveyStatic(-31.9505, 115.8605, 24.5, 0);
    case 5:
        return control.setSurveyMode("static");
    case 6:
        return control.setTimeReference("utc");
    case 7:
        return control.setAntennaType("Active");
    default:
        return control.getNavsolution("NAV", shown);
    }
}

} // namespace soak::calls
