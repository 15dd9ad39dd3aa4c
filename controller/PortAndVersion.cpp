#include <string>

#include "controller/FacadeParts.h"
#include "controller/reports/StatusReports.h"
#include "protocol/payloads/CfgPrt.h"
#include "protocol/payloads/MonVer.h"

int ubxController::configuraProtocolsDefault()
{
    // The log texts are the wrong way round on purpose: those who read these logs know them so.
    constexpr const char* kNotSent = ubx::kNotReceivedText;
    constexpr const char* kNotReceived = ubx::kNotSentText;

    ubxIO port;
    const UBXMessage request(UBX_CFG_PRT, 0, nullptr);
    if (const int failure = parts_->link.write(port, request, kNotSent)) return failure;
    const ubx::Reply reply = parts_->link.await(port, request, ubx::ReceiverLink::kReceiveTimeLimit, kNotReceived);
    if (!reply) return reply.status();

    reply.message().setByte(ubx::cfgPrt::outProtoMask.offset, ubx::cfgPrt::kUbxAndNmea);
    port.SendMessage(&reply.message()); // not confirmed, and its result not examined
    return ubx::status::kDone;
}

int ubxController::getDefaultInfo(std::string& info)
{
    configuraProtocolsDefault();

    UBXMessage request(UBX_MON_VER, 0, nullptr);
    ubxIO port;
    info.clear();
    // A receiver that has just left reset may miss the first ones.
    port.SendMessage(&request);
    port.SendMessage(&request);
    if (const int failure = parts_->link.write(port, request)) return failure;
    const ubx::Reply reply = parts_->link.await(port, request, ubx::monVer::kReplyTimeLimit);
    if (reply) info = ubx::reports::versionLine(reply.payload(), ubx::reports::VersionText::runsOnUnlessZero);
    return reply.status();
}
