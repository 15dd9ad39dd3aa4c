#include <iomanip>
#include <iterator>
#include <locale>
#include <ostream>
#include <sstream>

#include "controller/reports/StatusReports.h"
#include "protocol/payloads/NavPvt.h"
#include "protocol/payloads/Units.h"

namespace ubx::reports
{

namespace
{

struct Part
{
    const char* word;
    void (*print)(std::ostream& out, PayloadView pvt);
};

void printTwoDigits(std::ostream& out, std::uint8_t number)
{
    out << std::setw(2) << std::setfill('0') << static_cast<unsigned>(number);
}

// 2024-03-07T09:05+42:00: the seconds behind a plus, two zeros at the end. Readers in the field know it so.
void printTime(std::ostream& out, PayloadView pvt)
{
    out << pvt.get(navPvt::year) << '-';
    printTwoDigits(out, pvt.get(navPvt::month));
    out << '-';
    printTwoDigits(out, pvt.get(navPvt::day));
    out << 'T';
    printTwoDigits(out, pvt.get(navPvt::hour));
    out << ':';
    printTwoDigits(out, pvt.get(navPvt::min));
    out << '+';
    printTwoDigits(out, pvt.get(navPvt::sec));
    out << ":00";
}

void printFix(std::ostream& out, PayloadView pvt)
{
    static constexpr const char* kFixTypes[] = {"NO-FIX", "DEAD-RECKONING",      "2D-FIX",
                                                "3D-FIX", "GNSS+DEAD-RECKONING", "TIME-ONLY"};
    const std::uint8_t fixType = pvt.get(navPvt::fixType);
    if (fixType < std::size(kFixTypes)) out << kFixTypes[fixType];
}

void printPosition(std::ostream& out, PayloadView pvt)
{
    out << pvt.get(navPvt::lat) / units::kDegreesScale << ',' << pvt.get(navPvt::lon) / units::kDegreesScale << ','
        << pvt.get(navPvt::height) / units::kMillimetresPerMetre;
}

constexpr Part kParts[] = {{"TIME", printTime}, {"FIX", printFix}, {"POS", printPosition}};

bool isKnown(const std::string& what)
{
    for (const Part& part : kParts)
        if (what == part.word) return true;
    return what.empty() || what == "ALL";
}

} // namespace

int getNavsolution(ReceiverLink& link, const std::string& what, std::string& solution)
{
    if (!isKnown(what)) return refuseWord(link, what);

    const Reply reply = link.poll(UBXMessage(UBX_NAV_PVT, 0, nullptr));
    if (!reply) return reply.status();

    const bool all = what.empty() || what == "ALL";
    std::ostringstream out;
    out.imbue(std::locale::classic()); // whatever the process has set
    const char* separator = "";
    for (const Part& part : kParts) {
        if (!all && what != part.word) continue;
        out << separator;
        part.print(out, reply.payload());
        separator = ",";
    }
    solution = out.str();
    return status::kDone;
}

int getNofSatellitesInNavSol(ReceiverLink& link, unsigned char& count)
{
    const Reply reply = link.poll(UBXMessage(UBX_NAV_PVT, 0, nullptr));
    if (reply) count = reply.payload().get(navPvt::numSV);
    return reply.status();
}

int refuseWord(ReceiverLink& link, const std::string& word)
{
    link.log("Parameter invalid: " + word);
    return status::kRefused;
}

} // namespace ubx::reports
