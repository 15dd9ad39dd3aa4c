#include "messages/Hardware.h"

#include <iterator>

namespace ubxctl
{

namespace
{

namespace monHw
{
constexpr std::size_t noisePerMS = 16, agcCnt = 18, aStatus = 20, aPower = 21, flags = 22, jamInd = 45;
constexpr int kJammingShift = 2;
constexpr int kJammingMask = 3;
} // namespace monHw

constexpr const char* kAntennaWords[] = {"starting", "not known", "ok", "short circuit", "open circuit"};
constexpr int kShort = 3;
constexpr int kOpen = 4;

constexpr const char* kJammingWords[] = {"not watched", "none", "interference", "critical"};
constexpr int kInterference = 2;

template <std::size_t Count>
std::string wordOf(const char* const (&words)[Count], int value)
{
    const auto index = static_cast<std::size_t>(value);
    return index < Count ? words[index] : "not known";
}

} // namespace

HardwareStatus decodeMonHw(const Bytes& payload)
{
    HardwareStatus status{};
    status.noise = numberAt<std::uint16_t>(payload, monHw::noisePerMS);
    status.gain = numberAt<std::uint16_t>(payload, monHw::agcCnt);
    status.antennaStatus = numberAt<std::uint8_t>(payload, monHw::aStatus);
    status.antennaPower = numberAt<std::uint8_t>(payload, monHw::aPower);
    status.jammingState = numberAt<std::uint8_t>(payload, monHw::flags) >> monHw::kJammingShift & monHw::kJammingMask;
    status.jammingIndicator = numberAt<std::uint8_t>(payload, monHw::jamInd);
    return status;
}

std::string HardwareStatus::antennaWord() const
{
    return wordOf(kAntennaWords, antennaStatus);
}

std::string HardwareStatus::jammingWord() const
{
    return wordOf(kJammingWords, jammingState);
}

bool HardwareStatus::antennaBad() const
{
    return antennaStatus == kShort || antennaStatus == kOpen;
}

bool HardwareStatus::jammed() const
{
    return jammingState >= kInterference;
}

} // namespace ubxctl
