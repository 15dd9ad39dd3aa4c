#pragma once

#include "simulator/receiver/Epoch.h"

namespace ubxsim
{

/// Turns settings, sky and time into navigation epochs.
class Navigator
{
public:
    Navigator(const ModelProfile& profile, const SettingsStore& store, const Geodetic& truth, GpsTime start);

    /// The receiver looks for satellites and has a fix after `timeToFix`.
    void acquire(SimTime now, SimTime timeToFix);
    void stop() { running_ = false; }
    bool isRunning() const { return running_; }

    /// Follows a change of the time-mode settings: a new duration or limit starts the survey anew, mode 0 ends it.
    void followTimeMode();
    /// After a restart the survey begins again.
    void restartTimeMode();

    /// Computes the epoch at `now`.
    const Epoch& compute(SimTime now);
    const Epoch& epoch() const { return epoch_; }

    Reception& reception() { return reception_; }
    void setSurveyHopeless(bool hopeless) { surveyHopeless_ = hopeless; }
    /// Moves the receiver's clock to ten seconds before the next half-year ends, with a leap second announced for then.
    void approachLeapSecond(SimTime now);
    /// Moves the receiver's clock to ten seconds before the last week that it can tell from one 1024 weeks ago ends.
    void approachWeekRollover(SimTime now);

private:
    struct TimeMode
    {
        std::uint64_t mode = 0;
        std::uint64_t minimumDuration = 0;
        std::uint64_t accuracyLimit = 0;
    };

    TimeMode wantedTimeMode() const;
    GpsTime clockAt(SimTime now) const;
    void setClock(GpsTime time, SimTime now);
    LeapSeconds leapSecondsAt(GpsTime time) const;
    GpsTime resolveWeek(GpsTime time) const;
    FixType fixTypeFor(std::uint8_t used) const;
    bool isInTimeMode() const;
    Geodetic positionAt(SimTime now) const;
    Geodetic fixedPosition() const;
    void advanceSurvey(SimTime now);

    const ModelProfile& profile_;
    const SettingsStore& store_;
    Geodetic truth_;
    GpsTime start_;
    bool running_ = true;
    SimTime acquiringSince_{0};
    SimTime fixAt_{0};
    SimTime surveyedUntil_{0};
    Survey survey_;
    TimeMode timeMode_;
    bool surveyHopeless_ = false;
    std::int64_t leapEvent_ = 0; // GPS milliseconds; 0 for none
    Reception reception_;
    Epoch epoch_;
};

} // namespace ubxsim
