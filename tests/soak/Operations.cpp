#include "Operations.h"

#include "Calls.h"
#include "Changes.h"

namespace soak
{

namespace
{

using namespace calls;
using namespace changes;
using Special = Operation::Special;

constexpr std::uint16_t kPvt = 0x0107, kSat = 0x0135, kVer = 0x0A04, kMsg = 0x0601, kRst = 0x0604, kRate = 0x0608,
                        kCfg = 0x0609, kSbas = 0x0616, kNavx5 = 0x0623, kNav5 = 0x0624, kTp5 = 0x0631, kItfm = 0x0639,
                        kTmode2 = 0x063D, kGnss = 0x063E, kValset = 0x068A, kValget = 0x068B;

// The tables. A range that begins at 1 keeps clear of what an empty reply reads as.

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
