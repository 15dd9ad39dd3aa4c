#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "messages/Survey.h"
#include "output/Console.h"
#include "wire/Exchange.h"

namespace ubxctl
{

/// What a survey has to reach.
struct SurveyGoal
{
    unsigned int duration; ///< s
    double accuracy;       ///< m
};

/// How far the time has come, 0 to 1. A survey that has lasted long enough and is not accurate enough stays below 1.
double completed(const SurveyProgress& progress, const SurveyGoal& goal);

/// "[######----]  60 %  1:12:00 left  6480 observations  0.845 m", in so many columns.
std::string progressLine(const SurveyProgress& progress, const SurveyGoal& goal, int columns);

/// Follows a survey-in until it ends: with a bar on a terminal, with a line a minute elsewhere.
class SurveyWatch
{
public:
    enum class End
    {
        finished,   ///< the position is good
        stopped,    ///< no survey goes on, and there is no good position
        silent,     ///< the receiver does not answer any more
        interrupted ///< by the operator; the survey goes on
    };

    /// @param quiet  shows nothing: the output is a program's.
    SurveyWatch(Exchange& exchange, Console& console, bool quiet);

    /// To be called before the survey is started: what a survey before it has left is not taken for its result.
    void noteEarlier();

    End follow(const SurveyGoal& goal);

    /// The last report of the receiver.
    const SurveyProgress& progress() const { return progress_; }

private:
    std::optional<SurveyProgress> ask();
    bool isOfEarlier(const SurveyProgress& progress) const;
    void show(const SurveyGoal& goal);
    void finishLine();

    Exchange& exchange_;
    Console& console_;
    bool quiet_;
    std::optional<SurveyProgress> earlier_;
    SurveyProgress progress_{};
    std::optional<Exchange::Clock::time_point> lastShown_;
};

} // namespace ubxctl
