#pragma once

/// How the receiver scales what it sends.
namespace ubx::units
{

inline constexpr double kDegreesScale = 1e7; // 1e-7 degrees in a degree
inline constexpr double kCentimetresPerMetre = 100.0;
inline constexpr double kMillimetresPerMetre = 1000.0;
inline constexpr int kMillimetresPerCentimetre = 10;

} // namespace ubx::units
