#include "plot/SkyPlot.h"

#include <algorithm>
#include <cmath>

#include "output/Report.h"

namespace ubxctl
{

namespace
{

// Pixels.
constexpr double kCentreX = 260, kCentreY = 300, kRadius = 210;
constexpr double kChartLeft = 560, kChartBottom = 510, kChartHeight = 400, kBarStep = 22, kBarWidth = 16;
constexpr double kLeastWidth = 900, kPictureHeight = 600;
constexpr int kStrongestShown = 60; // dBHz

constexpr double kRadiansPerDegree = 0.017453292519943295;

// One for each system, told apart by people who do not see red and green alike too.
constexpr const char* kColours[kGnssSystems] = {"#0072b2", "#999999", "#009e73", "#d55e00",
                                                "#555555", "#cc79a7", "#b8860b"};

const char* colourOf(const Satellite& satellite)
{
    return satellite.gnssId < kGnssSystems ? kColours[satellite.gnssId] : "#000000";
}

std::string at(double value)
{
    return fixedPoint(value, 1);
}

std::string escaped(const std::string& text)
{
    std::string safe;
    for (const char character : text) {
        switch (character) {
        case '<':
            safe += "&lt;";
            break;
        case '>':
            safe += "&gt;";
            break;
        case '&':
            safe += "&amp;";
            break;
        case '"':
            safe += "&quot;";
            break;
        default:
            safe += character;
        }
    }
    return safe;
}

std::string label(double x, double y, const std::string& text, const std::string& attributes = {})
{
    return "<text x=\"" + at(x) + "\" y=\"" + at(y) + "\" " + attributes + ">" + escaped(text) + "</text>\n";
}

std::string line(double x1, double y1, double x2, double y2)
{
    return "<line x1=\"" + at(x1) + "\" y1=\"" + at(y1) + "\" x2=\"" + at(x2) + "\" y2=\"" + at(y2) +
           "\" stroke=\"#ccc\"/>\n";
}

/// Details of a satellite, shown when the pointer rests on it.
std::string tip(const Satellite& satellite)
{
    std::string text = satellite.name() + ": " + std::to_string(satellite.signal) + " dBHz";
    if (satellite.hasPlace()) {
        text += ", elevation " + std::to_string(satellite.elevation) + ", azimuth " + std::to_string(satellite.azimuth);
    }
    return "<title>" + escaped(text + (satellite.used ? ", used" : ", not used")) + "</title>";
}

std::string fillOf(const Satellite& satellite)
{
    const std::string colour = colourOf(satellite);
    return satellite.used ? "fill=\"" + colour + "\" stroke=\"" + colour + "\""
                          : "fill=\"#fff\" stroke=\"" + colour + "\"";
}

std::string sky(const std::vector<Satellite>& satellites)
{
    std::string svg;
    for (int elevation = 0; elevation < 90; elevation += 30) {
        const double radius = kRadius * (90 - elevation) / 90;
        svg += "<circle cx=\"" + at(kCentreX) + "\" cy=\"" + at(kCentreY) + "\" r=\"" + at(radius) +
               "\" fill=\"none\" stroke=\"#ccc\"/>\n";
        svg += label(kCentreX + 4, kCentreY - radius + 14, std::to_string(elevation) + "°", "fill=\"#888\"");
    }
    svg += line(kCentreX - kRadius, kCentreY, kCentreX + kRadius, kCentreY);
    svg += line(kCentreX, kCentreY - kRadius, kCentreX, kCentreY + kRadius);
    const std::string centred = "text-anchor=\"middle\" font-weight=\"bold\"";
    svg += label(kCentreX, kCentreY - kRadius - 8, "N", centred);
    svg += label(kCentreX, kCentreY + kRadius + 18, "S", centred);
    svg += label(kCentreX + kRadius + 14, kCentreY + 5, "E", centred);
    svg += label(kCentreX - kRadius - 14, kCentreY + 5, "W", centred);

    for (const Satellite& satellite : satellites) {
        if (!satellite.hasPlace() || satellite.elevation < 0) continue;
        const double distance = kRadius * (90 - satellite.elevation) / 90;
        const double angle = satellite.azimuth * kRadiansPerDegree;
        const double x = kCentreX + distance * std::sin(angle), y = kCentreY - distance * std::cos(angle);
        svg += "<g>" + tip(satellite) + "<circle cx=\"" + at(x) + "\" cy=\"" + at(y) +
               "\" r=\"8\" stroke-width=\"2\" " + fillOf(satellite) + "/>";
        svg += label(x, y + 21, satellite.name(), "text-anchor=\"middle\" font-size=\"11\"") + "</g>\n";
    }
    return svg;
}

double heightOf(int signal)
{
    return kChartHeight * std::clamp(signal, 0, kStrongestShown) / kStrongestShown;
}

std::string chart(const std::vector<Satellite>& satellites)
{
    const double right = kChartLeft + kBarStep * static_cast<double>(satellites.size());
    std::string svg;
    for (int signal = 0; signal <= kStrongestShown; signal += 10) {
        const double y = kChartBottom - heightOf(signal);
        svg += line(kChartLeft, y, std::max(right, kChartLeft + 200), y);
        svg += label(kChartLeft - 6, y + 4, std::to_string(signal), "text-anchor=\"end\" fill=\"#888\"");
    }
    svg += label(kChartLeft - 6, kChartBottom - kChartHeight - 12, "C/N0, dBHz", "fill=\"#888\"");

    double x = kChartLeft;
    for (const Satellite& satellite : satellites) {
        const double height = heightOf(satellite.signal);
        svg += "<g>" + tip(satellite) + "<rect x=\"" + at(x + 3) + "\" y=\"" + at(kChartBottom - height) +
               "\" width=\"" + at(kBarWidth) + "\" height=\"" + at(height) + "\" " + fillOf(satellite) + "/>";
        const std::string turned = "font-size=\"11\" text-anchor=\"end\" transform=\"rotate(-90 " + at(x + 15) + " " +
                                   at(kChartBottom + 6) + ")\"";
        svg += label(x + 15, kChartBottom + 6, satellite.name(), turned) + "</g>\n";
        x += kBarStep;
    }
    return svg;
}

std::string legend(const std::vector<Satellite>& satellites)
{
    std::string svg;
    double x = kChartLeft;
    for (std::uint8_t system = 0; system < kGnssSystems; ++system) {
        const auto seen = std::count_if(satellites.begin(), satellites.end(),
                                        [&](const Satellite& satellite) { return satellite.gnssId == system; });
        if (seen == 0) continue;
        svg += "<circle cx=\"" + at(x) + "\" cy=\"576\" r=\"6\" fill=\"" + kColours[system] + "\"/>\n";
        svg += label(x + 11, 580, std::string(kGnssTable[system].name) + " " + std::to_string(seen));
        x += 96;
    }
    return svg;
}

} // namespace

std::string skyPlot(const std::vector<Satellite>& satellites, const std::string& time, const std::string& receiver)
{
    std::vector<Satellite> ordered = satellites;
    std::stable_sort(ordered.begin(), ordered.end(), [](const Satellite& one, const Satellite& other) {
        return std::pair(one.gnssId, one.number) < std::pair(other.gnssId, other.number);
    });
    const double width = std::max(kLeastWidth, kChartLeft + kBarStep * static_cast<double>(ordered.size()) + 30);
    const auto used = std::count_if(ordered.begin(), ordered.end(), [](const Satellite& s) { return s.used; });

    std::string svg = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    svg += "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + at(width) + "\" height=\"" + at(kPictureHeight) +
           "\" viewBox=\"0 0 " + at(width) + " " + at(kPictureHeight) +
           "\" font-family=\"sans-serif\" font-size=\"13\">\n";
    svg += "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n";
    svg += label(30, 36, receiver + (time.empty() ? "" : ", " + time), "font-size=\"20\" font-weight=\"bold\"");
    svg += label(30, 56,
                 std::to_string(ordered.size()) + " satellites, " + std::to_string(used) +
                     " used (filled), the others hollow",
                 "fill=\"#555\"");
    svg += sky(ordered) + chart(ordered) + legend(ordered);
    return svg + "</svg>\n";
}

} // namespace ubxctl
