#include <UBXMessageCatalogue.h>

#include "controller/reports/StatusReports.h"
#include "protocol/payloads/NavSat.h"

namespace ubx::reports
{

int getSatelliteInfo(ReceiverLink& link, std::string& satellites)
{
    const Reply reply = link.poll(UBXMessage(UBX_NAV_SAT, 0, nullptr));
    if (!reply) return reply.status();

    const PayloadView reported = reply.payload();
    const std::size_t count = reported.get(navSat::numSvs);
    std::string report;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t block = navSat::blockOffset(i);
        const std::uint32_t flags = reported.get(navSat::block::flags.in(block));
        report += std::to_string(reported.get(navSat::block::svId.in(block)));
        report += '\t';
        report += getGnssNameById(static_cast<UBXGNSSId>(reported.get(navSat::block::gnssId.in(block))));
        report += (flags & navSat::kSvUsed) != 0 ? "\tUsed    \t" : "\tNot Used\t";
        report += std::to_string(flags & navSat::kQualityInd);
        report += '\t';
        report += std::to_string(reported.get(navSat::block::cno.in(block)));
        report += '\n';
    }
    satellites = std::move(report);
    return status::kDone;
}

} // namespace ubx::reports
