#include "controller/legacy/LegacyOperations.h"
#include "protocol/payloads/CfgItfm.h"

namespace ubx
{

namespace
{

constexpr Word kReportedTypes[] = {{"passive", 1}, {"active", 2}};

constexpr std::uint8_t byteOf(std::uint32_t word, unsigned index)
{
    return static_cast<std::uint8_t>((word >> (8 * index)) & 0xFF);
}

} // namespace

int LegacyOperations::setAntennaType(const std::string& type)
{
    const Word* const word = findWord(profile_.antennaTypes, type);
    if (word == nullptr) return status::kRefused;

    const Reply reply = link_.poll(emptyPoll(UBX_CFG_ITFM));
    if (!reply) return reply.status();
    UBXMessage command = copyOf(reply);
    const unsigned antSetting = static_cast<unsigned>(word->value) << cfgItfm::kAntSettingInConfig2;
    change(command, cfgItfm::config2Low, static_cast<std::uint16_t>(cfgItfm::kGeneralBits | antSetting));
    return link_.send(command);
}

int LegacyOperations::getAntennaType(std::string& type)
{
    const Reply reply = link_.poll(emptyPoll(UBX_CFG_ITFM));
    if (!reply) return reply.status();
    const unsigned setting =
        (reply.payload().get(cfgItfm::antSettingByte) >> cfgItfm::kAntSettingShift) & cfgItfm::kAntSettingMask;
    const Word* const word = findWord(kReportedTypes, setting);
    type = word != nullptr ? word->text : "unknown";
    return status::kDone;
}

int LegacyOperations::setJammingDetection(bool on)
{
    const Reply reply = link_.poll(emptyPoll(UBX_CFG_ITFM));
    if (!reply) return reply.status();
    const std::uint32_t config = on ? cfgItfm::kConfigOn : cfgItfm::kConfigOff;
    UBXMessage command = copyOf(reply);
    change(command, cfgItfm::jammingByte0, byteOf(config, 0));
    change(command, cfgItfm::jammingByte1, byteOf(config, 1));
    change(command, cfgItfm::jammingByte2, byteOf(config, 2));
    change(command, cfgItfm::jammingByte3, byteOf(config, 3));
    return link_.send(command);
}

int LegacyOperations::getJammingDetection(bool& on)
{
    const Reply reply = link_.poll(emptyPoll(UBX_CFG_ITFM));
    if (reply) on = (reply.payload().get(cfgItfm::jammingByte3) & cfgItfm::kEnableInByte3) != 0;
    return reply.status();
}

} // namespace ubx
