#include "simulator/receiver/Navigator.h"

#include <algorithm>
#include <cmath>

namespace ubxsim
{

namespace
{

constexpr std::uint64_t kModeSurvey = 1;
constexpr std::uint64_t kModeFixed = 2;
constexpr std::uint64_t kFixMode2dOnly = 1;
constexpr std::uint64_t kFixMode3dOnly = 2;
constexpr double kTenthMillimetres = 10000.0;
constexpr double kCentimetres = 100.0;
constexpr double kAngleUnits = 1e7;
constexpr double kMetresPerDegree = 111320.0;
constexpr std::int64_t kApproachMilliseconds = 10000;
constexpr Key kWeekRollover = 0x30110017;
constexpr Key kFixMode = 0x20110011;
constexpr std::int64_t kWeeksPerRollover = 1024;

double signedValue(std::uint64_t value)
{
    return static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
}

} // namespace

Navigator::Navigator(const ModelProfile& profile, const SettingsStore& store, const Geodetic& truth, GpsTime start)
    : profile_(profile), store_(store), truth_(truth), start_(start)
{
    compute(SimTime::zero());
}

void Navigator::acquire(SimTime now, SimTime timeToFix)
{
    running_ = true;
    acquiringSince_ = now;
    fixAt_ = now + timeToFix;
}

Navigator::TimeMode Navigator::wantedTimeMode() const
{
    return {store_.get(key::tmodeMode), store_.get(key::tmodeSvinMinDur), store_.get(key::tmodeSvinAccLimit)};
}

void Navigator::followTimeMode()
{
    const TimeMode wanted = wantedTimeMode();
    const bool sameSurvey = wanted.mode == timeMode_.mode && wanted.minimumDuration == timeMode_.minimumDuration &&
                            wanted.accuracyLimit == timeMode_.accuracyLimit;
    if (wanted.mode != kModeSurvey) {
        survey_.stop();
        timeMode_ = wanted;
    } else if (!sameSurvey) {
        restartTimeMode();
    }
}

void Navigator::restartTimeMode()
{
    timeMode_ = wantedTimeMode();
    survey_.stop();
    if (timeMode_.mode == kModeSurvey) {
        survey_.start(static_cast<std::uint32_t>(timeMode_.minimumDuration),
                      static_cast<double>(timeMode_.accuracyLimit) / kTenthMillimetres);
    }
}

GpsTime Navigator::clockAt(SimTime now) const
{
    return {start_.milliseconds + std::chrono::duration_cast<std::chrono::milliseconds>(now).count()};
}

void Navigator::setClock(GpsTime time, SimTime now)
{
    start_.milliseconds += time.milliseconds - clockAt(now).milliseconds;
}

void Navigator::approachLeapSecond(SimTime now)
{
    const GpsTime present = clockAt(now);
    const UtcTime utc = utcTimeOf(present, kLeapSeconds, false);
    // The first day after the half-year: walk day by day, there are at most 184.
    constexpr std::int64_t kDay = 86400000;
    std::int64_t midnight = present.milliseconds - (present.milliseconds - kLeapSeconds * std::int64_t{1000}) % kDay;
    UtcTime day = utc;
    do {
        midnight += kDay;
        day = utcTimeOf({midnight}, kLeapSeconds, false);
    } while (day.day != 1 || (day.month != 1 && day.month != 7));
    leapEvent_ = midnight;
    setClock({midnight - kApproachMilliseconds}, now);
}

void Navigator::approachWeekRollover(SimTime now)
{
    const auto firstWeek = static_cast<std::int64_t>(store_.get(kWeekRollover));
    setClock({(firstWeek + kWeeksPerRollover) * kMillisecondsPerWeek - kApproachMilliseconds}, now);
}

LeapSeconds Navigator::leapSecondsAt(GpsTime time) const
{
    LeapSeconds leap;
    if (leapEvent_ == 0) {
        return leap;
    }
    leap.event = {leapEvent_};
    leap.announcedChange = 1;
    leap.secondsToEvent = static_cast<std::int32_t>((leapEvent_ - time.milliseconds) / 1000);
    if (time.milliseconds >= leapEvent_) {
        leap.current = kLeapSeconds + 1;
        leap.happening = time.milliseconds < leapEvent_ + 1000;
    }
    return leap;
}

// A receiver gets ten bits of the week from GPS and takes the rest from the first week that it was built for.
GpsTime Navigator::resolveWeek(GpsTime time) const
{
    const auto firstWeek = static_cast<std::int64_t>(store_.get(kWeekRollover));
    const std::int64_t week = time.week();
    std::int64_t shown = (week - firstWeek) % kWeeksPerRollover;
    shown += firstWeek + (shown < 0 ? kWeeksPerRollover : 0);
    return {time.milliseconds + (shown - week) * kMillisecondsPerWeek};
}

bool Navigator::isInTimeMode() const
{
    return timeMode_.mode == kModeFixed || survey_.isValid();
}

FixType Navigator::fixTypeFor(std::uint8_t used) const
{
    const std::uint64_t fixMode = store_.get(kFixMode);
    if (isInTimeMode()) {
        return used >= 1 ? FixType::timeOnly : FixType::none;
    }
    if (used >= 4 && fixMode != kFixMode2dOnly) {
        return FixType::threeD;
    }
    return used >= 3 && fixMode != kFixMode3dOnly ? FixType::twoD : FixType::none;
}

Geodetic Navigator::fixedPosition() const
{
    if (timeMode_.mode != kModeFixed) {
        return toGeodetic(survey_.mean());
    }
    if (store_.get(key::tmodePosType) != 0) {
        return {signedValue(store_.get(key::tmodeLat)) / kAngleUnits,
                signedValue(store_.get(key::tmodeLon)) / kAngleUnits,
                signedValue(store_.get(key::tmodeHeight)) / kCentimetres};
    }
    return toGeodetic({signedValue(store_.get(key::tmodeEcefX)) / kCentimetres,
                       signedValue(store_.get(key::tmodeEcefY)) / kCentimetres,
                       signedValue(store_.get(key::tmodeEcefZ)) / kCentimetres});
}

Geodetic Navigator::positionAt(SimTime now) const
{
    if (isInTimeMode()) {
        return fixedPosition();
    }
    // A slow wander of a metre or so, as an antenna under the open sky sees it.
    const double seconds = std::chrono::duration<double>(now).count();
    return {truth_.latitude + 0.9 * std::sin(seconds / 61.0) / kMetresPerDegree,
            truth_.longitude + 0.8 * std::sin(seconds / 47.0 + 1.0) / kMetresPerDegree,
            truth_.height + 1.4 * std::sin(seconds / 83.0 + 2.0)};
}

void Navigator::advanceSurvey(SimTime now)
{
    constexpr std::chrono::seconds kSecond{1};
    if (!survey_.isActive() || epoch_.fix != FixType::threeD) {
        surveyedUntil_ = now;
        return;
    }
    if (survey_.observations() == 0) {
        surveyedUntil_ = now - kSecond;
    }
    while (survey_.isActive() && surveyedUntil_ + kSecond <= now) {
        surveyedUntil_ += kSecond;
        survey_.addSecond(toEcef(truth_), surveyHopeless_);
    }
}

const Epoch& Navigator::compute(SimTime now)
{
    const bool searching = !running_ || now < fixAt_;
    epoch_.time = resolveWeek(clockAt(now));
    epoch_.leap = leapSecondsAt(clockAt(now));
    epoch_.utc = utcTimeOf(epoch_.time, epoch_.leap.current - (epoch_.leap.happening ? 1 : 0), epoch_.leap.happening);
    epoch_.sinceStart = static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
    epoch_.timeToFirstFix = static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(fixAt_ - acquiringSince_).count());
    epoch_.reception = reception_;

