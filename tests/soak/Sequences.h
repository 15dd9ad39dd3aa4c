#pragma once

#include "Changes.h"

// What the operations of several steps do on the line, in their order.

namespace soak::sequences
{

using namespace changes;

/// Of a receiver's survey and position accuracies, as it keeps them.
constexpr long kMillimetres = 1000, kTenths = 10000;

// The operations that the composite ones call, with messages.

inline Steps setsDelay()
{
    return {set(kTp5, becomesTemplate, remembersDelay), query(kTp5, isFirst<cableDelay>)};
}

inline Steps setsPulse()
{
    return {set(kTp5, becomesTemplate, remembersPulse)};
}

inline Steps setsSystems(Change change)
{
    return together(
        {{set(kGnss, change)}, with({0, 1}, setsPulse()), with({1, 1}, setsPulse()), {query(kGnss, areSystems)}});
}

inline Steps setsMinCNo()
{
    return {set(kNavx5, becomesFirst<minCNo>), query(kNavx5, isFirst<minCNo>)};
}

inline Steps setsElevation()
{
    return {set(kNav5, becomesFirst<elevation>)};
}

template <long unitsPerMetre>
Steps setsSurvey()
{
    return {set(kTmode2, becomesSurveyByMessage<unitsPerMetre>), query(kTmode2, is<timeMode, 1>)};
}

inline Steps setsModels()
{
    return {set(kNav5, becomesModels)};
}

inline Steps setsSbas()
{
    return {set(kSbas, becomes<sbasSatellites, 0x37A3E9>)};
}

inline Steps setsAutomaticUtc()
{
    return {set(kNav5, becomes<utcStandard, 0>)};
}

inline Steps setsSentences()
{
    return {times<7>(set(kMsg, becomesSentences))};
}

inline Steps setsProtocols()
{
    return {modify(kPrt, becomes<outProtocols, 3>)};
}

// The same with items.

inline Steps setsPulseByItems()
{
    return {set(kValset, becomesPulseByItems)};
}

inline Steps setsSystemsByItems()
{
    Step systems = set(kValset, becomesSystemsAndBandsByItems);
    // BeiDou has a setting of its own.
    systems.frames = [](Arguments arguments) { return (words::kSelections[arguments.first] & 8) != 0 ? 2U : 1U; };
    return together(
        {{systems}, with({0, 1}, setsPulseByItems()), with({1, 1}, setsPulseByItems()), {itemQuery(areSystems)}});
}

inline Steps setsSurveyByItems()
{
    return {set(kValset, becomesSurveyByItems), itemQuery(is<timeMode, 1>), itemQuery(isFirst<surveyDuration>),
            itemQuery([](const Settings& settings, Arguments arguments) {
                return settings[surveyLimit] == arguments.second * 10000;
            })};
}

// The time pulse is switched only when the constellations can't be read, and they are not read to be looked at.

inline Steps switchesPulse(long active, Steps pulse)
{
    pulse = with({1, active}, pulse);
    pulse[0].when = Step::When::afterFailure;
    return pulse;
}

inline Steps turnsOff(const Step& readsSystems, const Steps& pulse, const Step& looks)
{
    return together({{readsSystems}, switchesPulse(0, pulse), {set(kRst), intoNumber(looks)}});
}

inline Steps turnsOn(const Step& readsSystems, const Steps& pulse, const Step& looks)
{
    return together({{set(kRst), readsSystems}, switchesPulse(1, pulse), {intoNumber(looks)}});
}

inline Steps changesMode()
{
    return {note(kPvt, notesPosition), note(kTmode2, notesSurvey), set(kTmode2, becomesModeWithWhatWasFound)};
}

inline Steps readsSurvey()
{
    return {query(kTmode2), only(Step::When::afterSuccess, query(kPosllh))};
}

// Composite operations. They go by messages whatever the drive.

template <long unitsPerMetre>
Steps setsDefaults(Change changesSystems)
{
    return together({setsProtocols(), with({28}, setsDelay()), with({0, 1}, setsSystems(changesSystems)),
                     with({9}, setsMinCNo()), with({10}, setsElevation()), with({2, 2}, setsModels()),
                     with({10800, 1}, setsSurvey<unitsPerMetre>()), setsSbas(), setsAutomaticUtc()});
}

/// @param output  what it switches on and off between the clearing and the defaults.
inline Steps resetsToFactory(const Steps& output, const Steps& defaults)
{
    return together({{set(kCfg, clears)}, output, defaults, {set(kCfg, saves)}});
}

} // namespace soak::sequences
