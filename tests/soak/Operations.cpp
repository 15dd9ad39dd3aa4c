#include "Operations.h"

#include <iterator>

namespace soak
{

namespace
{

using Control = UBXControlInterface;
using Special = Operation::Special;

constexpr const char* kTimeReferences[] = {"UTC", "GPS", "GLO", "BDS", "GAL"};
constexpr const char* kAntennaTypes[] = {"unknown", "passive", "active"};
constexpr const char* kTimingModes[] = {"DYNAMIC", "AUTO", "STATIC"};
constexpr unsigned short kSelections[] = {1, 5, 9, 65, 68};

constexpr std::uint16_t kPvt = 0x0107, kSat = 0x0135, kVer = 0x0A04, kMsg = 0x0601, kRst = 0x0604, kRate = 0x0608,
                        kCfg = 0x0609, kSbas = 0x0616, kNavx5 = 0x0623, kNav5 = 0x0624, kTp5 = 0x0631, kItfm = 0x0639,
                        kTmode2 = 0x063D, kGnss = 0x063E, kValset = 0x068A, kValget = 0x068B;

// ---- What is run

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

int getModels(Control& control, Arguments, std::string& shown)
{
    unsigned char model = 0;
    unsigned char fixMode = 0;
    const int status = control.getDynamicModel(model, fixMode);
    shown = std::to_string(model) + " " + std::to_string(fixMode);
    return status;
}

int setModels(Control& control, Arguments arguments, std::string&)
{
    return control.setDynamicModel(static_cast<unsigned char>(arguments.first),
                                   static_cast<unsigned char>(arguments.second));
}

int getSolution(Control& control, Arguments, std::string& shown)
{
    std::string solution; // it changes all the time
    const int status = control.getNavsolution("ALL", solution);
    shown.clear();
    return status;
}

int getSatellites(Control& control, Arguments, std::string&)
{
    std::string satellites;
    return control.getSatelliteInfo(satellites);
}

int getVersions(Control& control, Arguments, std::string&)
{
    std::string versions;
    return control.getInfo(versions);
}

int getCount(Control& control, Arguments, std::string&)
{
    unsigned char count = 0;
    return control.getNofSatellitesInNavSol(count);
}

int setSurvey(Control& control, Arguments arguments, std::string&)
{
    return control.setSurveyAuto(static_cast<unsigned int>(arguments.first), static_cast<float>(arguments.second));
}

int setFixed(Control& control, Arguments, std::string&)
{
    return control.setSurveyStatic(-31.9505, 115.8605, 24.5, 1.0);
}

int setReference(Control& control, Arguments arguments, std::string&)
{
    return control.setTimeReference(kTimeReferences[arguments.first]);
}

int setType(Control& control, Arguments arguments, std::string&)
{
    return control.setAntennaType(kAntennaTypes[arguments.first]);
}

int setSystems(Control& control, Arguments arguments, std::string&)
{
    return control.setGnssSystem(kSelections[arguments.first]);
}

int restartHot(Control& control, Arguments, std::string&)
{
    return control.restart(true);
}

// ---- What becomes of the settings

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

void becomesModels(Settings& settings, Arguments arguments)
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

bool isSurvey(const Settings& settings, Arguments arguments)
{
    return settings[timeMode] == 1 && settings[surveyDuration] == arguments.first &&
           settings[surveyLimit] == arguments.second * 10000;
}

void becomesFixed(Settings& settings, Arguments)
{
    settings[timeMode] = 2;
}

// The message holds the survey's parameters, too.
void becomesFixedByMessage(Settings& settings, Arguments)
{
    settings[timeMode] = 2;
    settings[surveyDuration] = 0;
    settings[surveyLimit] = 0;
}

void becomesDynamic(Settings& settings, Arguments)
{
    settings[timeMode] = 0;
    settings[surveyDuration] = 0;
    settings[surveyLimit] = 0;
}

// A receiver that is told to do without time mode keeps the rest of the message's fields.
void becomesDynamicByMessage(Settings& settings, Arguments)
{
    settings[timeMode] = 0;
}

// The setting of the antenna holds the byte that the detection is read from, and the other way about.
void becomesTypeByMessage(Settings& settings, Arguments arguments)
{
    settings[antennaType] = arguments.first;
    settings[jamming] = 0x1E;
}

void becomesJammingByMessage(Settings& settings, Arguments arguments)
{
    settings[jamming] = arguments.first != 0 ? 0xAD : 0x2D;
}

void becomesSystems(Settings& settings, Arguments arguments)
{
    settings[constellations] = kSelections[arguments.first];
}

// The time pulses go along with them, without a cable delay.
void becomesSystemsByItems(Settings& settings, Arguments arguments)
{
    becomesSystems(settings, arguments);
    settings[cableDelay] = 0;
}

bool areSystems(const Settings& settings, Arguments arguments)
{
    return settings[constellations] == kSelections[arguments.first];
}

// ---- What queries show

template <Field field>
std::string showNumber(const Settings& settings)
{
    return std::to_string(settings[field]);
}

std::string showModels(const Settings& settings)
{
    return std::to_string(settings[dynamicModel]) + " " + std::to_string(settings[fixMode]);
}

std::string showMode(const Settings& settings)
{
    return kTimingModes[settings[timeMode]];
}

std::string showReference(const Settings& settings)
{
    return kTimeReferences[settings[timeReference]];
}

std::string showType(const Settings& settings)
{
    return kAntennaTypes[settings[antennaType]];
}

std::string showJammingByMessage(const Settings& settings)
{
    return settings[jamming] >= 0x80 ? "1" : "0";
}

// ---- The tables. A range that begins at 1 keeps clear of what an empty reply reads as.

const auto kGetMinCNo = getNumber<signed char, &Control::getMinCNo>;
const auto kSetMinCNo = setNumber<signed char, &Control::setMinCNo>;
const auto kGetElevation = getNumber<unsigned char, &Control::getElevationLimit>;
const auto kSetElevation = setNumber<unsigned char, &Control::setElevationLimit>;
const auto kGetDelay = getNumber<int, &Control::getAntennaDelay>;
const auto kSetDelay = setNumber<int, &Control::setAntennaDelay>;
const auto kGetSystems = getNumber<unsigned short, &Control::getGnssSystem>;
const auto kGetJamming = getNumber<bool, &Control::getJammingDetection>;
const auto kSetJamming = setNumber<bool, &Control::setJammingDetection>;

/// Those that go the same way whatever the drive.
std::vector<Operation> common()
{
    return {
        {"getDynamicModel", Kind::query, kNav5, 0, getModels, {}, {}, nullptr, nullptr, showModels},
        {"setDynamicModel", Kind::set, 0, kNav5, setModels, {2, 1}, {8, 3}, becomesModels},
        {"getNavsolution", Kind::query, kPvt, 0, getSolution},
        {"getSatelliteInfo", Kind::query, kSat, 0, getSatellites},
        {"getNofSatellitesInNavSol", Kind::query, kPvt, 0, getCount},
        {"getInfo", Kind::query, kVer, 0, getVersions},
        {"restart", Kind::set, 0, kRst, restartHot},
        {"configureSBAS", Kind::set, 0, kSbas, run<&Control::configureSBAS>},
        {"configureNmeaPolling", Kind::set, 0, kMsg, setNumber<unsigned char, &Control::configureNmeaPolling>, {}, {1}},
        {"save", Kind::set, 0, kCfg, run<&Control::save>, {}, {}, nullptr, nullptr, nullptr, Special::save},
        {"load", Kind::set, 0, kCfg, run<&Control::load>, {}, {}, nullptr, nullptr, nullptr, Special::load},
        {"a new facade", Kind::identification, kVer, 0, nullptr},
    };
}

/// With messages. @tparam unitsPerMetre  of the survey's limit, as the receiver keeps it.
template <long unitsPerMetre>
std::vector<Operation> byMessages()
{
    return {
        {"getMinCNo", Kind::query, kNavx5, 0, kGetMinCNo, {}, {}, nullptr, nullptr, showNumber<minCNo>},
        {"setMinCNo", Kind::verifiedSet, kNavx5, kNavx5, kSetMinCNo, {1}, {50}, becomesFirst<minCNo>, isFirst<minCNo>},
        {"getElevationLimit", Kind::query, kNav5, 0, kGetElevation, {}, {}, nullptr, nullptr, showNumber<elevation>},
        {"setElevationLimit", Kind::set, 0, kNav5, kSetElevation, {5}, {60}, becomesFirst<elevation>},
        {"getAntennaDelay", Kind::query, kTp5, 0, kGetDelay, {}, {}, nullptr, nullptr, showNumber<cableDelay>},
        {"setAntennaDelay",
         Kind::verifiedSet,
         kTp5,
         kTp5,
         kSetDelay,
         {1},
         {500},
         becomesFirst<cableDelay>,
         isFirst<cableDelay>},
        {"getSurveyMode",
         Kind::query,
         kTmode2,
         0,
         getText<&Control::getSurveyMode>,
         {},
         {},
         nullptr,
         nullptr,
         showMode},
        {"setSurveyAuto",
         Kind::verifiedSet,
         kTmode2,
         kTmode2,
         setSurvey,
         {1000, 1},
         {20000, 50},
         becomesSurvey<unitsPerMetre>,
         hasMode<1>},
        {"setSurveyStatic", Kind::verifiedSet, kTmode2, kTmode2, setFixed, {}, {}, becomesFixedByMessage, hasMode<2>},
        {"setSurveyDynamic",
         Kind::verifiedSet,
         kTmode2,
         kTmode2,
         run<&Control::setSurveyDynamic>,
         {},
         {},
         becomesDynamicByMessage,
         hasMode<0>},
        {"getTimeReference", Kind::query, kRate, 0, getText<&Control::getTimeReference>},
        {"setTimeReference", Kind::pollModifySend, kRate, kRate, setReference, {0}, {1}, becomesFirst<timeReference>},
        {"getGnssSystem", Kind::query, kGnss, 0, kGetSystems, {}, {}, nullptr, nullptr, showNumber<constellations>},
        {"setGnssSystem",
         Kind::verifiedSet,
         kGnss,
         kGnss,
         setSystems,
         {0},
         {3},
         becomesSystems,
         areSystems,
         nullptr,
         Special::setsTimePulses},
    };
}

/// Of a NEO-M8T only: a ZED-F9T's keys have no place for what these put beside their setting.
std::vector<Operation> interferenceByMessages()
{
    return {
        {"getAntennaType",
         Kind::query,
         kItfm,
         0,
         getText<&Control::getAntennaType>,
         {},
         {},
         nullptr,
         nullptr,
         showType},
        {"setAntennaType", Kind::pollModifySend, kItfm, kItfm, setType, {1}, {2}, becomesTypeByMessage},
        {"getJammingDetection", Kind::query, kItfm, 0, kGetJamming, {}, {}, nullptr, nullptr, showJammingByMessage},
        {"setJammingDetection", Kind::pollModifySend, kItfm, kItfm, kSetJamming, {0}, {1}, becomesJammingByMessage},
    };
}

std::vector<Operation> byItems()
{
    constexpr Kind get = Kind::itemQuery;
    constexpr Kind set = Kind::verifiedItemSet;
    return {
        {"getMinCNo", get, kValget, 0, kGetMinCNo, {}, {}, nullptr, nullptr, showNumber<minCNo>},
        {"setMinCNo", set, kValget, kValset, kSetMinCNo, {1}, {50}, becomesFirst<minCNo>, isFirst<minCNo>},
        {"getElevationLimit", get, kValget, 0, kGetElevation, {}, {}, nullptr, nullptr, showNumber<elevation>},
        {"setElevationLimit",
         set,
         kValget,
         kValset,
         kSetElevation,
         {5},
         {60},
         becomesFirst<elevation>,
         isFirst<elevation>},
        {"getAntennaDelay", get, kValget, 0, kGetDelay, {}, {}, nullptr, nullptr, showNumber<cableDelay>},
        {"setAntennaDelay",
         set,
         kValget,
         kValset,
         kSetDelay,
         {1},
         {500},
         becomesFirst<cableDelay>,
         isFirst<cableDelay>},
        {"getSurveyMode", get, kValget, 0, getText<&Control::getSurveyMode>, {}, {}, nullptr, nullptr, showMode},
        {"setSurveyAuto", set, kValget, kValset, setSurvey, {1000, 1}, {20000, 50}, becomesSurvey<10000>, isSurvey},
        {"setSurveyStatic", set, kValget, kValset, setFixed, {}, {}, becomesFixed, hasMode<2>},
        {"setSurveyDynamic",
         set,
         kValget,
         kValset,
         run<&Control::setSurveyDynamic>,
         {},
         {},
         becomesDynamic,
         hasMode<0>},
        {"getTimeReference",
         get,
         kValget,
         0,
         getText<&Control::getTimeReference>,
         {},
         {},
         nullptr,
         nullptr,
         showReference},
        {"setTimeReference",
         set,
         kValget,
         kValset,
         setReference,
         {0},
         {4},
         becomesFirst<timeReference>,
         isFirst<timeReference>},
        {"getAntennaType", get, kValget, 0, getText<&Control::getAntennaType>, {}, {}, nullptr, nullptr, showType},
        {"setAntennaType", set, kValget, kValset, setType, {0}, {2}, becomesFirst<antennaType>, isFirst<antennaType>},
        {"getJammingDetection", get, kValget, 0, kGetJamming, {}, {}, nullptr, nullptr, showNumber<jamming>},
        {"setJammingDetection",
         set,
         kValget,
         kValset,
         kSetJamming,
         {0},
         {1},
         becomesFirst<jamming>,
         isFirst<jamming>,
         nullptr,
         Special::none,
         true},
        {"getGnssSystem", get, kValget, 0, kGetSystems, {}, {}, nullptr, nullptr, showNumber<constellations>},
        {"setGnssSystem", set, kValget, kValset, setSystems, {0}, {4}, becomesSystemsByItems, areSystems},
    };
}

std::vector<Operation> together(std::vector<Operation> some, const std::vector<Operation>& others)
{
    some.insert(some.end(), others.begin(), others.end());
    return some;
}

} // namespace

const std::vector<Operation>& operationsOf(Drive drive)
{
    constexpr long kMillimetres = 1000;
    constexpr long kTenths = 10000;
    static const std::vector<Operation> tables[kDrives] = {
        together(together(byMessages<kMillimetres>(), interferenceByMessages()), common()),
        together(byItems(), common()), together(byMessages<kTenths>(), common())};
    return tables[static_cast<std::size_t>(drive)];
}

} // namespace soak
