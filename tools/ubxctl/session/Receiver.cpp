#include "session/Receiver.h"

#include <UBXMessage.h>
#include <ZedF9tUbxMessageBuilder.h>
#include <ubloxChipInfo.h>

#include "session/Failure.h"

namespace ubxctl
{

namespace
{

constexpr std::size_t kItemsHeader = 4;
constexpr std::size_t kKeyLength = 4;

/// How many bytes an item's value has: its key says so.
std::size_t widthOf(std::uint32_t key)
{
    constexpr unsigned int kSizeShift = 28;
    constexpr std::uint32_t kSizeMask = 7;
    switch (key >> kSizeShift & kSizeMask) {
    case 1:
    case 2:
        return 1;
    case 3:
        return 2;
    case 4:
        return 4;
    case 5:
        return 8;
    default:
        return 0;
    }
}

} // namespace

std::string Identity::modelName() const
{
    if (!isKnown()) return "not identified";
    return isZedF9t() ? "ZED-F9T" : "NEO-M8T";
}

Identity Identity::recorded()
{
    return {ubloxChipInfo::getUbloxChipName(), ubloxChipInfo::getUbloxHwVer(), ubloxChipInfo::getUbloxSwVer(),
            ubloxChipInfo::getUbloxProtVer(), ubloxChipInfo::getUbloxModeName()};
}

Receiver::Receiver(std::shared_ptr<UBXControlInterface> control, std::shared_ptr<Exchange> exchange, Identity identity,
                   Language language)
    : control_(std::move(control)), exchange_(std::move(exchange)), identity_(std::move(identity)), language_(language)
{
    if (language_ != Language::automatic) control_->setZedf9tConfigurationInterfaceMode(language_ == Language::items);
}

int Receiver::write(const std::function<int(UBXControlInterface&)>& operations)
{
    ErrorLogs logs;
    int status = operations(*control_);
    for (const std::string& line : logs.newLines()) {
        if (line.find("Could not send : ") != std::string::npos) status |= kNotWritten;
    }
    return status;
}

int Receiver::inMessages(const std::function<int(UBXControlInterface&)>& operations)
{
    control_->setZedf9tConfigurationInterfaceMode(false);
    const int status = write(operations);
    control_->setZedf9tConfigurationInterfaceMode(usesItems());
    return status;
}

int Receiver::items(const std::vector<std::uint32_t>& keys, std::map<std::uint32_t, std::uint64_t>& values)
{
    Bytes poll(kItemsHeader + kKeyLength * keys.size());
    unsigned short position = kItemsHeader;
    for (const std::uint32_t key : keys)
        ZedF9tUbxMessageBuilder::configureKeyId(poll.data(), position, key);

    const Answer answer = exchange_->ask({UBX_CFG_VALGET, poll});
    for (std::size_t at = kItemsHeader; at + kKeyLength < answer.payload.size();) {
        const auto key = numberAt<std::uint32_t>(answer.payload, at);
        const std::size_t width = widthOf(key);
        if (width == 0 || at + kKeyLength + width > answer.payload.size()) break;
        const auto eight = numberAt<std::uint64_t>(answer.payload, at + kKeyLength);
        values[key] = width == 8 ? eight : eight & ((std::uint64_t{1} << (8 * width)) - 1);
        at += kKeyLength + width;
    }
    return answer.status;
}

} // namespace ubxctl
