#include "queries/AskOne.h"
#include "queries/Asking.h"

#include <ubxController_ZEDF9T.h>

// The queries of a ZED-F9T that come back as items: a header of four bytes, a key of four, the value.

namespace fuzz
{

namespace
{

constexpr std::uint16_t kCfgValget = 0x068B;
constexpr std::size_t kValue = 8;
constexpr std::size_t kFromValueToValue = 5; // of one byte each

/// Those that exist as items only.
template <int (ubxController_ZEDF9T::*query)(unsigned int&)>
int askItem(Control& control, std::string& shown)
{
    unsigned int value = 99;
    const int status = (static_cast<ubxController_ZEDF9T&>(control).*query)(value);
    shown = std::to_string(value);
    return status;
}

int askConstellations(Control& control, std::string& shown)
{
    unsigned short mask = 0x8010; // bits that are asked for by nobody stay
    const int status = control.getGnssSystem(mask);
    shown = std::to_string(mask);
    return status;
}

std::string word(unsigned number, std::initializer_list<const char*> words, const char* otherwise)
{
    return number < words.size() ? words.begin()[number] : otherwise;
}

std::string flag(const Plain& reply)
{
    return reply.byte(kValue) != 0 ? "1" : "0";
}

std::string constellations(const Plain& reply)
{
    unsigned mask = 0x8010;
    std::size_t at = kValue;
    for (const unsigned bit : {1U, 2U, 4U, 8U, 32U, 64U}) {
        if (reply.byte(at) != 0) mask |= bit;
        at += kFromValueToValue;
    }
    return std::to_string(mask);
}

} // namespace

const std::vector<Query>& itemQueries()
{
    static const std::vector<Query> queries = {
        {"getAntennaDelay", kCfgValget, askNumber<int, &Control::getAntennaDelay>,
         [](const Plain& reply) {
             const unsigned delay = reply.byte(kValue) + 256U * reply.byte(kValue + 1);
             return std::to_string(delay < 32768 ? static_cast<int>(delay) : static_cast<int>(delay) - 65536);
         },
         "99"},
        {"getAntennaType", kCfgValget, askText<&Control::getAntennaType>,
         [](const Plain& reply) {
             return word(reply.byte(kValue), {"unknown", "passive", "active"}, "as before");
         },
         "as before"},
        {"getGnssSystem", kCfgValget, askConstellations, constellations, "32784"},
        {"getJammingDetection", kCfgValget, askNumber<bool, &Control::getJammingDetection>, flag, "1"},
        {"getSurveyMode", kCfgValget, askText<&Control::getSurveyMode>,
         [](const Plain& reply) {
             return word(reply.byte(kValue), {"DYNAMIC", "AUTO", "STATIC"}, "as before");
         },
         "as before"},
        {"getDurationConfiguration", kCfgValget, askItem<&ubxController_ZEDF9T::getDurationConfiguration>,
         [](const Plain& reply) { return std::to_string(reply.number(kValue)); }, "99"},
        {"getAccuracyConfiguration", kCfgValget, askItem<&ubxController_ZEDF9T::getAccuracyConfiguration>,
         [](const Plain& reply) { return std::to_string(reply.number(kValue)); }, "99"},
        {"getMinCNo", kCfgValget, askNumber<signed char, &Control::getMinCNo>,
         [](const Plain& reply) {
             const auto level = static_cast<int>(reply.byte(kValue));
             return std::to_string(level < 128 ? level : level - 256);
         },
         "99"},
        {"getElevationLimit", kCfgValget, askNumber<unsigned char, &Control::getElevationLimit>,
         [](const Plain& reply) { return std::to_string(reply.byte(kValue)); }, "99"},
        {"getTimeReference", kCfgValget, askText<&Control::getTimeReference>,
         [](const Plain& reply) {
             return word(reply.byte(kValue), {"UTC", "GPS", "GLO", "BDS", "GAL"}, "UTC");
         },
         "as before"},
        {"isOn", kCfgValget, askNumber<bool, &Control::isOn>, flag, "1"},
    };
    return queries;
}

} // namespace fuzz
