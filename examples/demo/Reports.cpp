#include "Reports.h"

#include <chrono>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "Settings.h"

namespace demo
{

namespace
{

constexpr const char* kAbsent = "not in this recording";

std::vector<std::string> split(const std::string& text, const std::string& separator)
{
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t end = text.find(separator); end != std::string::npos; end = text.find(separator, start)) {
        parts.push_back(text.substr(start, end - start));
        start = end + separator.size();
    }
    parts.push_back(text.substr(start));
    return parts;
}

void showVersions(UBXControlInterface& receiver, Transcript& transcript)
{
    std::string versions;
    transcript.operation("getInfo", "", receiver.getInfo(versions));
    for (const std::string& version : split(versions, ": "))
        transcript.line(version);
}

void showSolution(UBXControlInterface& receiver, Transcript& transcript)
{
    std::string solution;
    transcript.operation("getNavsolution", "", receiver.getNavsolution("ALL", solution));
    const std::vector<std::string> parts = split(solution, ",");
    if (parts.size() != 5) return;
    transcript.fact("  time (UTC)", parts[0]);
    transcript.fact("  fix", parts[1]);
    transcript.fact("  latitude, longitude", parts[2] + ", " + parts[3] + " degrees");
    transcript.fact("  height", parts[4] + " m above the ellipsoid");
}

void showUsedSatellites(UBXControlInterface& receiver, Transcript& transcript)
{
    unsigned char count = 0;
    const int status = receiver.getNofSatellitesInNavSol(count);
    transcript.operation("getNofSatellitesInNavSol", std::to_string(count) + " satellites used", status);
}

void showSurvey(UBXControlInterface& receiver, Transcript& transcript)
{
    const std::string modes[] = {"off", "survey-in", "fixed position"};
    unsigned char mode = 0;
    double latitude = 0;
    double longitude = 0;
    double height = 0;
    double accuracy = 0;
    unsigned int duration = 0;
    float limit = 0;
    const int status = receiver.getSurveyInfo(mode, latitude, longitude, height, accuracy, duration, limit);
    transcript.operation("getSurveyInfo", "", status);
    if (status != 0) return;
    transcript.fact("  timing mode", mode < std::size(modes) ? modes[mode] : "mode " + std::to_string(mode));
    transcript.fact("  shortest survey", std::to_string(duration) + " s");
    transcript.fact("  accuracy limit", measured(limit, 2, "m"));
    transcript.fact("  fixed position within", measured(accuracy, 3, "m"));
    transcript.fact("  present latitude", measured(latitude, 7, "degrees"));
    transcript.fact("  present longitude", measured(longitude, 7, "degrees"));
    transcript.fact("  present height", measured(height, 3, "m"));
}

std::string padded(const std::string& text, std::size_t width)
{
    return text + std::string(text.size() < width ? width - text.size() : 1, ' ');
}

void showSatellites(UBXControlInterface& receiver, Transcript& transcript)
{
    std::string report;
    transcript.operation("getSatelliteInfo", "", receiver.getSatelliteInfo(report));
    transcript.note("  constellation  satellite  in use    quality  C/N0");
    std::istringstream lines(report);
    for (std::string line; std::getline(lines, line);) {
        const std::vector<std::string> fields = split(line, "\t");
        if (fields.size() != 5) continue;
        const long cno = std::strtol(fields[4].c_str(), nullptr, 10);
        std::string row = "    " + padded(fields[1], 15) + padded(fields[0], 11) + padded(fields[2], 10);
        row += padded(fields[3], 9) + padded(fields[4] + " dBHz", 9);
        transcript.row(row + std::string(static_cast<std::size_t>(cno > 0 ? cno / 2 : 0), '='));
    }
}

} // namespace

void showSettings(UBXControlInterface& receiver, const CanAnswer& canAnswer, Transcript& transcript)
{
    for (const Readable& setting : readables()) {
        if (!canAnswer(setting.message)) {
            transcript.absent(setting.name, kAbsent);
            continue;
        }
        std::string text;
        const int status = setting.read(receiver, text);
        transcript.operation(setting.name, text, status);
    }
}

void waitForFix(UBXControlInterface& receiver, Transcript& transcript)
{
    constexpr std::chrono::seconds kPatience{40};
    const auto begin = std::chrono::steady_clock::now();
    std::string fix;
    receiver.getNavsolution("FIX", fix); // may still be the solution from before the change
    while (receiver.getNavsolution("FIX", fix) == 0 && fix == "NO-FIX") {
        if (std::chrono::steady_clock::now() - begin < kPatience) continue;
        transcript.note("no fix within 40 seconds");
        return;
    }
}

void showReports(UBXControlInterface& receiver, const CanAnswer& canAnswer, Transcript& transcript)
{
    struct Report
    {
        const char* heading;
        const char* name;
        std::vector<UBXMessageClassIdValues> messages;
        void (*show)(UBXControlInterface&, Transcript&);
    };
    static const Report kReports[] = {
        {"Versions", "getInfo", {UBX_MON_VER}, showVersions},
        {"Navigation solution", "getNavsolution", {UBX_NAV_PVT}, showSolution},
        {"Survey-in", "getSurveyInfo", {UBX_CFG_TMODE2, UBX_NAV_POSLLH}, showSurvey},
        {"Satellites", "getSatelliteInfo", {UBX_NAV_SAT}, showSatellites},
        {nullptr, "getNofSatellitesInNavSol", {UBX_NAV_PVT}, showUsedSatellites},
    };

    for (const Report& report : kReports) {
        if (report.heading != nullptr) transcript.heading(report.heading);
        bool whole = true;
        for (const UBXMessageClassIdValues message : report.messages)
            whole = whole && canAnswer(message);
        if (whole) {
            report.show(receiver, transcript);
        } else {
            transcript.absent(report.name, kAbsent);
        }
    }
}

} // namespace demo
