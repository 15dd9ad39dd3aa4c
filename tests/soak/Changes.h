#pragma once

#include <string>

#include "Steps.h"
#include "Words.h"

// What operations make of a receiver's settings, and what queries show of them.

namespace soak::changes
{

constexpr long kFixedLatitude = -319505000, kFixedLongitude = 1158605000, kFixedHeight = 2450;

template <Field field>
void becomesFirst(Knowledge& knowledge, Arguments arguments)
{
    knowledge.settings[field] = arguments.first;
}

template <Field field, long value>
void becomes(Knowledge& knowledge, Arguments)
{
    knowledge.settings[field] = value;
}

template <Field field>
bool isFirst(const Settings& settings, Arguments arguments)
{
    return settings[field] == arguments.first;
}

template <Field field, long value>
bool is(const Settings& settings, Arguments)
{
    return settings[field] == value;
}

inline void saves(Knowledge& knowledge, Arguments)
{
    knowledge.saved = knowledge.settings;
}

inline void loads(Knowledge& knowledge, Arguments)
{
    knowledge.settings = knowledge.saved;
}

// The present settings stay until they are loaded.
inline void clears(Knowledge& knowledge, Arguments)
{
    knowledge.saved = knowledge.factory;
}

inline void becomesModels(Knowledge& knowledge, Arguments arguments)
{
    knowledge.settings[dynamicModel] = arguments.first;
    knowledge.settings[fixMode] = arguments.second;
}

// The mode decides what the message's coordinates are. The other sort stays as it was.
inline void becomesMode(Settings& settings, long mode, const Settings& fields)
{
    settings[timeMode] = mode;
    settings[positionType] = mode == 2 ? 1 : 0;
    settings[mode == 2 ? latitude : ecefX] = fields[latitude];
    settings[mode == 2 ? longitude : ecefY] = fields[longitude];
    settings[mode == 2 ? height : ecefZ] = fields[height];
    for (const Field field : {positionAccuracy, surveyDuration, surveyLimit})
        settings[field] = fields[field];
}

template <long unitsPerMetre>
void becomesSurveyByMessage(Knowledge& knowledge, Arguments arguments)
{
    Settings fields{};
    fields[surveyDuration] = arguments.first;
    fields[surveyLimit] = arguments.second * unitsPerMetre;
    becomesMode(knowledge.settings, 1, fields);
}

template <long unitsPerMetre>
void becomesFixedByMessage(Knowledge& knowledge, Arguments arguments)
{
    Settings fields{};
    fields[latitude] = kFixedLatitude;
    fields[longitude] = kFixedLongitude;
    fields[height] = kFixedHeight;
    fields[positionAccuracy] = arguments.first * unitsPerMetre;
    becomesMode(knowledge.settings, 2, fields);
}

inline void becomesSurveyByItems(Knowledge& knowledge, Arguments arguments)
{
    knowledge.settings[timeMode] = 1;
    knowledge.settings[surveyDuration] = arguments.first;
    knowledge.settings[surveyLimit] = arguments.second * 10000;
}

// The accuracy goes out in millimetres, and its item holds tenths.
inline void becomesFixedByItems(Knowledge& knowledge, Arguments arguments)
{
    Settings& settings = knowledge.settings;
    settings[timeMode] = 2;
    settings[positionType] = 1;
    settings[latitude] = kFixedLatitude;
    settings[longitude] = kFixedLongitude;
    settings[height] = kFixedHeight;
    settings[positionAccuracy] = arguments.first * 1000;
}

inline void becomesDynamicByItems(Knowledge& knowledge, Arguments)
{
    knowledge.settings[timeMode] = 0;
    knowledge.settings[surveyDuration] = 0;
    knowledge.settings[surveyLimit] = 0;
}

// The longitude and latitude go on as they came, in the order in which the receiver reports them: each becomes the
// other.
inline void notesPosition(Knowledge& knowledge, Arguments)
{
    knowledge.found[latitude] = words::kLongitude;
    knowledge.found[longitude] = words::kLatitude;
    knowledge.found[height] = words::kHeightCm;
}

inline void notesSurvey(Knowledge& knowledge, Arguments)
{
    for (const Field field : {positionAccuracy, surveyDuration, surveyLimit})
        knowledge.found[field] = knowledge.settings[field];
}

// A receiver that is told to do without time mode keeps the rest of the message's fields.
inline void becomesModeWithWhatWasFound(Knowledge& knowledge, Arguments arguments)
{
    if (arguments.first == 0) {
        knowledge.settings[timeMode] = 0;
    } else {
        becomesMode(knowledge.settings, arguments.first, knowledge.found);
    }
}

// The setting of the antenna holds the byte that the detection is read from, and the other way about.
inline void becomesTypeByMessage(Knowledge& knowledge, Arguments arguments)
{
    knowledge.settings[antennaType] = arguments.first;
    knowledge.settings[jammingByte] = 0x1E;
}

inline void becomesJammingByMessage(Knowledge& knowledge, Arguments arguments)
{
    knowledge.settings[jamming] = 0;
    knowledge.settings[jammingByte] = arguments.first != 0 ? 0xAD : 0x2D;
}

inline void becomesSystems(Knowledge& knowledge, Arguments arguments)
{
    knowledge.settings[constellations] = words::kSelections[arguments.first];
}

// With messages the second band is set for every constellation, with items for those that are on.
inline void becomesSystemsAndBandsByMessage(Knowledge& knowledge, Arguments arguments)
{
    becomesSystems(knowledge, arguments);
    knowledge.settings[secondBand] = arguments.second;
}

inline void becomesSystemsAndBandsByItems(Knowledge& knowledge, Arguments arguments)
{
    becomesSystems(knowledge, arguments);
    knowledge.settings[secondBand] = words::kSelections[arguments.first] & arguments.second;
}

inline bool areSystems(const Settings& settings, Arguments arguments)
{
    return settings[constellations] == words::kSelections[arguments.first];
}

inline void remembersDelay(Knowledge& knowledge, Arguments arguments)
{
    knowledge.pulseTemplate.delay = arguments.first;
}

inline void remembersPulse(Knowledge& knowledge, Arguments arguments)
{
    knowledge.pulseTemplate.pulse = arguments.first;
    knowledge.pulseTemplate.active = arguments.second;
}

inline void becomesTemplate(Knowledge& knowledge, Arguments)
{
    const PulseTemplate& sent = knowledge.pulseTemplate;
    knowledge.settings[cableDelay] = sent.delay;
    knowledge.settings[sent.pulse == 0 ? firstPulse : secondPulse] = sent.active;
}

inline void becomesPulseByItems(Knowledge& knowledge, Arguments arguments)
{
    knowledge.settings[cableDelay] = 0;
    knowledge.settings[arguments.first == 0 ? firstPulse : secondPulse] = arguments.second;
}

// Those of GPS, Galileo, BeiDou and GLONASS alone.
inline void becomesStandardByMessage(Knowledge& knowledge, Arguments arguments)
{
    constexpr long kStandards[] = {3, 5, 7, 6};
    knowledge.settings[utcStandard] = kStandards[arguments.first];
}

// The items know 3 only; what goes out for the first three, 1, 2 and 4, is refused.
inline void becomesStandardByItems(Knowledge& knowledge, Arguments arguments)
{
    if (arguments.first == 3) knowledge.settings[utcStandard] = 3;
}

inline void becomesSentences(Knowledge& knowledge, Arguments arguments)
{
    knowledge.settings[gsaRate] = arguments.first;
    knowledge.settings[ggaRate] = arguments.first;
}

inline void becomesFewSentences(Knowledge& knowledge, Arguments arguments)
{
    knowledge.settings[gsaRate] = 0;
    knowledge.settings[ggaRate] = arguments.first;
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

// Messages read only what they write; an item may have set more.
inline std::string showReferenceByMessage(const Settings& settings)
{
    return settings[timeReference] < 2 ? showReference(settings) : "";
}

inline std::string showType(const Settings& settings)
{
    return words::kAntennaTypes[settings[antennaType]];
}

inline std::string showJammingByMessage(const Settings& settings)
{
    return settings[jammingByte] >= 0x80 ? "1" : "0";
}

inline std::string showRxMode(const Settings& settings)
{
    return words::kRxModes[settings[rxMode] == 4 ? 2 : settings[rxMode]];
}

inline void becomesRxMode(Knowledge& knowledge, Arguments arguments)
{
    knowledge.settings[rxMode] = arguments.first == 2 ? 4 : arguments.first;
}

/// Mode, accuracies in mm, duration, and where the receiver is.
template <long unitsPerMillimetre>
std::string showSurvey(const Settings& settings)
{
    return std::to_string(settings[timeMode]) + " " + std::to_string(settings[positionAccuracy] / unitsPerMillimetre) +
           " " + std::to_string(settings[surveyDuration]) + " " +
           std::to_string(settings[surveyLimit] / unitsPerMillimetre) + " " + words::kShownPosition;
}

} // namespace soak::changes
