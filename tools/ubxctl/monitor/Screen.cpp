#include "monitor/Screen.h"

#include <algorithm>

#include "settings/Quantity.h"
#include "survey/SurveyWatch.h"

namespace ubxctl
{

namespace
{

/// Puts cells one after the other and stops at the right edge.
class Line
{
public:
    explicit Line(const ScreenStyle& style) : style_(style) {}

    /// @param width  columns that the text takes.
    Line& add(const std::string& text, std::size_t width, Tone tone = Tone::plain)
    {
        if (used_ + width > room()) {
            full_ = true;
        } else if (!full_) {
            line_ += coloured(Cell(text, tone), style_.colours);
            used_ += width;
        }
        return *this;
    }

    Line& add(const std::string& text, Tone tone = Tone::plain)
    {
        const std::size_t free = room() - std::min(used_, room());
        return add(text.substr(0, std::max<std::size_t>(free, 1)),
                   std::min(text.size(), std::max<std::size_t>(free, 1)), tone);
    }

    Line& label(const std::string& text)
    {
        constexpr std::size_t kLabelWidth = 14;
        return add(text + std::string(kLabelWidth - std::min(text.size(), kLabelWidth), ' '), Tone::dim);
    }

    const std::string& text() const { return line_; }

private:
    std::size_t room() const { return static_cast<std::size_t>(std::max(style_.size.columns, 1)); }