    epoch_.satellites = running_ ? satellitesInView(profile_, store_, reception_, now) : std::vector<Satellite>();
    if (searching) {
        for (Satellite& satellite : epoch_.satellites) {
            satellite.used = false;
        }
    }
    const auto used = static_cast<std::uint8_t>(
        std::count_if(epoch_.satellites.begin(), epoch_.satellites.end(), [](const Satellite& s) { return s.used; }));
    epoch_.fix = searching ? FixType::none : fixTypeFor(used);
    advanceSurvey(now);
    if (!searching) {
        epoch_.fix = fixTypeFor(used); // the survey may just have ended
    }
    epoch_.used = epoch_.hasPosition() ? used : 0;
    if (!epoch_.hasPosition()) {
        for (Satellite& satellite : epoch_.satellites) {
            satellite.used = false;
        }
    }
    epoch_.timeKnown = epoch_.timeKnown || epoch_.hasPosition();
    epoch_.survey = survey_;

    if (epoch_.hasPosition()) {
        epoch_.position = positionAt(now);
        epoch_.ecef = toEcef(epoch_.position);
    }
    const bool timing = epoch_.fix == FixType::timeOnly;
    const double fixedAccuracy = timeMode_.mode == kModeFixed
                                     ? static_cast<double>(store_.get(key::tmodeFixedPosAcc)) / kTenthMillimetres
                                     : survey_.accuracy();
    const double moving = 1.2 + 8.0 / std::max<double>(1.0, used);
    epoch_.horizontalAccuracy = timing ? fixedAccuracy : epoch_.hasPosition() ? moving : 4294967.0;
    epoch_.verticalAccuracy = timing ? fixedAccuracy : epoch_.hasPosition() ? 1.5 * moving : 3750000.0;
    epoch_.timeAccuracy = timing ? 21 : epoch_.hasPosition() ? 27 : 4294967295U;
    return epoch_;
}

} // namespace ubxsim
