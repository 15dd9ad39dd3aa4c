#pragma once

#include "simulator/settings/LegacyTable.h"
#include "simulator/settings/SettingsStore.h"
#include "simulator/wire/Frame.h"

#include <optional>
#include <utility>

namespace ubxsim
{

using Changes = std::vector<std::pair<Key, std::uint64_t>>;

/// The legacy message of this receiver; null when it does not know or no longer answers it.
const LegacyMessage* findLegacyMessage(const ModelProfile& profile, std::uint16_t classId, std::uint8_t index);

/// The present settings as the payload of a reply.
Bytes readLegacy(const LegacyMessage& message, const SettingsStore& store);

/// What a set of this message changes; empty when the receiver refuses it.
std::optional<Changes> legacyChanges(const LegacyMessage& message, const SettingsStore& store, const Bytes& payload);

/// True when every value may be set.
bool areValid(const Changes& changes, const SettingsStore& store);

} // namespace ubxsim
