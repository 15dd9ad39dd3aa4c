#pragma once

/// Whole frames, as they stand on the line, that more than one test expects. Typed by hand; those that belong to one
/// test stand there.
namespace zedtest
{

// Polls of configuration items (CFG-VALGET).

inline constexpr const char* kPollCableDelay = "B5 62 06 8B 08 00 00 00 00 00 01 00 05 30 CF CF";
inline constexpr const char* kPollAntennaTypeItem = "B5 62 06 8B 08 00 00 00 00 00 10 00 41 20 0A 73";
inline constexpr const char* kPollJammingItem = "B5 62 06 8B 08 00 00 00 00 00 0D 00 41 10 F7 57";
inline constexpr const char* kPollTimeReferenceItem = "B5 62 06 8B 08 00 00 00 00 00 03 00 21 20 DD FF";
inline constexpr const char* kPollSecondPulseItem = "B5 62 06 8B 08 00 00 00 00 00 12 00 05 10 C0 F3";
inline constexpr const char* kPollTimingModeItem = "B5 62 06 8B 08 00 00 00 00 00 01 00 03 20 BD BB";
inline constexpr const char* kPollSurveyDurationItem = "B5 62 06 8B 08 00 00 00 00 00 10 00 03 40 EC 17";
inline constexpr const char* kPollSurveyAccuracyItem = "B5 62 06 8B 08 00 00 00 00 00 11 00 03 40 ED 1B";
inline constexpr const char* kPollElevationItem = "B5 62 06 8B 08 00 00 00 00 00 A4 00 11 20 6E 63";
inline constexpr const char* kPollMinCNoItem = "B5 62 06 8B 08 00 00 00 00 00 A3 00 11 20 6D 5F";

// Six constellations; from TIM 2.20 on a seventh item.
inline constexpr const char* kPollSignalItems = "B5 62 06 8B 1C 00 "
                                                "00 00 00 00 "
                                                "1F 00 31 10 20 00 31 10 21 00 31 10 "
                                                "22 00 31 10 24 00 31 10 25 00 31 10 "
                                                "FE 89";
inline constexpr const char* kPollSignalItemsTim2_20 = "B5 62 06 8B 20 00 "
                                                       "00 00 00 00 "
                                                       "1F 00 31 10 20 00 31 10 21 00 31 10 "
                                                       "22 00 31 10 24 00 31 10 25 00 31 10 "
                                                       "26 00 31 10 "
                                                       "69 13";

// The time pulses by key (CFG-VALSET): one second, 100 ms long, the cable delay back to 0, active.

inline constexpr const char* kFirstPulseUtcItems = "B5 62 06 8A 48 00 "
                                                   "00 01 00 00 "
                                                   "23 00 05 20 00 "
                                                   "30 00 05 20 01 "
                                                   "01 00 05 30 00 00 "
                                                   "07 00 05 10 01 "
                                                   "02 00 05 40 40 42 0F 00 "
                                                   "03 00 05 40 40 42 0F 00 "
                                                   "04 00 05 40 00 00 00 00 "
                                                   "05 00 05 40 A0 86 01 00 "
                                                   "0C 00 05 20 00 "
                                                   "08 00 05 10 01 "
                                                   "09 00 05 10 01 "
                                                   "A3 E8";
inline constexpr const char* kFirstPulseGpsItems = "B5 62 06 8A 48 00 "
                                                   "00 01 00 00 "
                                                   "23 00 05 20 00 "
                                                   "30 00 05 20 01 "
                                                   "01 00 05 30 00 00 "
                                                   "07 00 05 10 01 "
                                                   "02 00 05 40 40 42 0F 00 "
                                                   "03 00 05 40 40 42 0F 00 "
                                                   "04 00 05 40 00 00 00 00 "
                                                   "05 00 05 40 A0 86 01 00 "
                                                   "0C 00 05 20 01 "
                                                   "08 00 05 10 01 "
                                                   "09 00 05 10 01 "
                                                   "A4 F3";

// The unlocked length is the first pulse's also in the second one's frame.
inline constexpr const char* kSecondPulseUtcItems = "B5 62 06 8A 48 00 "
                                                    "00 01 00 00 "
                                                    "23 00 05 20 00 "
                                                    "30 00 05 20 01 "
                                                    "01 00 05 30 00 00 "
                                                    "12 00 05 10 01 "
                                                    "0D 00 05 40 40 42 0F 00 "
                                                    "0E 00 05 40 40 42 0F 00 "
                                                    "04 00 05 40 00 00 00 00 "
                                                    "10 00 05 40 A0 86 01 00 "
                                                    "17 00 05 20 00 "
                                                    "13 00 05 10 01 "
                                                    "14 00 05 10 01 "
                                                    "F0 1D";
inline constexpr const char* kSecondPulseGpsItems = "B5 62 06 8A 48 00 "
                                                    "00 01 00 00 "
                                                    "23 00 05 20 00 "
                                                    "30 00 05 20 01 "
                                                    "01 00 05 30 00 00 "
                                                    "12 00 05 10 01 "
                                                    "0D 00 05 40 40 42 0F 00 "
                                                    "0E 00 05 40 40 42 0F 00 "
                                                    "04 00 05 40 00 00 00 00 "
                                                    "10 00 05 40 A0 86 01 00 "
                                                    "17 00 05 20 01 "
                                                    "13 00 05 10 01 "
                                                    "14 00 05 10 01 "
                                                    "F1 28";
inline constexpr const char* kSecondPulseOffUtcItems = "B5 62 06 8A 48 00 "
                                                       "00 01 00 00 "
                                                       "23 00 05 20 00 "
                                                       "30 00 05 20 01 "
                                                       "01 00 05 30 00 00 "
                                                       "12 00 05 10 00 "
                                                       "0D 00 05 40 40 42 0F 00 "
                                                       "0E 00 05 40 40 42 0F 00 "
                                                       "04 00 05 40 00 00 00 00 "
                                                       "10 00 05 40 A0 86 01 00 "
                                                       "17 00 05 20 00 "
                                                       "13 00 05 10 01 "
                                                       "14 00 05 10 01 "
                                                       "EF ED";

// Survey-in by key, as setSurveyAuto() without arguments asks for it: 10800 s, 1 m.
inline constexpr const char* kSurvey10800sOneMetreItems = "B5 62 06 8A 19 00 "
                                                          "00 01 00 00 "
                                                          "10 00 03 40 30 2A 00 00 "
                                                          "11 00 03 40 10 27 00 00 "
                                                          "01 00 03 20 01 "
                                                          "07 EF";

// Legacy polls.

inline constexpr const char* kPollPort = "B5 62 06 00 00 00 06 18";
inline constexpr const char* kPollRate = "B5 62 06 08 00 00 0E 30";
inline constexpr const char* kPollPowerMode = "B5 62 06 11 00 00 17 4B";
inline constexpr const char* kPollNavx5 = "B5 62 06 23 00 00 29 81";
inline constexpr const char* kPollNav5 = "B5 62 06 24 00 00 2A 84";
inline constexpr const char* kPollFirstPulse = "B5 62 06 31 00 00 37 AB";
inline constexpr const char* kPollSecondPulse = "B5 62 06 31 01 00 01 39 E6";
inline constexpr const char* kPollInterference = "B5 62 06 39 00 00 3F C3";
inline constexpr const char* kPollTimingMode = "B5 62 06 3D 00 00 43 CF";
inline constexpr const char* kPollConstellations = "B5 62 06 3E 00 00 44 D2";
inline constexpr const char* kPollPosition = "B5 62 01 02 00 00 03 0A";
inline constexpr const char* kPollSolution = "B5 62 01 07 00 00 08 19";
inline constexpr const char* kPollSatellites = "B5 62 01 35 00 00 36 A3";
inline constexpr const char* kPollVersion = "B5 62 0A 04 00 00 0E 34";

// The legacy time pulses, active, without a cable delay.

inline constexpr const char* kFirstPulseGps = "B5 62 06 31 20 00 "
                                              "00 01 00 00 00 00 00 00 "
                                              "40 42 0F 00 40 42 0F 00 "
                                              "00 00 00 00 A0 86 01 00 "
                                              "00 00 00 00 F7 00 00 00 "
                                              "98 3E";
inline constexpr const char* kSecondPulseGps = "B5 62 06 31 20 00 "
                                               "01 01 00 00 00 00 00 00 "
                                               "40 42 0F 00 40 42 0F 00 "
                                               "00 00 00 00 A0 86 01 00 "
                                               "00 00 00 00 F7 00 00 00 "
                                               "99 5E";
inline constexpr const char* kFirstPulseUtc = "B5 62 06 31 20 00 "
                                              "00 01 00 00 00 00 00 00 "
                                              "40 42 0F 00 40 42 0F 00 "
                                              "00 00 00 00 A0 86 01 00 "
                                              "00 00 00 00 77 00 00 00 "
                                              "18 3E";
inline constexpr const char* kSecondPulseUtc = "B5 62 06 31 20 00 "
                                               "01 01 00 00 00 00 00 00 "
                                               "40 42 0F 00 40 42 0F 00 "
                                               "00 00 00 00 A0 86 01 00 "
                                               "00 00 00 00 77 00 00 00 "
                                               "19 5E";
inline constexpr const char* kSecondPulseOffGps = "B5 62 06 31 20 00 "
                                                  "01 01 00 00 00 00 00 00 "
                                                  "40 42 0F 00 40 42 0F 00 "
                                                  "00 00 00 00 A0 86 01 00 "
                                                  "00 00 00 00 F6 00 00 00 "
                                                  "98 5A";

// Commands in one form only.

inline constexpr const char* kStop = "B5 62 06 04 04 00 00 00 08 00 16 74";
inline constexpr const char* kStopAndForget = "B5 62 06 04 04 00 FF FF 08 00 14 6D";
inline constexpr const char* kStart = "B5 62 06 04 04 00 00 00 09 00 17 76";
inline constexpr const char* kReset = "B5 62 06 04 04 00 00 00 00 00 0E 64";
inline constexpr const char* kClear = "B5 62 06 09 0D 00 1F 1E 00 00 00 00 00 00 00 00 00 00 13 6C C7";
inline constexpr const char* kSave = "B5 62 06 09 0D 00 00 00 00 00 1F 1E 00 00 00 00 00 00 13 6C D3";
inline constexpr const char* kLoad = "B5 62 06 09 0D 00 00 00 00 00 00 00 00 00 1F 1E 00 00 13 6C DF";
inline constexpr const char* kSbas = "B5 62 06 16 08 00 01 03 03 00 E9 A3 37 00 EE B4";
inline constexpr const char* kPowerManagement = "B5 62 06 3B 2C 00 "
                                                "01 06 00 00 00 94 03 00 E8 03 00 00 "
                                                "10 27 00 00 00 00 00 00 00 00 00 00 "
                                                "2C 01 00 00 4F C1 03 00 86 02 00 00 "
                                                "FE 00 00 00 64 40 01 00 "
                                                "98 57";
inline constexpr const char* kUtcStandardAutomatic = "B5 62 06 24 24 00 "
                                                     "00 04 00 00 00 00 00 00 00 00 00 00 "
                                                     "00 00 00 00 00 00 00 00 00 00 00 00 "
                                                     "00 00 00 00 00 00 00 00 00 00 00 00 "
                                                     "52 50";

} // namespace zedtest
