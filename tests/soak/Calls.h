#pragma once

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

inline int getSolution(Control& control, Arguments, std::string& shown)
{
    std::string solution; // it changes all the time
    const int status = control.getNavsolution("ALL", solution);
    shown.clear();
    return status;
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

inline int setFixed(Control& control, Arguments, std::string&)
{
    return control.setSurveyStatic(-31.9505, 115.8605, 24.5, 1.0);
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

inline int restartHot(Control& control, Arguments, std::string&)
{
    return control.restart(true);
}

} // namespace soak::calls
