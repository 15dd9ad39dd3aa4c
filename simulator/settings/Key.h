#pragma once

#include <cstddef>
#include <cstdint>

namespace ubxsim
{

/// A configuration key as the receiver publishes it: bits 30 to 28 give the width, bits 23 to 16 the group.
using Key = std::uint32_t;

/// Settings that have no published key live in the same store under keys with this bit, which no real key has.
inline constexpr Key kPrivateBit = 0x80000000;

constexpr bool isPrivate(Key key)
{
    return (key & kPrivateBit) != 0;
}

/// Width of the value in a message, in bytes; 0 for an id that can't be a key.
constexpr std::size_t widthOf(Key key)
{
    switch ((key >> 28) & 7) {
    case 1:
    case 2:
        return 1;
    case 3:
        return 2;
    case 4:
        return 4;
    case 5:
        return 8;
    default:
        return 0;
    }
}

constexpr bool isOneBit(Key key)
{
    return ((key >> 28) & 7) == 1;
}

constexpr std::uint32_t groupOf(Key key)
{
    return (key >> 16) & 0xFFF;
}

namespace key
{

// CFG-TP
inline constexpr Key antCableDelay = 0x30050001;  // ns
inline constexpr Key pulseDef = 0x20050023;       // 0 period, 1 frequency
inline constexpr Key pulseLengthDef = 0x20050030; // 0 ratio, 1 length
inline constexpr Key tp1Enable = 0x10050007;
inline constexpr Key tp2Enable = 0x10050012;

// CFG-RATE
inline constexpr Key rateMeas = 0x30210001; // ms
inline constexpr Key rateNav = 0x30210002;
inline constexpr Key rateTimeRef = 0x20210003;

// CFG-TMODE
inline constexpr Key tmodeMode = 0x20030001;    // 0 off, 1 survey-in, 2 fixed
inline constexpr Key tmodePosType = 0x20030002; // 0 ECEF, 1 latitude, longitude, height
inline constexpr Key tmodeEcefX = 0x40030003;   // cm
inline constexpr Key tmodeEcefY = 0x40030004;
inline constexpr Key tmodeEcefZ = 0x40030005;
inline constexpr Key tmodeLat = 0x40030009; // 1e-7 degree
inline constexpr Key tmodeLon = 0x4003000A;
inline constexpr Key tmodeHeight = 0x4003000B;       // cm
inline constexpr Key tmodeFixedPosAcc = 0x4003000F;  // 0.1 mm
inline constexpr Key tmodeSvinMinDur = 0x40030010;   // s
inline constexpr Key tmodeSvinAccLimit = 0x40030011; // 0.1 mm

// CFG-NAVSPG
inline constexpr Key dynModel = 0x20110021;
inline constexpr Key minElev = 0x201100A4; // degrees, signed
inline constexpr Key minCno = 0x201100A3;  // dBHz

// CFG-ITFM
inline constexpr Key itfmEnable = 0x1041000D;
inline constexpr Key antSetting = 0x20410010;

// CFG-SIGNAL
inline constexpr Key gpsEnable = 0x1031001F;
inline constexpr Key gpsL1ca = 0x10310001;
inline constexpr Key gpsL2c = 0x10310003;
inline constexpr Key gpsL5 = 0x10310004;
inline constexpr Key sbasEnable = 0x10310020;
inline constexpr Key sbasL1ca = 0x10310005;
inline constexpr Key galEnable = 0x10310021;
inline constexpr Key galE1 = 0x10310007;
inline constexpr Key galE5a = 0x10310009;
inline constexpr Key galE5b = 0x1031000A;
inline constexpr Key bdsEnable = 0x10310022;
inline constexpr Key bdsB1 = 0x1031000D;
inline constexpr Key bdsB2 = 0x1031000E;
inline constexpr Key bdsB1c = 0x1031000F;
inline constexpr Key bdsB2a = 0x10310028;
inline constexpr Key imesEnable = 0x90310001; // no published key
inline constexpr Key imesL1 = 0x90310002;
inline constexpr Key qzssEnable = 0x10310024;
inline constexpr Key qzssL1ca = 0x10310012;
inline constexpr Key qzssL1s = 0x10310014;
inline constexpr Key qzssL2c = 0x10310015;
inline constexpr Key qzssL5 = 0x10310017;
inline constexpr Key gloEnable = 0x10310025;
inline constexpr Key gloL1 = 0x10310018;
inline constexpr Key gloL2 = 0x1031001A;
inline constexpr Key navicEnable = 0x10310026;
inline constexpr Key navicL5 = 0x1031001D;

// CFG-UART1
inline constexpr Key uart1BaudRate = 0x40520001;

} // namespace key

} // namespace ubxsim
