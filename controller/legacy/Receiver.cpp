#include "controller/legacy/LegacyOperations.h"
#include "protocol/Payload.h"
#include "protocol/payloads/CfgPm2.h"
#include "protocol/payloads/CfgRate.h"
#include "protocol/payloads/CfgRxm.h"

namespace ubx
{

namespace
{

constexpr Word kReportedReferences[] = {{"UTC", cfgRate::kUtc}, {"GPS", cfgRate::kGps}};

constexpr Word kPowerModes[] = {
    {"CONTINUOUS", cfgRxm::kContinuous}, {"POWERSAVE", cfgRxm::kPowerSave}, {"ECO", cfgRxm::kEco}};

} // namespace

int LegacyOperations::setTimeReference(const std::string& reference)
{
    const Word* const word = findWord(profile_.timeReferences, reference);
    if (word == nullptr) return status::kRefused;

    const Reply reply = link_.poll(emptyPoll(UBX_CFG_RATE));
    if (!reply) return reply.status();
    UBXMessage command = copyOf(reply);
    change(command, cfgRate::timeRef, word->value);
    return link_.send(command);
}

int LegacyOperations::getTimeReference(std::string& reference)
{
    const Reply reply = link_.poll(emptyPoll(UBX_CFG_RATE));
    if (!reply) return reply.status();
    if (const Word* const word = findWord(kReportedReferences, reply.payload().get(cfgRate::timeRef))) {
        reference = word->text;
    }
    return status::kDone;
}

int LegacyOperations::setRxMode(const std::string& mode)
{
    const Word* const word = findWord(kPowerModes, mode);
    if (word == nullptr) return status::kRefused;

    const Reply reply = link_.poll(emptyPoll(UBX_CFG_RXM));
    if (!reply) return reply.status();
    UBXMessage command = copyOf(reply);
    change(command, cfgRxm::lpMode, word->value);
    return link_.send(command);
}

int LegacyOperations::getRxMode(std::string& mode)
{
    const Reply reply = link_.poll(emptyPoll(UBX_CFG_RXM));
    if (!reply) return reply.status();
    if (const Word* const word = findWord(kPowerModes, reply.payload().get(cfgRxm::lpMode))) mode = word->text;
    return status::kDone;
}

int LegacyOperations::configExtendedPowerManagment()
{
    return link_.send(Payload<cfgPm2::size>()
                          .set(cfgPm2::version, 1)
                          .set(cfgPm2::maxStartupStateDur, 6)
                          .set(cfgPm2::flags, 0x00039400)
                          .set(cfgPm2::updatePeriod, 1000)
                          .set(cfgPm2::searchPeriod, 10000)
                          .set(cfgPm2::tail24, 0x012C)
                          .set(cfgPm2::tail28, 0x0003C14F)
                          .set(cfgPm2::tail32, 0x00000286)
                          .set(cfgPm2::tail36, 0x000000FE)
                          .set(cfgPm2::tail40, 0x00014064)
                          .as(UBX_CFG_PM2));
}

} // namespace ubx
