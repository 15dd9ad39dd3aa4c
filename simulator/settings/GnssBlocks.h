#pragma once

#include "simulator/settings/LegacyView.h"

#include <cstdint>

namespace ubxsim
{

/// A signal of a constellation: its bit in CFG-GNSS and its key.
struct GnssSignal
{
    std::uint8_t bit;
    Key key;
};

/// A constellation as CFG-GNSS shows it.
struct GnssBlock
{
    std::uint8_t gnssId;
    bool major;
    Key enable;
    std::uint8_t furtherSignals; // supported ones that have no key
    std::vector<GnssSignal> signals;

    Key reservedChannels() const { return 0xA0310010U + gnssId; }
    Key highestChannels() const { return 0xA0310020U + gnssId; }
};

/// In the order of their gnssId.
const std::vector<GnssBlock>& gnssBlocks();

/// The payload of a CFG-GNSS reply, and what a set of it changes; empty when the receiver refuses it.
Bytes readGnss(const ModelProfile& profile, const SettingsStore& store);
std::optional<Changes> gnssChanges(const ModelProfile& profile, const SettingsStore& store, const Bytes& payload);

/// True when the receiver can work with the constellations that are on after the changes.
bool isLegalCombination(const ModelProfile& profile, const SettingsStore& store, const Changes& changes);

} // namespace ubxsim
