#include "ItemSetters.h"

#include "WireFrames.h"

namespace zedtest
{

using Controller = ubxController_ZEDF9T;

const std::vector<ItemSetter> kItemSetters = {
    {"AntennaDelay",
     [](Controller& c) { return c.setAntennaDelay(28); },
     "B5 62 06 8A 0A 00 00 01 00 00 01 00 05 30 1C 00 ED B9",
     {zedtest::kPollCableDelay},
     {"Antenna cable delay"},
     {"01 00 05 30 1C 00"},
     {"01 00 05 30 1D 00"},
     5},
    {"LeastAntennaDelay",
     [](Controller& c) { return c.setAntennaDelay(-32768); },
     "B5 62 06 8A 0A 00 00 01 00 00 01 00 05 30 00 80 51 01",
     {zedtest::kPollCableDelay},
     {"Antenna cable delay"},
     {"01 00 05 30 00 80"},
     {"01 00 05 30 01 80"},
     5},
    {"GreatestAntennaDelay",
     [](Controller& c) { return c.setAntennaDelay(32767); },
     "B5 62 06 8A 0A 00 00 01 00 00 01 00 05 30 FF 7F 4F FE",
     {zedtest::kPollCableDelay},
     {"Antenna cable delay"},
     {"01 00 05 30 FF 7F"},
     {"01 00 05 30 00 80"},
     5},
    {"NoAntennaDelay",
     [](Controller& c) { return c.setAntennaDelay(0); },
     "B5 62 06 8A 0A 00 00 01 00 00 01 00 05 30 00 00 D1 81",
     {zedtest::kPollCableDelay},
     {"Antenna cable delay"},
     {"01 00 05 30 00 00"},
     {"01 00 05 30 32 00"},
     4},
    {"ActiveAntenna",
     [](Controller& c) { return c.setAntennaType("active"); },
     "B5 62 06 8A 09 00 00 01 00 00 10 00 41 20 02 0D 86",
     {zedtest::kPollAntennaTypeItem},
     {"Antenna setting"},
     {"10 00 41 20 02"},
     {"10 00 41 20 01"},
     5},
    {"PassiveAntenna",
     [](Controller& c) { return c.setAntennaType("passive"); },
     "B5 62 06 8A 09 00 00 01 00 00 10 00 41 20 01 0C 85",
     {zedtest::kPollAntennaTypeItem},
     {"Antenna setting"},
     {"10 00 41 20 01"},
     {"10 00 41 20 00"},
     5},
    {"UnknownAntenna",
     [](Controller& c) { return c.setAntennaType("unknown"); },
     "B5 62 06 8A 09 00 00 01 00 00 10 00 41 20 00 0B 84",
     {zedtest::kPollAntennaTypeItem},
     {"Antenna setting"},
     {"10 00 41 20 00"},
     {"10 00 41 20 03"},
     5},
    {"JammingDetectionOn",
     [](Controller& c) { return c.setJammingDetection(true); },
     "B5 62 06 8A 18 00 "
     "00 01 00 00 "
     "01 00 41 20 03 "
     "02 00 41 20 05 "
     "0D 00 41 10 01 "
     "13 00 41 10 00 "
     "39 17",
     {zedtest::kPollJammingItem},
     {"Enable interference detection"},
     {"0D 00 41 10 01"},
     {"0D 00 41 10 00"},
     5},
    {"JammingDetectionOff",
     [](Controller& c) { return c.setJammingDetection(false); },
     "B5 62 06 8A 18 00 "
     "00 01 00 00 "
     "01 00 41 20 03 "
     "02 00 41 20 05 "
     "0D 00 41 10 00 "
     "13 00 41 10 00 "
     "38 11",
     {zedtest::kPollJammingItem},
     {"Enable interference detection"},
     {"0D 00 41 10 00"},
     {"0D 00 41 10 01"},
     4},
    // 47.5 and -8.25 degrees, 455.12 m and 515 mm: what lies behind the last unit is cut off.
    {"SurveyStatic",
     [](Controller& c) { return c.setSurveyStatic(47.5, -8.25, 455.129, 0.5159); },
     "B5 62 06 8A 2E 00 "
     "00 01 00 00 "
     "02 00 03 20 01 "
     "09 00 03 40 C0 EC 4F 1C "
     "0A 00 03 40 60 26 15 FB "
     "0B 00 03 40 C8 B1 00 00 "
     "0F 00 03 40 03 02 00 00 "
     "01 00 03 20 02 "
     "6F B3",
     {zedtest::kPollTimingModeItem},
     {"Receiver mode"},
     {"01 00 03 20 02"},
     {"01 00 03 20 01"},
     5},
    // -1.9e-7 and 1.9e-7 degrees, -19 mm: toward zero in both directions.
    {"SurveyStaticNearZero",
     [](Controller& c) { return c.setSurveyStatic(-0.00000019, 0.00000019, -0.019, 0.0159); },
     "B5 62 06 8A 2E 00 "
     "00 01 00 00 "
     "02 00 03 20 01 "
     "09 00 03 40 FF FF FF FF "
     "0A 00 03 40 01 00 00 00 "
     "0B 00 03 40 FF FF FF FF "
     "0F 00 03 40 0F 00 00 00 "
     "01 00 03 20 02 "
     "4C 96",
     {zedtest::kPollTimingModeItem},
     {"Receiver mode"},
     {"01 00 03 20 02"},
     {"01 00 03 20 00"},
     5},
    {"SurveyStaticAtItsUpperLimits",
     [](Controller& c) { return c.setSurveyStatic(90, 180, 10000, 200); },
     "B5 62 06 8A 2E 00 "
     "00 01 00 00 "
     "02 00 03 20 01 "
     "09 00 03 40 00 E9 A4 35 "
     "0A 00 03 40 00 D2 49 6B "
     "0B 00 03 40 40 42 0F 00 "
     "0F 00 03 40 40 0D 03 00 "
     "01 00 03 20 02 "
     "6D 53",
     {zedtest::kPollTimingModeItem},
     {"Receiver mode"},
     {"01 00 03 20 02"},
     {"01 00 03 20 07"},
     5},
    {"SurveyStaticAtItsLowerLimits",
     [](Controller& c) { return c.setSurveyStatic(-90, -180, -1000, 0.01); },
     "B5 62 06 8A 2E 00 "
     "00 01 00 00 "
     "02 00 03 20 01 "
     "09 00 03 40 00 17 5B CA "
     "0A 00 03 40 00 2E B6 94 "
     "0B 00 03 40 60 79 FE FF "
     "0F 00 03 40 0A 00 00 00 "
     "01 00 03 20 02 "
     "D8 C3",
     {zedtest::kPollTimingModeItem},
     {"Receiver mode"},
     {"01 00 03 20 02"},
     {"01 00 03 20 00"},
     5},
    {"SurveyAuto",
     [](Controller& c) { return c.setSurveyAuto(10800, 1.0F); },
     zedtest::kSurvey10800sOneMetreItems,
     {zedtest::kPollTimingModeItem, zedtest::kPollSurveyDurationItem, zedtest::kPollSurveyAccuracyItem},
     {"Receiver mode", "Receiver mode", "Receiver mode"},
     {"01 00 03 20 01", "10 00 03 40 30 2A 00 00", "11 00 03 40 10 27 00 00"},
     {"01 00 03 20 02", "10 00 03 40 31 2A 00 00", "11 00 03 40 11 27 00 00"},
     5},
    {"SurveyAutoWithoutArguments",
     [](Controller& c) { return c.setSurveyAuto(); },
     zedtest::kSurvey10800sOneMetreItems,
     {zedtest::kPollTimingModeItem, zedtest::kPollSurveyDurationItem, zedtest::kPollSurveyAccuracyItem},
     {"Receiver mode", "Receiver mode", "Receiver mode"},
     {"01 00 03 20 01", "10 00 03 40 30 2A 00 00", "11 00 03 40 10 27 00 00"},
     {"01 00 03 20 00", "10 00 03 40 30 2A 00 00", "11 00 03 40 10 27 00 00"},
     5},
    // The number next to 0.01 that a float holds is a little less than 10 mm: 9 mm in steps of 0.1 mm.
    {"ShortestSurveyAuto",
     [](Controller& c) { return c.setSurveyAuto(1, 0.01F); },
     "B5 62 06 8A 19 00 "
     "00 01 00 00 "
     "10 00 03 40 01 00 00 00 "
     "11 00 03 40 5A 00 00 00 "
     "01 00 03 20 01 "
     "D1 92",
     {zedtest::kPollTimingModeItem, zedtest::kPollSurveyDurationItem, zedtest::kPollSurveyAccuracyItem},
     {"Receiver mode", "Receiver mode", "Receiver mode"},
     {"01 00 03 20 01", "10 00 03 40 01 00 00 00", "11 00 03 40 5A 00 00 00"},
     {"01 00 03 20 01", "10 00 03 40 02 00 00 00", "11 00 03 40 5A 00 00 00"},
     5},
    {"LongestSurveyAuto",
     [](Controller& c) { return c.setSurveyAuto(30000000, 50.0F); },
     "B5 62 06 8A 19 00 "
     "00 01 00 00 "
     "10 00 03 40 80 C3 C9 01 "
     "11 00 03 40 20 A1 07 00 "
     "01 00 03 20 01 "
     "4B 35",
     {zedtest::kPollTimingModeItem, zedtest::kPollSurveyDurationItem, zedtest::kPollSurveyAccuracyItem},
     {"Receiver mode", "Receiver mode", "Receiver mode"},
     {"01 00 03 20 01", "10 00 03 40 80 C3 C9 01", "11 00 03 40 20 A1 07 00"},
     {"01 00 03 20 01", "10 00 03 40 80 C3 C9 01", "11 00 03 40 5A 00 00 00"},
     5},
    {"SurveyAutoWithABrokenMillimetre",
     [](Controller& c) { return c.setSurveyAuto(60, 1.2345F); },
     "B5 62 06 8A 19 00 "
     "00 01 00 00 "
     "10 00 03 40 3C 00 00 00 "
     "11 00 03 40 34 30 00 00 "
     "01 00 03 20 01 "
     "16 A7",
     {zedtest::kPollTimingModeItem, zedtest::kPollSurveyDurationItem, zedtest::kPollSurveyAccuracyItem},
     {"Receiver mode", "Receiver mode", "Receiver mode"},
     {"01 00 03 20 01", "10 00 03 40 3C 00 00 00", "11 00 03 40 34 30 00 00"},
     {"01 00 03 20 01", "10 00 03 40 3C 00 00 00", "11 00 03 40 39 30 00 00"},
     5},
    {"SurveyDynamic",
     [](Controller& c) { return c.setSurveyDynamic(); },
     "B5 62 06 8A 19 00 "
     "00 01 00 00 "
     "10 00 03 40 00 00 00 00 "
     "11 00 03 40 00 00 00 00 "
     "01 00 03 20 00 "
     "75 56",
     {zedtest::kPollTimingModeItem},
     {"Receiver mode"},
     {"01 00 03 20 00"},
     {"01 00 03 20 02"},
     5},
    {"MinCNo",
     [](Controller& c) { return c.setMinCNo(40); },
     "B5 62 06 8A 09 00 00 01 00 00 A3 00 11 20 28 96 FB",
     {zedtest::kPollMinCNoItem},
     {"Minimum satellite signal level for navigation"},
     {"A3 00 11 20 28"},
     {"A3 00 11 20 09"},
     5},
    {"LeastMinCNo",
     [](Controller& c) { return c.setMinCNo(0); },
     "B5 62 06 8A 09 00 00 01 00 00 A3 00 11 20 00 6E D3",
     {zedtest::kPollMinCNoItem},
     {"Minimum satellite signal level for navigation"},
     {"A3 00 11 20 00"},
     {"A3 00 11 20 01"},
     4},
    {"GreatestMinCNo",
     [](Controller& c) { return c.setMinCNo(50); },
     "B5 62 06 8A 09 00 00 01 00 00 A3 00 11 20 32 A0 05",
     {zedtest::kPollMinCNoItem},
     {"Minimum satellite signal level for navigation"},
     {"A3 00 11 20 32"},
     {"A3 00 11 20 00"},
     5},
    {"LeastElevationLimit",
     [](Controller& c) { return c.setElevationLimit(5); },
     "B5 62 06 8A 09 00 00 01 00 00 A4 00 11 20 05 74 DD",
     {zedtest::kPollElevationItem},
     {"Minimum elevation for a GNSS satellite to be used in navigation"},
     {"A4 00 11 20 05"},
     {"A4 00 11 20 0A"},
     5},
    {"GreatestElevationLimit",
     [](Controller& c) { return c.setElevationLimit(60); },
     "B5 62 06 8A 09 00 00 01 00 00 A4 00 11 20 3C AB 14",
     {zedtest::kPollElevationItem},
     {"Minimum elevation for a GNSS satellite to be used in navigation"},
     {"A4 00 11 20 3C"},
     {"A4 00 11 20 05"},
     5},
    {"TimeReferenceUtc",
     [](Controller& c) { return c.setTimeReference("UTC"); },
     "B5 62 06 8A 15 00 "
     "00 01 00 00 "
     "01 00 21 30 E8 03 "
     "02 00 21 30 01 00 "
     "03 00 21 20 00 "
     "7B 81",
     {zedtest::kPollTimeReferenceItem},
     {"Minimum elevation for a GNSS satellite to be used in navigation"},
     {"03 00 21 20 00"},
     {"03 00 21 20 01"},
     5},
    {"TimeReferenceGps",
     [](Controller& c) { return c.setTimeReference("GPS"); },
     "B5 62 06 8A 15 00 "
     "00 01 00 00 "
     "01 00 21 30 E8 03 "
     "02 00 21 30 01 00 "
     "03 00 21 20 01 "
     "7C 82",
     {zedtest::kPollTimeReferenceItem},
     {"Minimum elevation for a GNSS satellite to be used in navigation"},
     {"03 00 21 20 01"},
     {"03 00 21 20 00"},
     5},
    {"TimeReferenceGlo",
     [](Controller& c) { return c.setTimeReference("GLO"); },
     "B5 62 06 8A 15 00 "
     "00 01 00 00 "
     "01 00 21 30 E8 03 "
     "02 00 21 30 01 00 "
     "03 00 21 20 02 "
     "7D 83",
     {zedtest::kPollTimeReferenceItem},
     {"Minimum elevation for a GNSS satellite to be used in navigation"},
     {"03 00 21 20 02"},
     {"03 00 21 20 05"},
     5},
    {"TimeReferenceBds",
     [](Controller& c) { return c.setTimeReference("BDS"); },
     "B5 62 06 8A 15 00 "
     "00 01 00 00 "
     "01 00 21 30 E8 03 "
     "02 00 21 30 01 00 "
     "03 00 21 20 03 "
     "7E 84",
     {zedtest::kPollTimeReferenceItem},
     {"Minimum elevation for a GNSS satellite to be used in navigation"},
     {"03 00 21 20 03"},
     {"03 00 21 20 02"},
     5},
    {"TimeReferenceGal",
     [](Controller& c) { return c.setTimeReference("GAL"); },
     "B5 62 06 8A 15 00 "
     "00 01 00 00 "
     "01 00 21 30 E8 03 "
     "02 00 21 30 01 00 "
     "03 00 21 20 04 "
     "7F 85",
     {zedtest::kPollTimeReferenceItem},
     {"Minimum elevation for a GNSS satellite to be used in navigation"},
     {"03 00 21 20 04"},
     {"03 00 21 20 00"},
     5},
};

} // namespace zedtest
