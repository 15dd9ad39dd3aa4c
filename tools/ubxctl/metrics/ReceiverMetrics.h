#pragma once

#include <vector>

#include "metrics/Metrics.h"
#include "monitor/Snapshot.h"
#include "session/Receiver.h"

namespace ubxctl
{

/// The metrics of a receiver that answered, or of one that did not: then "up" is 0.
std::vector<Metric> receiverMetrics(const Identity& identity, const Snapshot& snapshot,
                                    std::optional<long> cableDelayNs);

/// Of a receiver that could not be reached.
std::vector<Metric> downMetrics();

} // namespace ubxctl
