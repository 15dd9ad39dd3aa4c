#pragma once

#include <array>
#include <optional>
#include <vector>

#include "messages/Hardware.h"
#include "messages/Navigation.h"
#include "messages/Survey.h"
#include "session/Receiver.h"
#include "settings/Value.h"

namespace ubxctl
{

/// All that there is to watch about a receiver, asked for at once. What it does not tell is missing.
struct Snapshot
{
    std::optional<NavigationSolution> solution;
    std::optional<std::vector<Satellite>> satellites;
    std::optional<HardwareStatus> hardware;
    std::optional<SurveyProgress> survey;
    std::optional<TimingMode> timingMode;
    std::array<std::optional<bool>, 2> pulses;
    int status = 0; ///< of the polls that every receiver answers
};

Snapshot takeSnapshot(Receiver& receiver);

/// Whether each time pulse is on; none where the receiver does not tell.
std::array<std::optional<bool>, 2> pulsesOf(Receiver& receiver);

/// How many satellites of a system are tracked and used, and how strong they are on average.
struct SystemSummary
{
    int tracked = 0;
    int used = 0;
    double meanSignal = 0; ///< dBHz, of those that are received
};

SystemSummary summaryOf(const std::vector<Satellite>& satellites, std::uint8_t gnssId);

} // namespace ubxctl
