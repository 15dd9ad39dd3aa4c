#include "Operations.h"

#include "Calls.h"
#include "Sequences.h"

// All operations of the interface are here, but for three that have nothing to do with a receiver and can't fail:
// getUtcGrid and timeStamp reckon, and setZedf9tConfigurationInterfaceMode makes the two drives of a ZED-F9T.

namespace soak
{

namespace
{

using namespace calls;
using namespace changes;
using namespace sequences;

// A range that begins at 1 keeps clear of what an empty reply reads as.

const auto kGetMinCNo = getNumber<signed char, &Control::getMinCNo>;
const auto kSetMinCNo = setNumber<signed char, &Control::setMinCNo>;
const auto kGetElevation = getNumber<unsigned char, &Control::getElevationLimit>;
const auto kSetElevation = setNumber<unsigned char, &Control::setElevationLimit>;
const auto kGetDelay = getNumber<int, &Control::getAntennaDelay>;
const auto kSetDelay = setNumber<int, &Control::setAntennaDelay>;
const auto kGetMode = getText<&Control::getSurveyMode>;
const auto kSetDynamic = run<&Control::setSurveyDynamic>;
const auto kGetReference = getText<&Control::getTimeReference>;
const auto kGetSystems = getNumber<unsigned short, &Control::getGnssSystem>;
const auto kGetType = getText<&Control::getAntennaType>;
const auto kGetJamming = getNumber<bool, &Control::getJammingDetection>;
const auto kSetJamming = setNumber<bool, &Control::setJammingDetection>;
const auto kIsOn = getNumber<bool, &Control::isOn>;
const auto kGetRxMode = getText<&Control::getRxMode>;
const auto kSetSolutionRates = setNumber<unsigned char, &Control::configureUbxPolling>;
const auto kSetSentences = setNumber<unsigned char, &Control::configureNmeaPolling>;
const auto kSetFewSentences = setNumber<unsigned char, &Control::configurNmeaPollingPartial>;
const auto kSetGroupDelay = setNumber<int, &Control::programGroupDelayCal>;
const auto kSetDefaultSurvey = run<static_cast<int (Control::*)()>(&Control::setSurveyAuto)>;

const Step kRefusal{Step::Kind::refusal};

/// Those that go the same way whatever the drive.
std::vector<Operation> common()
{
    return {
        {"getDynamicModel", getModels, {query(kNav5)}, {}, {}, showModels},
        {"setDynamicModel", setModel, {set(kNav5, becomesFirst<dynamicModel>)}, {2}, {8}},
        {"setDynamicModel with fix mode", setModels, setsModels(), {2, 1}, {8, 3}},
        {"setFixMode", setNumber<unsigned char, &Control::setFixMode>, {set(kNav5, becomesFirst<fixMode>)}, {1}, {3}},
        {"setSurveyMode", setMode, changesMode(), {0}, {2}, nullptr, words::kAnswerPvt},
        {"getNavsolution", getSolution, {query(kPvt)}, {0}, {3}},
        {"getSatelliteInfo", getSatellites, {query(kSat)}},
        {"getNofSatellitesInNavSol", getCount, {query(kPvt)}},
        {"getInfo", getVersions, {query(kVer)}},
        {"restart", restart, {times<2>(set(kRst))}, {0}, {1}},
        {"configureSBAS", run<&Control::configureSBAS>, setsSbas()},
        {"configureNmeaPolling", kSetSentences, setsSentences(), {0}, {1}},
        {"configureProtocols", run<&Control::configureProtocols>, setsProtocols()},
        {"save", run<&Control::save>, {set(kCfg, saves)}},
        {"load", run<&Control::load>, {set(kCfg, loads)}},
        {"resetUbloxDefaults", run<&Control::resetUbloxDefaults>, {set(kCfg, clears), set(kCfg, saves)}},
        {"Init", run<&Control::Init>},
        {"setAntennaPower", setPower, {}, {0}, {1}},
        {"a new facade", nullptr, {{Step::Kind::identification, kVer}}},
        {"a refused argument", refused, {kRefusal}, {0}, {8}},
    };
}

/// With messages. @tparam unitsPerMetre  of the survey's accuracies, as the receiver keeps them.
template <long unitsPerMetre>
std::vector<Operation> byMessages(Change changesSystems)
{
    return {
        {"getMinCNo", kGetMinCNo, {query(kNavx5)}, {}, {}, showNumber<minCNo>},
        {"setMinCNo", kSetMinCNo, setsMinCNo(), {1}, {50}},
        {"getElevationLimit", kGetElevation, {query(kNav5)}, {}, {}, showNumber<elevation>},
        {"setElevationLimit", kSetElevation, setsElevation(), {5}, {60}},
        {"getAntennaDelay", kGetDelay, {query(kTp5)}, {}, {}, showNumber<cableDelay>},
        {"setAntennaDelay", kSetDelay, setsDelay(), {1}, {500}},
        {"getSurveyMode", kGetMode, {query(kTmode2)}, {}, {}, showMode},
        {"setSurveyAuto", setSurvey, setsSurvey<unitsPerMetre>(), {1000, 1}, {20000, 50}},
        {"setSurveyAuto()", kSetDefaultSurvey, with({10800, 1}, setsSurvey<unitsPerMetre>())},
        {"setSurveyStatic",
         setFixed,
         {set(kTmode2, becomesFixedByMessage<unitsPerMetre>), query(kTmode2, is<timeMode, 2>)},
         {1},
         {200}},
        // Switched off, the receiver keeps the rest of the message's fields.
        {"setSurveyDynamic", kSetDynamic, {set(kTmode2, becomes<timeMode, 0>), query(kTmode2, is<timeMode, 0>)}},
        {"getTimeReference", kGetReference, {query(kRate)}, {}, {}, showReferenceByMessage},
        {"setTimeReference", setReference, {modify(kRate, becomesFirst<timeReference>)}, {0}, {1}},
        {"getGnssSystem", kGetSystems, {query(kGnss)}, {}, {}, showNumber<constellations>},
        {"setGnssSystem", setSystems, setsSystems(changesSystems), {0, 1}, {3, 1}},
        {"setGnssSystem with bands", setSystemsAndBands, setsSystems(changesSystems), {0, 0}, {3, 1}},
        {"getAntennaType", kGetType, {query(kItfm)}, {}, {}, showType},
        {"setAntennaType", setType, {modify(kItfm, becomesTypeByMessage)}, {1}, {2}},
        {"getJammingDetection", kGetJamming, {query(kItfm)}, {}, {}, showJammingByMessage},
        {"setJammingDetection", kSetJamming, {modify(kItfm, becomesJammingByMessage)}, {0}, {1}},
        {"setUtcStandardAuto", run<&Control::setUtcStandardAuto>, setsAutomaticUtc()},
        {"configTimePulse", setPulse, setsPulse(), {0, 0}, {1, 1}},
        {"isOn", kIsOn, {query(kTp5)}, {}, {}, showNumber<secondPulse>},
        {"turnOff", run<&Control::turnOff>, turnsOff(query(kGnss), setsPulse(), query(kTp5, is<secondPulse, 0>))},
        {"turnOn", run<&Control::turnOn>, turnsOn(query(kGnss), setsPulse(), query(kTp5, is<secondPulse, 1>))},
    };
}

std::vector<Operation> byItems()
{
    const Step elevationSet = set(kValset, becomesFirst<elevation>);
    const Step jammingRead = intoNumber(itemQuery(isFirst<jamming>));
    return {
        {"getMinCNo", kGetMinCNo, {itemQuery()}, {}, {}, showNumber<minCNo>},
        {"setMinCNo", kSetMinCNo, {set(kValset, becomesFirst<minCNo>), itemQuery(isFirst<minCNo>)}, {1}, {50}},
        {"getElevationLimit", kGetElevation, {itemQuery()}, {}, {}, showNumber<elevation>},
        {"setElevationLimit", kSetElevation, {elevationSet, itemQuery(isFirst<elevation>)}, {5}, {60}},
        {"getAntennaDelay", kGetDelay, {itemQuery()}, {}, {}, showNumber<cableDelay>},
        {"setAntennaDelay",
         kSetDelay,
         {set(kValset, becomesFirst<cableDelay>), itemQuery(isFirst<cableDelay>)},
         {1},
         {500}},
        {"getSurveyMode", kGetMode, {itemQuery()}, {}, {}, showMode},
        {"setSurveyAuto", setSurvey, setsSurveyByItems(), {1000, 1}, {20000, 50}},
        {"setSurveyAuto()", kSetDefaultSurvey, with({10800, 1}, setsSurveyByItems())},
        {"setSurveyStatic", setFixed, {set(kValset, becomesFixedByItems), itemQuery(is<timeMode, 2>)}, {1}, {200}},
        {"setSurveyDynamic", kSetDynamic, {set(kValset, becomesDynamicByItems), itemQuery(is<timeMode, 0>)}},
        {"getTimeReference", kGetReference, {itemQuery()}, {}, {}, showReference},
        {"setTimeReference",
         setReference,
         {set(kValset, becomesFirst<timeReference>), itemQuery(isFirst<timeReference>)},
         {0},
         {4}},
        {"getAntennaType", kGetType, {itemQuery()}, {}, {}, showType},
        {"setAntennaType",
         setType,
         {set(kValset, becomesFirst<antennaType>), itemQuery(isFirst<antennaType>)},
         {0},
         {2}},
        {"getJammingDetection", kGetJamming, {itemQuery()}, {}, {}, showNumber<jamming>},
        {"setJammingDetection", kSetJamming, {set(kValset, becomesFirst<jamming>), jammingRead}, {0}, {1}},
        {"getGnssSystem", kGetSystems, {itemQuery()}, {}, {}, showNumber<constellations>},
        {"setGnssSystem", setSystems, setsSystemsByItems(), {0, 1}, {4, 1}},
        {"setGnssSystem with bands", setSystemsAndBands, setsSystemsByItems(), {0, 0}, {4, 1}},
        {"setUtcStandardAuto", run<&Control::setUtcStandardAuto>, {set(kValset, becomes<utcStandard, 0>)}},
        {"setUtsStandardTime", setStandard, {set(kValset, becomesStandardByItems)}, {0}, {3}},
        {"configTimePulse", setPulse, setsPulseByItems(), {0, 0}, {1, 1}},
        {"isOn", kIsOn, {itemQuery()}, {}, {}, showNumber<secondPulse>},
        {"turnOff", run<&Control::turnOff>, turnsOff(itemQuery(), setsPulseByItems(), itemQuery(is<secondPulse, 0>))},
        {"turnOn", run<&Control::turnOn>, turnsOn(itemQuery(), setsPulseByItems(), itemQuery(is<secondPulse, 1>))},
    };
}

std::vector<Operation> ofNeoM8t()
{
    const Steps defaults = setsDefaults<kMillimetres>(becomesSystems);
    const Steps period = {set(kPm2, becomes<powerUpdatePeriod, 1000>)};
    const Steps output = together({period, {set(kMsg, becomes<satelliteRate, 1>)}, with({0}, setsSentences())});
    const Steps moving = together({setsSbas(), with({0, 3}, setsModels()), setsAutomaticUtc()});
    return {
        {"getSurveyInfo", getSurvey, readsSurvey(), {}, {}, showSurvey<1>, words::kAnswerPosllh},
        {"getRxMode", kGetRxMode, {query(kRxm)}, {}, {}, showRxMode},
        {"setRxMode", setRxMode, {modify(kRxm, becomesRxMode)}, {0}, {2}},
        {"setUtsStandardTime", setStandard, {}, {0}, {3}},
        {"configureUbxPolling", kSetSolutionRates, {set(kMsg, becomesFirst<satelliteRate>)}, {0}, {1}},
        {"configurNmeaPollingPartial", kSetFewSentences, {times<5>(set(kMsg, becomesFewSentences))}, {0}, {1}},
        {"configExtendedPowerManagment", run<&Control::configExtendedPowerManagment>, period},
        {"programGroupDelayCal", kSetGroupDelay, {}, {0}, {1000}},
        {"getResetInfo", run<&Control::getResetInfo>},
        {"setDefaultConfiguration", run<&Control::setDefaultConfiguration>, defaults},
        {"setApplicationDefaults", run<&Control::setApplicationDefaults>, moving},
        {"resetFactoryDefaults", run<&Control::resetFactoryDefaults>, resetsToFactory(output, defaults)},
    };
}

/// Of a ZED-F9T whatever the drive. Its firmware has no power modes, and takes a group delay for a poll of no item.
std::vector<Operation> ofZedF9t()
{
    const Steps defaults = setsDefaults<kTenths>(becomesSystemsAndBandsByMessage);
    const Steps output = together({{set(kValset, becomes<satelliteRate, 1>)}, with({0}, setsSentences())});
    const Steps moving = together({setsProtocols(), with({0, 3}, setsModels()), setsAutomaticUtc()});
    return {
        {"getSurveyInfo", getSurvey, readsSurvey(), {}, {}, showSurvey<10>, words::kAnswerPosllh},
        {"getRxMode", kGetRxMode},
        {"setRxMode", setRxMode, {}, {0}, {2}},
        {"configureUbxPolling", kSetSolutionRates, {set(kValset, becomesFirst<satelliteRate>)}, {0}, {1}},
        {"configurNmeaPollingPartial", kSetFewSentences, {times<2>(set(kMsg, becomesFirst<gsaRate>))}, {0}, {1}},
        {"configExtendedPowerManagment", run<&Control::configExtendedPowerManagment>},
        {"programGroupDelayCal", kSetGroupDelay, {set(kValget)}, {0}, {1000}},
        {"getResetInfo", run<&Control::getResetInfo>, {times<2>(query(kRst))}, {}, {}, nullptr, words::kAnswerReset},
        {"setDefaultConfiguration", run<&Control::setDefaultConfiguration>, defaults},
        {"setApplicationDefaults", run<&Control::setApplicationDefaults>, moving},
        {"resetFactoryDefaults", run<&Control::resetFactoryDefaults>, resetsToFactory(output, defaults)},
    };
}

std::vector<Operation> joined(const std::vector<std::vector<Operation>>& tables)
{
    std::vector<Operation> all;
    for (const std::vector<Operation>& table : tables)
        all.insert(all.end(), table.begin(), table.end());
    return all;
}

} // namespace

const std::vector<Operation>& operationsOf(Drive drive)
{
    const Operation standards{"setUtsStandardTime", setStandard, {set(kNav5, becomesStandardByMessage)}, {0}, {3}};
    static const std::vector<Operation> tables[kDrives] = {
        joined({common(), byMessages<kMillimetres>(becomesSystems), ofNeoM8t()}),
        joined({common(), byItems(), ofZedF9t()}),
        joined({common(), byMessages<kTenths>(becomesSystemsAndBandsByMessage), {standards}, ofZedF9t()})};
    return tables[static_cast<std::size_t>(drive)];
}

} // namespace soak
