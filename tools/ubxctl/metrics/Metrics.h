#pragma once

#include <string>
#include <utility>
#include <vector>

#include "output/Report.h"

namespace ubxctl
{

struct Sample
{
    std::vector<std::pair<std::string, std::string>> labels;
    double value;
};

/// A measured quantity, all of whose samples stand together. All are gauges.
struct Metric
{
    std::string name;
    std::string help;
    std::vector<Sample> samples;
};

/// The text that Prometheus reads.
std::string prometheusText(const std::vector<Metric>& metrics);

Json jsonOf(const std::vector<Metric>& metrics);

} // namespace ubxctl
