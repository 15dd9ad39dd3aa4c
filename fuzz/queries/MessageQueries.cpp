#include "queries/AskOne.h"
#include "queries/Asking.h"

#include <cstdio>

// What each query makes of its reply, told a second time and plainly.

namespace fuzz
{

namespace
{

template <int (Control::*query)(bool&)>
int askFlag(Control& control, std::string& shown)
{
    bool on = true;
    const int status = (control.*query)(on);
    shown = on ? "on" : "off";
    return status;
}

int askDynamicModel(Control& control, std::string& shown)
{
    unsigned char model = 99;
    unsigned char fixMode = 99;
    const int status = control.getDynamicModel(model, fixMode);
    shown = std::to_string(model) + " " + std::to_string(fixMode);
    return status;
}

int askSolution(Control& control, const char* what, std::string& shown)
{
    shown = "as before";
    return control.getNavsolution(what, shown);
}

std::string word(unsigned number, std::initializer_list<const char*> words, const char* otherwise = "as before")
{
    return number < words.size() ? words.begin()[number] : otherwise;
}

std::string constellations(const Plain& reply)
{
    unsigned mask = 0;
    for (unsigned system = 0; system < 7; ++system) {
        if (reply.byte(8 + 8 * system) != 0) mask |= 1U << system;
    }
    return std::to_string(mask);
}

std::string time(const Plain& pvt)
{
    char text[100];
    std::snprintf(text, sizeof text, "%u-%02u-%02uT%02u:%02u+%02u:00", pvt.byte(4) + 256U * pvt.byte(5), pvt.byte(6),
                  pvt.byte(7), pvt.byte(8), pvt.byte(9), pvt.byte(10));
    return text;
}

std::string fix(const Plain& pvt)
{
    return word(pvt.byte(20), {"NO-FIX", "DEAD-RECKONING", "2D-FIX", "3D-FIX", "GNSS+DEAD-RECKONING", "TIME-ONLY"}, "");
}

std::string position(const Plain& pvt)
{
    char text[200];
    std::snprintf(text, sizeof text, "%g,%g,%g", pvt.signedNumber(28) / 1e7, pvt.signedNumber(24) / 1e7,
                  pvt.signedNumber(32) / 1e3);
    return text;
}

std::string satellites(const Plain& reply)
{
    std::string lines;
    for (std::size_t i = 0; i < reply.byte(5); ++i) {
        const std::size_t block = 8 + 12 * i;
        const bool used = reply.bit(block + 8, 3);
        lines += std::to_string(reply.byte(block + 1)) + "\t";
        lines += word(reply.byte(block), {"GPS", "SBAS", "GALILEO", "BEIDOU", "IMES", "QZSS", "GLONASS"}, "UNKNOWN");
        lines += used ? "\tUsed    \t" : "\tNot Used\t";
        lines += std::to_string(reply.byte(block + 8) & 7U) + "\t" + std::to_string(reply.byte(block + 2)) + "\n";
    }
    return lines;
}

std::string versions(const Plain& reply)
{
    std::string line = reply.text(0, 30) + ": " + reply.text(30, 10);
    for (std::size_t at = 40; at < reply.size(); at += 30)
        line += ": " + reply.text(at, 30);
    return line;
}

} // namespace

const std::vector<Query>& messageQueries()
{
    static const std::vector<Query> queries = {
        {"getAntennaDelay", 0x0631, askNumber<int, &Control::getAntennaDelay>,
         [](const Plain& reply) {
             const unsigned delay = reply.byte(4) + 256U * reply.byte(5);
             return std::to_string(delay < 32768 ? static_cast<int>(delay) : static_cast<int>(delay) - 65536);
         },
         "99"},
        {"getAntennaType", 0x0639, askText<&Control::getAntennaType>,
         [](const Plain& reply) {
             return word(reply.byte(5) >> 4 & 3, {"unknown", "passive", "active"}, "unknown");
         },
         "as before"},
        {"getGnssSystem", 0x063E, askNumber<unsigned short, &Control::getGnssSystem>, constellations, "0"},
        {"getJammingDetection", 0x0639, askFlag<&Control::getJammingDetection>,
         [](const Plain& reply) { return std::string(reply.bit(4, 7) ? "on" : "off"); }, "on"},
        {"getSurveyMode", 0x063D, askText<&Control::getSurveyMode>,
         [](const Plain& reply) {
             return word(reply.byte(0), {"DYNAMIC", "AUTO", "STATIC"});
         },
         "as before"},
        {"getNofSatellitesInNavSol", 0x0107, askNumber<unsigned char, &Control::getNofSatellitesInNavSol>,
         [](const Plain& reply) { return std::to_string(reply.byte(23)); }, "99"},
        {"getMinCNo", 0x0623, askNumber<signed char, &Control::getMinCNo>,
         [](const Plain& reply) {
             return std::to_string(reply.byte(12) < 128 ? static_cast<int>(reply.byte(12))
                                                        : static_cast<int>(reply.byte(12)) - 256);
         },
         "0"},
        {"getElevationLimit", 0x0624, askNumber<unsigned char, &Control::getElevationLimit>,
         [](const Plain& reply) { return std::to_string(reply.byte(12)); }, "99"},
        {"getDynamicModel", 0x0624, askDynamicModel,
         [](const Plain& reply) { return std::to_string(reply.byte(2)) + " " + std::to_string(reply.byte(3)); },
         "99 99"},
        {"getTimeReference", 0x0608, askText<&Control::getTimeReference>,
         [](const Plain& reply) {
             return word(reply.byte(4), {"UTC", "GPS"});
         },
         "as before"},
        {"getRxMode", 0x0611, askText<&Control::getRxMode>,
         [](const Plain& reply) {
             return reply.byte(1) == 4 ? std::string("ECO") : word(reply.byte(1), {"CONTINUOUS", "POWERSAVE"});
         },
         "as before"},
        {"isOn", 0x0631, askFlag<&Control::isOn>,
         [](const Plain& reply) { return std::string(reply.bit(28, 0) ? "on" : "off"); }, "on"},
        {"getSatelliteInfo", 0x0135, askText<&Control::getSatelliteInfo>, satellites, "as before"},
        {"getInfo", 0x0A04, askText<&Control::getInfo>, versions, ""},
        {"getNavsolution ALL", 0x0107,
         [](Control& control, std::string& shown) { return askSolution(control, "ALL", shown); },
         [](const Plain& pvt) { return time(pvt) + "," + fix(pvt) + "," + position(pvt); }, "as before"},
        {"getNavsolution TIME", 0x0107,
         [](Control& control, std::string& shown) { return askSolution(control, "TIME", shown); }, time, "as before"},
        {"getNavsolution FIX", 0x0107,
         [](Control& control, std::string& shown) { return askSolution(control, "FIX", shown); }, fix, "as before"},
        {"getNavsolution POS", 0x0107,
         [](Control& control, std::string& shown) { return askSolution(control, "POS", shown); }, position,
         "as before"},
    };
    return queries;
}

} // namespace fuzz
