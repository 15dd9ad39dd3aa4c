#pragma once

/// The words and selections that operations are tried with, by number.
namespace soak::words
{

inline constexpr const char* kTimeReferences[] = {"UTC", "GPS", "GLO", "BDS", "GAL"};
inline constexpr const char* kAntennaTypes[] = {"unknown", "passive", "active"};
inline constexpr const char* kTimingModes[] = {"DYNAMIC", "AUTO", "STATIC"};
inline constexpr unsigned short kSelections[] = {1, 5, 9, 65, 68};

} // namespace soak::words
