#pragma once

/// The words and selections that operations are tried with, by number.
namespace soak::words
{

inline constexpr const char* kTimeReferences[] = {"UTC", "GPS", "GLO", "BDS", "GAL"};
inline constexpr const char* kAntennaTypes[] = {"unknown", "passive", "active"};
inline constexpr const char* kTimingModes[] = {"DYNAMIC", "AUTO", "STATIC"};
inline constexpr const char* kRxModes[] = {"CONTINUOUS", "POWERSAVE", "ECO"};
inline constexpr const char* kSolutions[] = {"ALL", "TIME", "FIX", "POS"};
inline constexpr unsigned short kSelections[] = {1, 5, 9, 65, 68};
inline constexpr signed char kStandards[] = {1, 4, 8, 64};

/// Where the receiver says that it is in answers that are given to it: -45.1234567 and -0.1234567 degrees, -0.155 m.
inline constexpr long kLongitude = -1234567;
inline constexpr long kLatitude = -451234567;
inline constexpr long kHeightCm = -15;
inline constexpr const char* kShownPosition = "-45.123457 -0.123457 -0.155000";

/// NAV-PVT and NAV-POSLLH with that position.
inline constexpr const char* kAnswerPvt =
    "answer 0107 00 00 00 00 E8 07 03 07 09 05 2A 07 15 00 00 00 00 00 00 00 03 01 00 0C 79 29 ED FF F9 B4 1A E5 "
    "65 FF FF FF 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
    "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 polls";
inline constexpr const char* kAnswerPosllh =
    "answer 0102 00 00 00 00 79 29 ED FF F9 B4 1A E5 65 FF FF FF 00 00 00 00 00 00 00 00 00 00 00 00 polls";

/// A real receiver starts anew instead of answering a reset.
inline constexpr const char* kAnswerReset = "answer 0604 00 00 00 00 polls";

} // namespace soak::words
