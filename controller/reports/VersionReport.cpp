#include "controller/reports/StatusReports.h"
#include "protocol/payloads/MonVer.h"

namespace ubx::reports
{

int getInfo(ReceiverLink& link, std::string& info)
{
    info.clear();
    const Reply reply = link.poll(UBXMessage(UBX_MON_VER, 0, nullptr), monVer::kReplyTimeLimit);
    if (reply) info = versionLine(reply.payload(), VersionText::endsWithField);
    return reply.status();
}

std::string versionLine(PayloadView record, VersionText end)
{
    const auto text = [&](std::size_t offset, std::size_t width) {
        return record.text(offset, end == VersionText::endsWithField ? width : record.size());
    };
    std::string line = text(monVer::swVersion, monVer::swVersionWidth);
    line += ": " + text(monVer::hwVersion, monVer::hwVersionWidth);
    for (std::size_t offset = monVer::extensions; offset < record.size(); offset += monVer::extensionWidth) {
        line += ": " + text(offset, monVer::extensionWidth);
    }
    return line;
}

} // namespace ubx::reports
