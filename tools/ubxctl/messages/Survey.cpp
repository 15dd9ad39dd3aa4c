#include "messages/Survey.h"

#include <cmath>

namespace ubxctl
{

namespace
{

namespace timSvin
{
constexpr std::size_t dur = 0, meanX = 4, meanY = 8, meanZ = 12, meanV = 16, obs = 20, valid = 24, active = 25;
} // namespace timSvin

constexpr double kMetresPerCentimetre = 0.01;
constexpr double kMetresPerMillimetre = 0.001;

} // namespace

SurveyProgress decodeTimSvin(const Bytes& payload)
{
    const auto metres = [&](std::size_t offset) {
        return numberAt<std::int32_t>(payload, offset) * kMetresPerCentimetre;
    };
    SurveyProgress progress{};
    progress.duration = numberAt<std::uint32_t>(payload, timSvin::dur);
    progress.observations = numberAt<std::uint32_t>(payload, timSvin::obs);
    // The receiver gives the variance, in square millimetres.
    progress.accuracy = std::sqrt(numberAt<std::uint32_t>(payload, timSvin::meanV)) * kMetresPerMillimetre;
    progress.valid = numberAt<std::uint8_t>(payload, timSvin::valid) != 0;
    progress.active = numberAt<std::uint8_t>(payload, timSvin::active) != 0;
    progress.x = metres(timSvin::meanX);
    progress.y = metres(timSvin::meanY);
    progress.z = metres(timSvin::meanZ);
    return progress;
}

Position SurveyProgress::position() const
{
    return fromEarthCentred(x, y, z);
}

Position fromEarthCentred(double x, double y, double z)
{
    constexpr double kSemiMajor = 6378137.0;
    constexpr double kFlattening = 1 / 298.257223563;
    constexpr double kSemiMinor = kSemiMajor * (1 - kFlattening);
    constexpr double kEccentricitySquared = kFlattening * (2 - kFlattening);
    constexpr double kDegreesPerRadian = 57.295779513082320877;
    constexpr int kRounds = 6; // each gains several digits near the surface

    const double fromAxis = std::hypot(x, y);
    // The reduced latitude first, then ever closer; good at the poles too.
    double reduced = std::atan2(z, fromAxis * (1 - kFlattening));
    double latitude = 0;
    for (int round = 0; round < kRounds; ++round) {
        const double sine = std::sin(reduced), cosine = std::cos(reduced);
        latitude = std::atan2(z + kEccentricitySquared / (1 - kEccentricitySquared) * kSemiMinor * sine * sine * sine,
                              fromAxis - kEccentricitySquared * kSemiMajor * cosine * cosine * cosine);
        reduced = std::atan2((1 - kFlattening) * std::sin(latitude), std::cos(latitude));
    }
    const double sine = std::sin(latitude), cosine = std::cos(latitude);
    const double normal = kSemiMajor / std::sqrt(1 - kEccentricitySquared * sine * sine);
    const double height = fromAxis * cosine + z * sine - kSemiMajor * kSemiMajor / normal;
    return {latitude * kDegreesPerRadian, std::atan2(y, x) * kDegreesPerRadian, height};
}

} // namespace ubxctl
