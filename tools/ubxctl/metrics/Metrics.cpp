#include "metrics/Metrics.h"

#include <cmath>

#include "settings/Quantity.h"

namespace ubxctl
{

namespace
{

std::string escaped(const std::string& text, bool isLabel)
{
    std::string safe;
    for (const char character : text) {
        if (character == '\\') {
            safe += "\\\\";
        } else if (character == '\n') {
            safe += "\\n";
        } else if (isLabel && character == '"') {
            safe += "\\\"";
        } else {
            safe += character;
        }
    }
    return safe;
}

std::string valueText(double value)
{
    constexpr int kDigits = 10; // nanoseconds in seconds, and a tenth of them
    if (std::isnan(value)) return "NaN";
    return shortNumber(value, kDigits);
}

} // namespace

std::string prometheusText(const std::vector<Metric>& metrics)
{
    std::string text;
    for (const Metric& metric : metrics) {
        if (metric.samples.empty()) continue;
        text += "# HELP " + metric.name + " " + escaped(metric.help, false) + "\n";
        text += "# TYPE " + metric.name + " gauge\n";
        for (const Sample& sample : metric.samples) {
            text += metric.name;
            const char* separator = "{";
            for (const auto& [label, value] : sample.labels) {
                text += separator + label + "=\"" + escaped(value, true) + "\"";
                separator = ",";
            }
            text += (sample.labels.empty() ? " " : "} ") + valueText(sample.value) + "\n";
        }
    }
    return text;
}

Json jsonOf(const std::vector<Metric>& metrics)
{
    Json list = Json::array();
    for (const Metric& metric : metrics) {
        for (const Sample& sample : metric.samples) {
            Json labels = Json::object();
            for (const auto& [label, value] : sample.labels)
                labels[label] = value;
            list.push_back({{"name", metric.name}, {"labels", labels}, {"value", sample.value}});
        }
    }
    return list;
}

} // namespace ubxctl
