#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "messages/Survey.h"
#include "session/Session.h"

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

    /// Shows nothing when the session's output is a program's. Between two questions, other commands may use the
    /// receiver.
    explicit SurveyWatch(Session& session);

    /// To be called before the survey is started: what a survey before it has left is not taken for its result.
    void noteEarlier();

    End follow(const SurveyGoal& goal);

    /// The last report of the receiver; none when it has not told yet.
    const std::optional<SurveyProgress>& progress() const { return progress_; }

private:
    std::optional<SurveyProgress> ask();
    bool isOfEarlier(const SurveyProgress& progress) const;
    void show(const SurveyProgress& progress, const SurveyGoal& goal);
    void pauseUntil(Exchange::Clock::time_point next);
    void finishLine();

    Session& session_;
    Console& console_;
    bool quiet_;
    std::optional<SurveyProgress> earlier_;
    std::optional<SurveyProgress> progress_;
    std::optional<Exchange::Clock::time_point> lastShown_;
};

} // namespace ubxctl
