#include "monitor/Snapshot.h"

#include <UBXMessage.h>

#include "session/Failure.h"
#include "settings/Setting.h"

namespace ubxctl
{

namespace
{

constexpr std::uint32_t kPulseItems[] = {0x10050007, 0x10050012}; // whether a time pulse is on
constexpr std::size_t kTp5Flags = 28;
constexpr std::uint32_t kTp5Active = 1;

} // namespace

std::array<std::optional<bool>, 2> pulsesOf(Receiver& receiver)
{
    std::array<std::optional<bool>, 2> pulses;
    if (receiver.usesItems()) {
        std::map<std::uint32_t, std::uint64_t> values;
        if (receiver.items({kPulseItems[0], kPulseItems[1]}, values) != kDone) return pulses;
        for (std::size_t pulse = 0; pulse < 2; ++pulse)
            pulses[pulse] = values[kPulseItems[pulse]] != 0;
        return pulses;
    }
    const std::vector<Answer> answers = receiver.exchange().askAll({{UBX_CFG_TP5, {0}}, {UBX_CFG_TP5, {1}}});
    for (std::size_t pulse = 0; pulse < 2; ++pulse) {
        if (answers[pulse].status != kDone) continue;
        pulses[pulse] = (numberAt<std::uint32_t>(answers[pulse].payload, kTp5Flags) & kTp5Active) != 0;
    }
    return pulses;
}

Snapshot takeSnapshot(Receiver& receiver)
{
    Snapshot snapshot;
    const std::vector<Answer> answers = receiver.exchange().askAll({{kNavPvt}, {kNavSat}, {kMonHw}, {kTimSvin}});
    snapshot.status = answers[0].status | answers[1].status;
    if (answers[0].status == kDone) snapshot.solution = decodeNavPvt(answers[0].payload);
    if (answers[1].status == kDone) snapshot.satellites = decodeNavSat(answers[1].payload);
    if (answers[2].status == kDone) snapshot.hardware = decodeMonHw(answers[2].payload);
    if (answers[3].status == kDone) snapshot.survey = decodeTimSvin(answers[3].payload);
    if (snapshot.status != kDone) return snapshot; // a silent receiver is not asked for more

    const Reading mode = findSetting("timing-mode")->get(receiver);
    if (mode.value.has_value()) snapshot.timingMode = std::get<TimingMode>(*mode.value);
    snapshot.pulses = pulsesOf(receiver);
    return snapshot;
}

SystemSummary summaryOf(const std::vector<Satellite>& satellites, std::uint8_t gnssId)
{
    SystemSummary summary;
    int received = 0;
    for (const Satellite& satellite : satellites) {
        if (satellite.gnssId != gnssId) continue;
        ++summary.tracked;
        summary.used += satellite.used ? 1 : 0;
        if (satellite.signal == 0) continue;
        ++received;
        summary.meanSignal += satellite.signal;
    }
    if (received > 0) summary.meanSignal /= received;
    return summary;
}

} // namespace ubxctl
