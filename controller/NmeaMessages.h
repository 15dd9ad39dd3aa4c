#pragma once

/// NMEA sentences as CFG-MSG names them.
namespace ubx::nmea
{

inline constexpr unsigned short kGga = 0xF000;
inline constexpr unsigned short kGll = 0xF001;
inline constexpr unsigned short kGsa = 0xF002;
inline constexpr unsigned short kGsv = 0xF003;
inline constexpr unsigned short kRmc = 0xF004;
inline constexpr unsigned short kVtg = 0xF005;
inline constexpr unsigned short kZda = 0xF008;

} // namespace ubx::nmea
