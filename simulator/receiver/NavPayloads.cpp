#include "simulator/receiver/NavPayloads.h"

#include "simulator/wire/LittleEndian.h"

#include <algorithm>
#include <cmath>

namespace ubxsim
{

namespace
{

constexpr std::uint16_t kNoDop = 9999;     // 99.99
constexpr double kGeoidSeparation = -31.0; // metres, near the default position

template <typename Integer>
Integer scaled(double value, double factor)
{
    const double product = std::round(value * factor);
    const auto lowest = static_cast<double>(std::numeric_limits<Integer>::min());
    const auto highest = static_cast<double>(std::numeric_limits<Integer>::max());
    return static_cast<Integer>(std::clamp(product, lowest, highest));
}

std::uint16_t dop(const Epoch& epoch, double factor)
{
    if (epoch.fix != FixType::threeD && epoch.fix != FixType::twoD) {
        return kNoDop;
    }
    return scaled<std::uint16_t>(factor * (0.6 + 8.0 / std::max<double>(1.0, epoch.used)), 100.0);
}

// Fix types 2D and up are good; a time-only fix too.
std::uint8_t fixOk(const Epoch& epoch)
{
    return epoch.hasPosition() ? 1 : 0;
}

std::uint8_t timeValid(const Epoch& epoch, std::uint8_t bits)
{
    return epoch.timeKnown ? bits : std::uint8_t{0};
}

Bytes startWithTow(const Epoch& epoch)
{
    Bytes payload;
    append(payload, epoch.time.timeOfWeek());
    return payload;
}

std::uint32_t satelliteFlags(const Satellite& satellite)
{
    constexpr std::uint32_t kAlmanac = 0x1000;
    constexpr std::uint32_t kEphemeris = 0x0800 | 0x0100; // known, and the source of the orbit
    constexpr std::uint32_t kHealthy = 0x0010;
    constexpr std::uint32_t kUsed = 0x0008;
    constexpr std::uint32_t kLocked = 7;
    constexpr std::uint32_t kSearching = 1;
    if (!satellite.tracked()) {
        return kAlmanac | kHealthy | kSearching;
    }
    return kAlmanac | kEphemeris | kHealthy | kLocked | (satellite.used ? kUsed : 0);
}

} // namespace

Bytes navPosEcef(const Report& report)
{
    const Epoch& epoch = report.epoch;
    Bytes payload = startWithTow(epoch);
    append(payload, scaled<std::int32_t>(epoch.ecef.x, 100));
    append(payload, scaled<std::int32_t>(epoch.ecef.y, 100));
    append(payload, scaled<std::int32_t>(epoch.ecef.z, 100));
    append(payload, scaled<std::uint32_t>(std::hypot(epoch.horizontalAccuracy, epoch.verticalAccuracy), 100));
    return payload;
}

Bytes navPosLlh(const Report& report)
{
    const Epoch& epoch = report.epoch;
    Bytes payload = startWithTow(epoch);
    append(payload, scaled<std::int32_t>(epoch.position.longitude, 1e7));
    append(payload, scaled<std::int32_t>(epoch.position.latitude, 1e7));
    append(payload, scaled<std::int32_t>(epoch.position.height, 1000));
    append(payload, scaled<std::int32_t>(epoch.position.height - kGeoidSeparation, 1000));
    append(payload, scaled<std::uint32_t>(epoch.horizontalAccuracy, 1000));
    append(payload, scaled<std::uint32_t>(epoch.verticalAccuracy, 1000));
    return payload;
}

Bytes navStatus(const Report& report)
{
    const Epoch& epoch = report.epoch;
    Bytes payload = startWithTow(epoch);
    append(payload, static_cast<std::uint8_t>(epoch.fix));
    append(payload, static_cast<std::uint8_t>(fixOk(epoch) | timeValid(epoch, 0x0C)));
    appendZeros(payload, 1);
    append(payload, std::uint8_t{0x08}); // tracking
    append(payload, epoch.timeToFirstFix);
    append(payload, epoch.sinceStart);
    return payload;
}

Bytes navDop(const Report& report)
{
    const Epoch& epoch = report.epoch;
    Bytes payload = startWithTow(epoch);
    const bool timing = epoch.fix == FixType::timeOnly;
    append(payload, timing ? std::uint16_t{32} : dop(epoch, 1.2)); // a time-only fix has a geometry in time alone
    append(payload, dop(epoch, 1.0));
    append(payload, timing ? std::uint16_t{32} : dop(epoch, 0.65));
    append(payload, dop(epoch, 0.85));
    append(payload, dop(epoch, 0.55));
    append(payload, dop(epoch, 0.4));
    append(payload, dop(epoch, 0.35));
    return payload;
}

Bytes navSol(const Report& report)
{
    const Epoch& epoch = report.epoch;
    Bytes payload = startWithTow(epoch);
    appendZeros(payload, 4);
    append(payload, epoch.time.week());
    append(payload, static_cast<std::uint8_t>(epoch.fix));
    append(payload, static_cast<std::uint8_t>(fixOk(epoch) | timeValid(epoch, 0x0C)));
    append(payload, scaled<std::int32_t>(epoch.ecef.x, 100));
    append(payload, scaled<std::int32_t>(epoch.ecef.y, 100));
    append(payload, scaled<std::int32_t>(epoch.ecef.z, 100));
    append(payload, scaled<std::uint32_t>(std::hypot(epoch.horizontalAccuracy, epoch.verticalAccuracy), 100));
    appendZeros(payload, 12);
    append(payload, std::uint32_t{5});
    append(payload, dop(epoch, 1.0));
    appendZeros(payload, 1);
    append(payload, epoch.used);
    appendZeros(payload, 4);
    return payload;
}

Bytes navPvt(const Report& report)
{
    const Epoch& epoch = report.epoch;
    Bytes payload = startWithTow(epoch);
    append(payload, epoch.utc.year);
    append(payload, epoch.utc.month);
    append(payload, epoch.utc.day);
    append(payload, epoch.utc.hour);
    append(payload, epoch.utc.minute);
    append(payload, epoch.utc.second);
    append(payload, timeValid(epoch, 0x07)); // date, time, fully resolved
    append(payload, epoch.timeAccuracy);
    append(payload, static_cast<std::int32_t>(epoch.utc.millisecond) * 1000000); // ns
    append(payload, static_cast<std::uint8_t>(epoch.fix));
    append(payload, fixOk(epoch));
    append(payload, timeValid(epoch, 0xE0)); // date and time confirmed
    append(payload, epoch.used);
    append(payload, scaled<std::int32_t>(epoch.position.longitude, 1e7));
    append(payload, scaled<std::int32_t>(epoch.position.latitude, 1e7));
    append(payload, scaled<std::int32_t>(epoch.position.height, 1000));
    append(payload, scaled<std::int32_t>(epoch.position.height - kGeoidSeparation, 1000));
    append(payload, scaled<std::uint32_t>(epoch.horizontalAccuracy, 1000));
    append(payload, scaled<std::uint32_t>(epoch.verticalAccuracy, 1000));
    appendZeros(payload, 5 * sizeof(std::int32_t)); // velocity, ground speed, heading: the antenna stands still
    append(payload, std::uint32_t{50});             // mm/s
    append(payload, std::uint32_t{18000000});       // no heading, 1e-5 degree
    append(payload, dop(epoch, 1.0));
    appendZeros(payload, 14);
    return payload;
}

Bytes navVelEcef(const Report& report)
{
    Bytes payload = startWithTow(report.epoch);
    appendZeros(payload, 3 * sizeof(std::int32_t));
    append(payload, std::uint32_t{5});
    return payload;
}

Bytes navVelNed(const Report& report)
{
    Bytes payload = startWithTow(report.epoch);
    appendZeros(payload, 6 * sizeof(std::int32_t));
    append(payload, std::uint32_t{5});
    append(payload, std::uint32_t{18000000});
    return payload;
}

Bytes navTimeGps(const Report& report)
{
    const Epoch& epoch = report.epoch;
    Bytes payload = startWithTow(epoch);
    appendZeros(payload, 4);
    append(payload, epoch.time.week());
    append(payload, static_cast<std::uint8_t>(epoch.leap.current));
    append(payload, timeValid(epoch, 0x07));
    append(payload, epoch.timeAccuracy);
    return payload;
}

Bytes navTimeUtc(const Report& report)
{
    const Epoch& epoch = report.epoch;
    Bytes payload = startWithTow(epoch);
    append(payload, epoch.timeAccuracy);
    append(payload, static_cast<std::int32_t>(epoch.utc.millisecond) * 1000000);
    append(payload, epoch.utc.year);
    append(payload, epoch.utc.month);
    append(payload, epoch.utc.day);
    append(payload, epoch.utc.hour);
    append(payload, epoch.utc.minute);
    append(payload, epoch.utc.second);
    append(payload, timeValid(epoch, 0x37)); // all valid; the standard is USNO's
    return payload;
}

Bytes navClock(const Report& report)
{
    const Epoch& epoch = report.epoch;
    Bytes payload = startWithTow(epoch);
    append(payload, static_cast<std::int32_t>(epoch.sinceStart / 1000 % 1000000)); // bias, ns
    append(payload, std::int32_t{1});                                              // drift, ns/s
    append(payload, epoch.timeAccuracy);
    append(payload, std::uint32_t{170}); // ps/s
    return payload;
}

Bytes navTimeLs(const Report& report)
{
    const Epoch& epoch = report.epoch;
    constexpr std::uint8_t kFromGps = 2;
    const bool announced = epoch.leap.announcedChange != 0;
    Bytes payload = startWithTow(epoch);
    appendZeros(payload, 4);
    append(payload, kFromGps);
    append(payload, static_cast<std::int8_t>(epoch.leap.current));
    append(payload, announced ? kFromGps : std::uint8_t{0});
    append(payload, epoch.leap.announcedChange);
    append(payload, epoch.leap.secondsToEvent);
    append(payload, announced ? epoch.leap.event.week() : std::uint16_t{0});
    const std::uint32_t day = epoch.leap.event.timeOfWeek() / 86400000 + 1;
    append(payload, announced ? static_cast<std::uint16_t>(day) : std::uint16_t{0});
    appendZeros(payload, 3);
    append(payload, timeValid(epoch, announced ? 0x03 : 0x01));
    return payload;
}

Bytes navSat(const Report& report)
{
    const Epoch& epoch = report.epoch;
    Bytes payload = startWithTow(epoch);
    append(payload, std::uint8_t{1}); // version
    append(payload, static_cast<std::uint8_t>(epoch.satellites.size()));
    appendZeros(payload, 2);
    for (const Satellite& satellite : epoch.satellites) {
        append(payload, satellite.gnssId);
        append(payload, satellite.svId);
        append(payload, satellite.cno);
        append(payload, satellite.elevation);
        append(payload, satellite.azimuth);
        append(payload, satellite.residual);
        append(payload, satelliteFlags(satellite));
    }
    return payload;
}

Bytes navSig(const Report& report)
{
    const Epoch& epoch = report.epoch;
    Bytes payload = startWithTow(epoch);
    appendZeros(payload, 4);
    for (const Satellite& satellite : epoch.satellites) {
        for (const Signal& signal : satellite.signals) {
            append(payload, satellite.gnssId);
            append(payload, satellite.svId);
            append(payload, signal.sigId);
            appendZeros(payload, 1);
            append(payload, satellite.residual);
            append(payload, signal.cno);
            append(payload, signal.cno != 0 ? std::uint8_t{7} : std::uint8_t{1});
            appendZeros(payload, 2);
            append(payload, satellite.used && signal.cno != 0 ? std::uint16_t{0x29} : std::uint16_t{0x01});
            appendZeros(payload, 4);
            ++payload[5];
        }
    }
    return payload;
}

Bytes navEoe(const Report& report)
{
    return startWithTow(report.epoch);
}

Bytes timTp(const Report& report)
{
    const Epoch& epoch = report.epoch;
    // Belongs to the next pulse.
    const GpsTime next = {epoch.time.milliseconds - epoch.time.milliseconds % 1000 + 1000};
    const std::uint64_t grid = report.store.get(0x2005000C);
    Bytes payload;
    append(payload, next.timeOfWeek());
    appendZeros(payload, 4);
    append(payload, static_cast<std::int32_t>(epoch.sinceStart * 37U % 20000) - 10000); // quantisation error, ps
    append(payload, next.week());
    append(payload, static_cast<std::uint8_t>((grid == 0 ? 0x01 : 0x00) | 0x02)); // time base, UTC available
    append(payload, std::uint8_t{0x0F});
    return payload;
}

Bytes timSvin(const Report& report)
{
    const Survey& survey = report.epoch.survey;
    const double variance = survey.accuracy() * survey.accuracy() * 1e6; // mm^2
    Bytes payload;
    append(payload, survey.duration());
    append(payload, scaled<std::int32_t>(survey.mean().x, 100));
    append(payload, scaled<std::int32_t>(survey.mean().y, 100));
    append(payload, scaled<std::int32_t>(survey.mean().z, 100));
    append(payload, scaled<std::uint32_t>(variance, 1));
    append(payload, survey.observations());
    append(payload, static_cast<std::uint8_t>(survey.isValid() ? 1 : 0));
    append(payload, static_cast<std::uint8_t>(survey.isActive() ? 1 : 0));
    appendZeros(payload, 2);
    return payload;
}

} // namespace ubxsim
