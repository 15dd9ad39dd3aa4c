#pragma once

namespace ubxsim
{

/// WGS 84, degrees and metres above the ellipsoid.
struct Geodetic
{
    double latitude = 0;
    double longitude = 0;
    double height = 0;
};

/// Earth-centred, earth-fixed, metres.
struct Ecef
{
    double x = 0;
    double y = 0;
    double z = 0;
};

Ecef toEcef(const Geodetic& position);
Geodetic toGeodetic(const Ecef& position);

} // namespace ubxsim
