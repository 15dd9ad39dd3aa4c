#include "metrics/ReceiverMetrics.h"

#include "session/Failure.h"

namespace ubxctl
{

namespace
{

constexpr double kSecondsPerNanosecond = 1e-9;
constexpr double kStrongestJamming = 255;
constexpr double kHighestGain = 8191;

Metric single(const char* name, const char* help, double value)
{
    return {name, help, {{{}, value}}};
}

double asNumber(bool value)
{
    return value ? 1 : 0;
}

void addSolution(std::vector<Metric>& metrics, const NavigationSolution& solution)
{
    metrics.push_back(single("ubx_fix_ok", "1 while the fix is within its limits.", asNumber(solution.fixOk)));
    metrics.push_back(single("ubx_fix_type", "0 none, 1 dead reckoning, 2 2D, 3 3D, 4 combined, 5 time only.",
                             static_cast<double>(solution.fix)));
    metrics.push_back(single("ubx_time_resolved", "1 while date and time are known for certain.",
                             asNumber(solution.dateValid && solution.timeValid && solution.timeResolved)));
    metrics.push_back(single("ubx_time_accuracy_seconds", "Estimated accuracy of the time.",
                             solution.timeAccuracyNs * kSecondsPerNanosecond));
    metrics.push_back({"ubx_position_accuracy_meters",
                       "Estimated accuracy of the position.",
                       {{{{"axis", "horizontal"}}, solution.horizontalAccuracy},
                        {{{"axis", "vertical"}}, solution.verticalAccuracy}}});
    metrics.push_back(single("ubx_latitude_degrees", "Latitude, north positive.", solution.latitude));
    metrics.push_back(single("ubx_longitude_degrees", "Longitude, east positive.", solution.longitude));
    metrics.push_back(single("ubx_height_meters", "Height above the ellipsoid.", solution.height));
    metrics.push_back(
        single("ubx_satellites_in_solution", "Satellites that the solution uses.", solution.satellitesUsed));
}

void addSatellites(std::vector<Metric>& metrics, const std::vector<Satellite>& satellites)
{
    Metric tracked{"ubx_satellites_tracked", "Satellites tracked, by system.", {}};
    Metric used{"ubx_satellites_used", "Satellites used, by system.", {}};
    Metric signal{"ubx_signal_mean_dbhz", "Mean C/N0 of the received satellites, by system.", {}};
    for (std::uint8_t system = 0; system < kGnssSystems; ++system) {
        const SystemSummary summary = summaryOf(satellites, system);
        const std::pair<std::string, std::string> label{"system", kGnssTable[system].word};
        tracked.samples.push_back({{label}, static_cast<double>(summary.tracked)});
        used.samples.push_back({{label}, static_cast<double>(summary.used)});
        if (summary.meanSignal > 0) signal.samples.push_back({{label}, summary.meanSignal});
    }
    metrics.insert(metrics.end(), {tracked, used, signal});
}

void addHardware(std::vector<Metric>& metrics, const HardwareStatus& hardware)
{
    metrics.push_back(single("ubx_antenna_status", "0 starting, 1 not known, 2 ok, 3 short circuit, 4 open circuit.",
                             hardware.antennaStatus));
    metrics.push_back(
        single("ubx_jamming_state", "0 not watched, 1 none, 2 interference, 3 critical.", hardware.jammingState));
    metrics.push_back(single("ubx_jamming_ratio", "Continuous-wave interference, 0 none to 1 strong.",
                             hardware.jammingIndicator / kStrongestJamming));
    metrics.push_back(single("ubx_noise_level", "Noise level as the receiver counts it.", hardware.noise));
    metrics.push_back(
        single("ubx_agc_ratio", "Gain of the automatic gain control, 0 to 1.", hardware.gain / kHighestGain));
}

void addTiming(std::vector<Metric>& metrics, const Snapshot& snapshot)
{
    if (snapshot.timingMode.has_value()) {
        const auto is = [&](TimingMode::Kind kind) { return asNumber(snapshot.timingMode->kind == kind); };
        metrics.push_back({"ubx_timing_mode",
                           "1 for the present timing mode.",
                           {{{{"mode", "dynamic"}}, is(TimingMode::Kind::dynamic)},
                            {{{"mode", "survey"}}, is(TimingMode::Kind::survey)},
                            {{{"mode", "fixed"}}, is(TimingMode::Kind::fixed)}}});
    }
    Metric pulses{"ubx_time_pulse_enabled", "1 while a time pulse is on.", {}};
    for (std::size_t pulse = 0; pulse < 2; ++pulse) {
        if (!snapshot.pulses[pulse].has_value()) continue;
        pulses.samples.push_back({{{"pulse", std::to_string(pulse + 1)}}, asNumber(*snapshot.pulses[pulse])});
    }
    metrics.push_back(pulses);
    if (!snapshot.survey.has_value()) return;
    const SurveyProgress& survey = *snapshot.survey;
    metrics.push_back(single("ubx_survey_active", "1 while a survey-in goes on.", asNumber(survey.active)));
    metrics.push_back(single("ubx_survey_valid", "1 when the surveyed position is good.", asNumber(survey.valid)));
    metrics.push_back(single("ubx_survey_duration_seconds", "How long the survey-in has lasted.", survey.duration));
    metrics.push_back(single("ubx_survey_observations", "Positions that the survey-in has used.", survey.observations));
    metrics.push_back(
        single("ubx_survey_accuracy_meters", "Standard deviation of the surveyed position.", survey.accuracy));
}

} // namespace

std::vector<Metric> downMetrics()
{
    return {single("ubx_up", "1 while the receiver answers.", 0)};
}

std::vector<Metric> receiverMetrics(const Identity& identity, const Snapshot& snapshot,
                                    std::optional<long> cableDelayNs)
{
    std::vector<Metric> metrics = {
        single("ubx_up", "1 while the receiver answers.", asNumber(snapshot.status == kDone))};
    if (identity.isKnown()) {
        metrics.push_back({"ubx_receiver_info",
                           "What receiver this is; always 1.",
                           {{{{"model", identity.modelName()},
                              {"module", identity.module},
                              {"firmware", identity.firmware},
                              {"protocol", identity.protocol},
                              {"hardware", identity.hardware}},
                             1}}});
    }
    if (snapshot.solution.has_value()) addSolution(metrics, *snapshot.solution);
    if (snapshot.satellites.has_value()) addSatellites(metrics, *snapshot.satellites);
    if (snapshot.hardware.has_value()) addHardware(metrics, *snapshot.hardware);
    addTiming(metrics, snapshot);
    if (cableDelayNs.has_value()) {
        metrics.push_back(single("ubx_cable_delay_seconds", "Antenna cable delay that is made up for.",
                                 static_cast<double>(*cableDelayNs) * kSecondsPerNanosecond));
    }
    return metrics;
}

} // namespace ubxctl
