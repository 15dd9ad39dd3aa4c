#include "survey/SurveyWatch.h"

#include <algorithm>
#include <cmath>
#include <thread>

#include "output/Report.h"
#include "session/Failure.h"
#include "session/Interrupt.h"
#include "settings/Quantity.h"

namespace ubxctl
{

namespace
{

using Clock = Exchange::Clock;

constexpr auto kBetweenPolls = std::chrono::seconds(1);
constexpr auto kBetweenLines = std::chrono::minutes(1);
constexpr auto kPause = std::chrono::milliseconds(20);
constexpr auto kTimeToStart = std::chrono::seconds(6); // some epochs, and a moment for the constellations
constexpr int kUnansweredBeforeSilent = 5;

constexpr int kWidestBar = 40;
constexpr int kNarrowestBar = 10;

void waitBetween(Clock::time_point until)
{
    while (Clock::now() < until && !Interrupt::requested())
        std::this_thread::sleep_for(kPause);
}

std::string bar(double share, int width)
{
    const int full = static_cast<int>(share * width);
    return "[" + std::string(static_cast<std::size_t>(full), '#') +
           std::string(static_cast<std::size_t>(width - full), '-') + "]";
}

} // namespace

double completed(const SurveyProgress& progress, const SurveyGoal& goal)
{
    constexpr double kAlmost = 0.99;
    if (progress.valid && !progress.active) return 1;
    if (goal.duration == 0) return 0;
    return std::min(kAlmost, static_cast<double>(progress.duration) / goal.duration);
}

std::string progressLine(const SurveyProgress& progress, const SurveyGoal& goal, int columns)
{
    const double share = completed(progress, goal);
    const bool longEnough = progress.duration >= goal.duration;
    std::string facts = " " + std::to_string(std::lround(std::floor(share * 100))) + " %  ";
    if (share >= 1) {
        facts += "finished";
    } else if (longEnough) {
        facts += "until " + shortNumber(goal.accuracy, 2) + " m";
    } else {
        facts += clockTime(goal.duration - progress.duration) + " left";
    }
    facts += "  " + std::to_string(progress.observations) + " observations  " + fixedPoint(progress.accuracy, 3) + " m";

    // The last column stays free, so that no terminal begins a new line.
    const int room = columns - 3 - static_cast<int>(facts.size());
    const std::string line = room < kNarrowestBar ? facts : bar(share, std::min(room, kWidestBar)) + facts;
    return line.substr(0, static_cast<std::size_t>(std::max(columns - 1, 1)));
}

SurveyWatch::SurveyWatch(Session& session)
    : session_(session), console_(session.console()), quiet_(session.options().json)
{}

std::optional<SurveyProgress> SurveyWatch::ask()
{
    const Answer answer = session_.exchange().ask({kTimSvin});
    if (answer.status != kDone) return std::nullopt;
    return decodeTimSvin(answer.payload);
}

void SurveyWatch::noteEarlier()
{
    earlier_ = ask();
}

bool SurveyWatch::isOfEarlier(const SurveyProgress& progress) const
{
    return earlier_.has_value() && !progress.active && progress.duration == earlier_->duration &&
           progress.observations == earlier_->observations;
}

SurveyWatch::End SurveyWatch::follow(const SurveyGoal& goal)
{
    const auto start = Clock::now();
    int unanswered = 0;
    bool begun = false;
    for (auto next = start; !Interrupt::requested(); pauseUntil(next)) {
        next = Clock::now() + kBetweenPolls;
        if (!session_.reclaim()) continue; // another command has it at the moment
        const auto progress = ask();
        if (Interrupt::requested()) break;
        if (!progress.has_value()) {
            if (++unanswered < kUnansweredBeforeSilent) continue;
            finishLine();
            return End::silent;
        }
        unanswered = 0;
        begun = begun || progress->active || (progress->valid && !isOfEarlier(*progress));
        if (!begun && Clock::now() - start < kTimeToStart) continue;
        progress_ = progress;
        show(*progress, goal);
        if (progress->active) continue;
        finishLine();
        // A short survey may be over before anybody looked. What is as good as was asked for will do.
        const bool fulfils = progress->duration >= goal.duration && progress->accuracy <= goal.accuracy;
        return progress->valid && (begun || fulfils) ? End::finished : End::stopped;
    }
    finishLine();
    return End::interrupted;
}

void SurveyWatch::pauseUntil(Clock::time_point next)
{
    session_.release();
    waitBetween(next);
}

void SurveyWatch::show(const SurveyProgress& progress, const SurveyGoal& goal)
{
    if (quiet_) return;
    const bool last = !progress.active;
    const auto now = Clock::now();
    if (console_.isTerminal()) {
        console_.write("\r" + progressLine(progress, goal, console_.size().columns) + "\x1b[K");
    } else if (last || !lastShown_.has_value() || now - *lastShown_ >= kBetweenLines) {
        constexpr int kColumnsOfALog = 100;
        console_.write(progressLine(progress, goal, kColumnsOfALog) + "\n");
    } else {
        return;
    }
    lastShown_ = now;
}

void SurveyWatch::finishLine()
{
    if (!quiet_ && console_.isTerminal() && lastShown_.has_value()) console_.write("\n");
}

} // namespace ubxctl
