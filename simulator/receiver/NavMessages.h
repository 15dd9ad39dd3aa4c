#pragma once

#include "simulator/receiver/Epoch.h"
#include "simulator/receiver/Model.h"
#include "simulator/wire/Frame.h"

#include <optional>

namespace ubxsim
{

/// The payload of a UBX message about this epoch; empty when the receiver has no such message.
std::optional<Bytes> buildMessage(std::uint16_t classId, const ModelProfile& profile, const SettingsStore& store,
                                  const Epoch& epoch);

} // namespace ubxsim
