#include "simulator/receiver/Geodesy.h"

#include <cmath>

namespace ubxsim
{

namespace
{

constexpr double kSemiMajorAxis = 6378137.0;
constexpr double kFlattening = 1.0 / 298.257223563;
constexpr double kEccentricitySquared = kFlattening * (2.0 - kFlattening);
constexpr double kDegreesPerRadian = 57.29577951308232;

double primeVertical(double sinLatitude)
{
    return kSemiMajorAxis / std::sqrt(1.0 - kEccentricitySquared * sinLatitude * sinLatitude);
}

} // namespace

Ecef toEcef(const Geodetic& position)
{
    const double latitude = position.latitude / kDegreesPerRadian;
    const double longitude = position.longitude / kDegreesPerRadian;
    const double radius = primeVertical(std::sin(latitude));
    const double acrossAxis = (radius + position.height) * std::cos(latitude);
    return {acrossAxis * std::cos(longitude), acrossAxis * std::sin(longitude),
            (radius * (1.0 - kEccentricitySquared) + position.height) * std::sin(latitude)};
}

Geodetic toGeodetic(const Ecef& position)
{
    const double acrossAxis = std::hypot(position.x, position.y);
    if (acrossAxis == 0.0 && position.z == 0.0) {
        return {};
    }
    // Each round gains about three digits near the surface.
    double latitude = std::atan2(position.z, acrossAxis * (1.0 - kEccentricitySquared));
    for (int round = 0; round < 6; ++round) {
        const double sine = std::sin(latitude);
        latitude = std::atan2(position.z + kEccentricitySquared * primeVertical(sine) * sine, acrossAxis);
    }
    const double sine = std::sin(latitude);
    const double cosine = std::cos(latitude);
    const double height =
        acrossAxis * cosine + position.z * sine - kSemiMajorAxis * std::sqrt(1.0 - kEccentricitySquared * sine * sine);
    return {latitude * kDegreesPerRadian, std::atan2(position.y, position.x) * kDegreesPerRadian, height};
}

} // namespace ubxsim