    const ScreenStyle& style_;
    std::string line_;
    std::size_t used_ = 0;
    bool full_ = false;
};

std::string padded(const std::string& text, std::size_t width)
{
    return text + std::string(width - std::min(text.size(), width), ' ');
}

Tone toneOf(NavigationSolution::Fix fix)
{
    using Fix = NavigationSolution::Fix;
    if (fix == Fix::full || fix == Fix::timeOnly) return Tone::good;
    return fix == Fix::none ? Tone::bad : Tone::attention;
}

void addSolution(std::vector<std::string>& lines, const NavigationSolution& solution, const ScreenStyle& style)
{
    const std::string time = utcOf(solution);
    lines.push_back(Line(style)
                        .label("Time")
                        .add(time.empty() ? "not known" : time, time.empty() ? Tone::bad : Tone::plain)
                        .add(time.empty() ? "" : "  +- " + shortNumber(solution.timeAccuracyNs, 0) + " ns", Tone::dim)
                        .text());
    lines.push_back(Line(style)
                        .label("Fix")
                        .add(nameOf(solution.fix), toneOf(solution.fix))
                        .add("  " + std::to_string(solution.satellitesUsed) + " satellites used")
                        .text());
    lines.push_back(Line(style)
                        .label("Position")
                        .add(fixedPoint(solution.latitude, 7) + "  " + fixedPoint(solution.longitude, 7) + "  " +
                             fixedPoint(solution.height, 2) + " m")
                        .add("  +- " + fixedPoint(solution.horizontalAccuracy, 2) + " m", Tone::dim)
                        .text());
}

void addTiming(std::vector<std::string>& lines, const Snapshot& snapshot, const ScreenStyle& style)
{
    if (snapshot.timingMode.has_value()) {
        const bool dynamic = snapshot.timingMode->kind == TimingMode::Kind::dynamic;
        lines.push_back(
            Line(style)
                .label("Timing mode")
                .add(Format::timingMode().show(*snapshot.timingMode), dynamic ? Tone::attention : Tone::good)
                .text());
    }
    if (snapshot.survey.has_value() && snapshot.timingMode.has_value() &&
        snapshot.timingMode->kind == TimingMode::Kind::survey) {
        constexpr int kLabelWidth = 14;
        lines.push_back(
            Line(style)
                .label("Survey")
                .add(progressLine(*snapshot.survey, {snapshot.timingMode->duration, snapshot.timingMode->accuracy},
                                  style.size.columns - kLabelWidth))
                .text());
    }
    Line pulses(style);
    pulses.label("Time pulses");
    for (std::size_t pulse = 0; pulse < 2; ++pulse) {
        if (!snapshot.pulses[pulse].has_value()) continue;
        const bool on = *snapshot.pulses[pulse];
        pulses.add(std::to_string(pulse + 1) + " ").add(on ? "on   " : "off  ", on ? Tone::good : Tone::dim);
    }
    lines.push_back(pulses.text());
}

void addHardware(std::vector<std::string>& lines, const HardwareStatus& hardware, const ScreenStyle& style)
{
    lines.push_back(Line(style)
                        .label("Antenna")
                        .add(hardware.antennaWord(), hardware.antennaBad() ? Tone::bad : Tone::plain)
                        .add(hardware.antennaPower == 1 ? ", supply on" : "", Tone::dim)
                        .text());
    lines.push_back(Line(style)
                        .label("Interference")
                        .add(hardware.jammingWord(), hardware.jammed() ? Tone::bad : Tone::plain)
                        .add("  indicator " + std::to_string(hardware.jammingIndicator) + "/255  noise " +
                                 std::to_string(hardware.noise) + "  gain " + std::to_string(hardware.gain),
                             Tone::dim)
                        .text());
}

void addSystems(std::vector<std::string>& lines, const std::vector<Satellite>& satellites, const ScreenStyle& style)
{
    lines.push_back(
        Line(style).add("System    used/seen  mean dBHz  each satellite, used ones bright", Tone::dim).text());
    for (std::uint8_t system = 0; system < kGnssSystems; ++system) {
        const SystemSummary summary = summaryOf(satellites, system);
        if (summary.tracked == 0) continue;
        Line line(style);
        line.add(padded(kGnssTable[system].name, 10))
            .add(padded(std::to_string(summary.used) + "/" + std::to_string(summary.tracked), 11))
            .add(padded(summary.meanSignal > 0 ? fixedPoint(summary.meanSignal, 1) : "-", 11));
        for (const Satellite& satellite : satellites) {
            if (satellite.gnssId != system) continue;
            line.add(signalBar(satellite.signal, style.blocks), 1, satellite.used ? Tone::good : Tone::dim);
        }
        lines.push_back(line.text());
    }
}

} // namespace

std::string signalBar(int signal, bool blocks)
{
    if (!blocks) return signal <= 0 ? "." : std::to_string(std::min(signal / 10, 9));
    constexpr const char* kBlocks[] = {"·", "▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
    constexpr int kWeakest = 15, kPerStep = 5; // dBHz
    if (signal <= 0) return kBlocks[0];
    return kBlocks[std::clamp((signal - kWeakest) / kPerStep + 1, 1, 8)];
}

std::vector<std::string> monitorScreen(const Identity& identity, const Snapshot& snapshot, const ScreenStyle& style)
{
    std::vector<std::string> lines;
    lines.push_back(Line(style)
                        .add(identity.modelName(), Tone::good)
                        .add(identity.isKnown() ? "  " + identity.firmware : "")
                        .add(style.stays ? "   q ends" : "", Tone::dim)
                        .text());
    if (snapshot.status != 0) {
        lines.push_back(Line(style).add("The receiver does not reply.", Tone::bad).text());
    }
    if (snapshot.solution.has_value()) addSolution(lines, *snapshot.solution, style);
    addTiming(lines, snapshot, style);
    if (snapshot.hardware.has_value()) addHardware(lines, *snapshot.hardware, style);
    if (snapshot.satellites.has_value()) {
        lines.emplace_back();
        addSystems(lines, *snapshot.satellites, style);
    }
    if (lines.size() > static_cast<std::size_t>(std::max(style.size.rows, 1))) {
        lines.resize(static_cast<std::size_t>(std::max(style.size.rows, 1)));
    }
    return lines;
}

} // namespace ubxctl
