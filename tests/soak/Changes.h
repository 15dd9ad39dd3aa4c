#pragma once

#include <string>

#include "Operations.h"
#include "Settings.h"
#include "Words.h"

// What operations make of a receiver's settings, and what queries show of them.

namespace soak::changes
{

template <Field field>
void becomesFirst(Settings& settings, Arguments arguments)
{
    settings[field] = arguments.first;
}

template <Field field>
bool isFirst(const Settings& settings, Arguments arguments)
{
    return settings[field] == arguments.first;
}

inline void becomesModels(Settings& settings, Arguments arguments)
{
    settings[dynamicModel] = arguments.first;
    settings[fixMode] = arguments.second;
}

template <long unitsPerMetre>
void becomesSurvey(Settings& settings, Arguments arguments)
{
    settings[timeMode] = 1;
    settings[surveyDuration] = arguments.first;
    settings[surveyLimit] = arguments.second * unitsPerMetre;
}

template <long mode>
bool hasMode(const Settings& settings, Arguments)
{
    return settings[timeMode] == mode;
}

inline bool isSurvey(const Settings& settings, Arguments arguments)
{
    return settings[timeMode] == 1 && settings[surveyDuration] == arguments.first &&
           settings[surveyLimit] == arguments.second * 10000;
}

inline void becomesFixed(Settings& settings, Arguments)
{
    settings[timeMode] = 2;
}

// The message holds the survey's parameters, too.
inline void becomesFixedByMessage(Settings& settings, Arguments)
{
    settings[timeMode] = 2;
    settings[surveyDuration] = 0;
    settings[surveyLimit] = 0;
}

inline void becomesDynamic(Settings& settings, Arguments)
{
    settings[timeMode] = 0;
    settings[surveyDuration] = 0;
    settings[surveyLimit] = 0;
}

// A receiver that is told to do without time mode keeps the rest of the message's fields.
inline void becomesDynamicByMessage(Settings& settings, Arguments)
{
    settings[timeMode] = 0;
}

// The setting of the antenna holds the byte that the detection is read from, and the other way about.
inline void becomesTypeByMessage(Settings& settings, Arguments arguments)
{
    settings[antennaType] = arguments.first;
    settings[jamming] = 0x1E;
}

inline void becomesJammingByMessage(Settings& settings, Arguments arguments)
{
    settings[jamming] = arguments.first != 0 ? 0xAD : 0x2D;
}

inline void becomesSystems(Settings& settings, Arguments arguments)
{
    settings[constellations] = words::kSelections[arguments.first];
}

// The time pulses go along with them, without a cable delay.
inline void becomesSystemsByItems(Settings& settings, Arguments arguments)
{
    becomesSystems(settings, arguments);
    settings[cableDelay] = 0;
}

inline bool areSystems(const Settings& settings, Arguments arguments)
{
    return settings[constellations] == words::kSelections[arguments.first];
}

template <Field field>
std::string showNumber(const Settings& settings)
{
    return std::to_string(settings[field]);
}

inline std::string showModels(const Settings& settings)
{
    return std::to_string(settings[dynamicModel]) + " " + std::to_string(settings[fixMode]);
}

inline std::string showMode(const Settings& settings)
{
    return words::kTimingModes[settings[timeMode]];
}

inline std::string showReference(const Settings& settings)
{
    return words::kTimeReferences[settings[timeReference]];
}

inline std::string showType(const Settings& settings)
{
    return words::kAntennaTypes[settings[antennaType]];
}

inline std::string showJammingByMessage(const Settings& settings)
{
    return settings[jamming] >= 0x80 ? "1" : "0";
}

} // namespace soak::changes
