#include "simulator/settings/GnssBlocks.h"

#include "simulator/wire/LittleEndian.h"

#include <algorithm>

namespace ubxsim
{

namespace
{

constexpr std::size_t kHeaderSize = 4;
constexpr std::size_t kBlockSize = 8;
constexpr std::uint8_t kImes = 4;

constexpr std::uint8_t kM8Channels = 32;
constexpr std::uint8_t kF9Channels = 60;

std::uint8_t channelsOf(const ModelProfile& profile)
{
    return profile.model == Model::neoM8t ? kM8Channels : kF9Channels;
}

// The newer receiver has no IMES. Its legacy reply shows the block all the same, switched off, so that the blocks stand
// where software written for the older one looks for them; the strict setting leaves it out.
bool shows(const ModelProfile& profile, const GnssBlock& block)
{
    return block.gnssId != kImes || !profile.strictLegacy || profile.model == Model::neoM8t;
}

std::uint8_t signalMask(const GnssBlock& block, const SettingsStore& store, bool onlyEnabled)
{
    std::uint8_t mask = onlyEnabled ? std::uint8_t{0} : block.furtherSignals;
    for (const GnssSignal& signal : block.signals) {
        if (onlyEnabled ? store.get(signal.key) != 0 : store.has(signal.key)) {
            mask = static_cast<std::uint8_t>(mask | signal.bit);
        }
    }
    return mask;
}

} // namespace

const std::vector<GnssBlock>& gnssBlocks()
{
    using namespace key;
    static const std::vector<GnssBlock> blocks = {
        {0, true, gpsEnable, 0, {{0x01, gpsL1ca}, {0x10, gpsL2c}, {0x20, gpsL5}}},
        {1, false, sbasEnable, 0, {{0x01, sbasL1ca}}},
        {2, true, galEnable, 0, {{0x01, galE1}, {0x10, galE5a}, {0x20, galE5b}}},
        {3, true, bdsEnable, 0, {{0x01, bdsB1}, {0x10, bdsB2}, {0x80, bdsB2a}}},
        {4, false, imesEnable, 0x02, {{0x01, imesL1}}},
        {5, false, qzssEnable, 0, {{0x01, qzssL1ca}, {0x04, qzssL1s}, {0x10, qzssL2c}, {0x20, qzssL5}}},
        {6, true, gloEnable, 0, {{0x01, gloL1}, {0x10, gloL2}}},
    };
    return blocks;
}

Bytes readGnss(const ModelProfile& profile, const SettingsStore& store)
{
    Bytes payload = {0, channelsOf(profile), channelsOf(profile), 0};
    for (const GnssBlock& block : gnssBlocks()) {
        if (!shows(profile, block)) {
            continue;
        }
        append(payload, block.gnssId);
        append(payload, static_cast<std::uint8_t>(store.get(block.reservedChannels())));
        append(payload, static_cast<std::uint8_t>(store.get(block.highestChannels())));
        append(payload, std::uint8_t{0});
        append(payload, static_cast<std::uint8_t>(store.get(block.enable)));
        append(payload, std::uint8_t{0});
        append(payload, signalMask(block, store, true));
        append(payload, signalMask(block, store, false));
        ++payload[3];
    }
    return payload;
}

std::optional<Changes> gnssChanges(const ModelProfile& profile, const SettingsStore& store, const Bytes& payload)
{
    const std::size_t count = getBytes(payload, 3, 1);
    if (payload.size() < kHeaderSize || payload.size() != kHeaderSize + kBlockSize * count || payload[0] != 0) {
        return std::nullopt;
    }
    Changes changes;
    std::uint64_t reserved = 0;
    for (std::size_t at = kHeaderSize; at < payload.size(); at += kBlockSize) {
        const auto block = std::find_if(gnssBlocks().begin(), gnssBlocks().end(),
                                        [&](const GnssBlock& candidate) { return candidate.gnssId == payload[at]; });
        if (block == gnssBlocks().end()) {
            return std::nullopt;
        }
        const bool enabled = (payload[at + 4] & 1) != 0;
        reserved += enabled ? payload[at + 1] : std::uint64_t{0};
        changes.emplace_back(block->reservedChannels(), payload[at + 1]);
        changes.emplace_back(block->highestChannels(), payload[at + 2]);
        changes.emplace_back(block->enable, enabled ? 1 : 0);
        for (const GnssSignal& signal : block->signals) {
            if (store.has(signal.key)) {
                changes.emplace_back(signal.key, (payload[at + 6] & signal.bit) != 0 ? 1 : 0);
            }
        }
    }
    if (reserved > channelsOf(profile) || !isLegalCombination(profile, store, changes)) {
        return std::nullopt;
    }
    return changes;
}

bool isLegalCombination(const ModelProfile& profile, const SettingsStore& store, const Changes& changes)
{
    const auto isOn = [&](const GnssBlock& block) {
        const auto found = std::find_if(changes.rbegin(), changes.rend(),
                                        [&](const auto& change) { return change.first == block.enable; });
        return (found != changes.rend() ? found->second : store.get(block.enable)) != 0;
    };
    const auto majors = std::count_if(gnssBlocks().begin(), gnssBlocks().end(),
                                      [&](const GnssBlock& block) { return block.major && isOn(block); });
    return majors >= 1 && majors <= profile.majorGnssAtOnce;
}

} // namespace ubxsim
