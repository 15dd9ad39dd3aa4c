#include "controller/NmeaMessages.h"
#include "controller/legacy/LegacyOperations.h"
#include "protocol/Payload.h"
#include "protocol/payloads/CfgMsg.h"
#include "protocol/payloads/CfgPrt.h"

namespace ubx
{

UBXMessage LegacyOperations::createMessageRateByClassIDMessage(unsigned short classId, unsigned char rate)
{
    const UBXClassId id = ubxConvertClassIdTypeToStruct(classId);
    return Payload<cfgMsg::size>()
        .set(cfgMsg::msgClass, id.msgClass)
        .set(cfgMsg::msgId, id.msgId)
        .set(cfgMsg::rate, rate)
        .as(UBX_CFG_MSG);
}

void LegacyOperations::sendMessageRate(unsigned short classId, unsigned char rate)
{
    link_.send(createMessageRateByClassIDMessage(classId, rate));
}

int LegacyOperations::configureUbxPolling(unsigned char rate)
{
    sendMessageRate(UBX_NAV_SAT, rate);
    return status::kDone;
}

int LegacyOperations::configureNmeaPolling(unsigned char rate)
{
    for (const unsigned short sentence :
         {nmea::kGga, nmea::kGll, nmea::kGsa, nmea::kGsv, nmea::kRmc, nmea::kVtg, nmea::kZda}) {
        sendMessageRate(sentence, rate);
    }
    return status::kDone;
}

int LegacyOperations::configurNmeaPollingPartial(unsigned char rate)
{
    sendMessageRate(nmea::kGsa, 0);
    sendMessageRate(nmea::kGsv, 0);
    sendMessageRate(nmea::kGga, rate);
    sendMessageRate(nmea::kGll, rate);
    sendMessageRate(nmea::kZda, rate);
    return status::kDone;
}

int LegacyOperations::configureProtocols()
{
    ubxIO port;
    const Reply reply = link_.poll(port, emptyPoll(UBX_CFG_PRT));
    if (!reply) return reply.status();
    change(reply.message(), cfgPrt::outProtoMask, cfgPrt::kUbxAndNmea);
    port.SendMessage(&reply.message()); // its result is not examined
    return status::kDone;
}

} // namespace ubx
