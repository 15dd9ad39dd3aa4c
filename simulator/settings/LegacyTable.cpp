#include "simulator/settings/LegacyTable.h"

namespace ubxsim
{

namespace
{

constexpr std::uint32_t kTenthsPerMillimetre = 10;

constexpr LegacyField u1(std::uint8_t offset, Key key, std::int8_t maskBit = -1)
{
    return {offset, 1, 0, 8, key, 1, maskBit};
}

constexpr LegacyField u2(std::uint8_t offset, Key key, std::int8_t maskBit = -1)
{
    return {offset, 2, 0, 16, key, 1, maskBit};
}

constexpr LegacyField u4(std::uint8_t offset, Key key, std::int8_t maskBit = -1)
{
    return {offset, 4, 0, 32, key, 1, maskBit};
}

constexpr LegacyField u4When(std::uint8_t offset, Key key, Key whenKey, std::uint8_t whenValue)
{
    return {offset, 4, 0, 32, key, 1, -1, whenKey, whenValue};
}

constexpr LegacyField u8(std::uint8_t offset, Key key)
{
    return {offset, 8, 0, 64, key};
}

constexpr LegacyField bits4(std::uint8_t offset, std::uint8_t shift, std::uint8_t bits, Key key)
{
    return {offset, 4, shift, bits, key};
}

constexpr LegacyField millimetres(std::uint8_t offset, Key key)
{
    return {offset, 4, 0, 32, key, kTenthsPerMillimetre};
}

LegacyMessage timePulse1()
{
    // The flags come first: they decide what the other fields mean.
    return {0x0631,
            0,
            32,
            0,
            LegacyRule::wholeMessage,
            kAll,
            kNeoM8t | kF9tTim20,
            {bits4(28, 0, 1, key::tp1Enable),
             bits4(28, 1, 1, 0x10050008),
             bits4(28, 2, 1, 0x10050009),
             bits4(28, 3, 1, key::pulseDef),
             bits4(28, 4, 1, key::pulseLengthDef),
             bits4(28, 5, 1, 0x1005000A),
             bits4(28, 6, 1, 0x1005000B),
             bits4(28, 7, 4, 0x2005000C),
             bits4(28, 11, 3, 0xA0050001),
             u2(4, key::antCableDelay),
             u2(6, 0xB0050001),
             u4When(8, 0x40050002, key::pulseDef, 0),
             u4When(8, 0x40050024, key::pulseDef, 1),
             u4When(12, 0x40050003, key::pulseDef, 0),
             u4When(12, 0x40050025, key::pulseDef, 1),
             u4When(16, 0xC0050001, key::pulseLengthDef, 0),
             u4When(16, 0x40050004, key::pulseLengthDef, 1),
             u4When(20, 0xC0050002, key::pulseLengthDef, 0),
             u4When(20, 0x40050005, key::pulseLengthDef, 1),
             u4(24, 0x40050006)},
            {{0, 1, 0}, {1, 1, 1}}};
}

LegacyMessage timePulse2()
{
    return {0x0631,
            1,
            32,
            0,
            LegacyRule::wholeMessage,
            kAll,
            kNeoM8t | kF9tTim20,
            {bits4(28, 0, 1, key::tp2Enable),
             bits4(28, 1, 1, 0x10050013),
             bits4(28, 2, 1, 0x10050014),
             bits4(28, 3, 1, key::pulseDef),
             bits4(28, 4, 1, key::pulseLengthDef),
             bits4(28, 5, 1, 0x10050015),
             bits4(28, 6, 1, 0x10050016),
             bits4(28, 7, 4, 0x20050017),
             bits4(28, 11, 3, 0xA0050002),
             u2(4, key::antCableDelay),
             u2(6, 0xB0050001),
             u4When(8, 0x4005000D, key::pulseDef, 0),
             u4When(8, 0x40050026, key::pulseDef, 1),
             u4When(12, 0x4005000E, key::pulseDef, 0),
             u4When(12, 0x40050027, key::pulseDef, 1),
             u4When(16, 0xC0050003, key::pulseLengthDef, 0),
             u4When(16, 0x4005000F, key::pulseLengthDef, 1),
             u4When(20, 0xC0050004, key::pulseLengthDef, 0),
             u4When(20, 0x40050010, key::pulseLengthDef, 1),
             u4(24, 0x40050011)},
            {{0, 1, 1}, {1, 1, 1}}};
}

LegacyMessage timeMode2()
{
    return {0x063D,
            0,
            28,
            0,
            LegacyRule::modeOnlyWhenOff,
            kAll,
            kNeoM8t,
            {u1(0, key::tmodeMode),
             {2, 2, 0, 1, key::tmodePosType},
             {2, 2, 1, 1, 0x90030001},
             u4When(4, key::tmodeEcefX, key::tmodePosType, 0),
             u4When(4, key::tmodeLat, key::tmodePosType, 1),
             u4When(8, key::tmodeEcefY, key::tmodePosType, 0),
             u4When(8, key::tmodeLon, key::tmodePosType, 1),
             u4When(12, key::tmodeEcefZ, key::tmodePosType, 0),
             u4When(12, key::tmodeHeight, key::tmodePosType, 1),
             millimetres(16, key::tmodeFixedPosAcc),
             u4(20, key::tmodeSvinMinDur),
             millimetres(24, key::tmodeSvinAccLimit)},
            {}};
}

LegacyMessage timeMode3()
{
    return {0x0671,
            0,
            40,
            0,
            LegacyRule::wholeMessage,
            kF9t,
            kF9tTim20,
            {{2, 2, 0, 8, key::tmodeMode},
             {2, 2, 8, 1, key::tmodePosType},
             u4When(4, key::tmodeEcefX, key::tmodePosType, 0),
             u4When(4, key::tmodeLat, key::tmodePosType, 1),
             u4When(8, key::tmodeEcefY, key::tmodePosType, 0),
             u4When(8, key::tmodeLon, key::tmodePosType, 1),
             u4When(12, key::tmodeEcefZ, key::tmodePosType, 0),
             u4When(12, key::tmodeHeight, key::tmodePosType, 1),
             u4(20, key::tmodeFixedPosAcc),
             u4(24, key::tmodeSvinMinDur),
             u4(28, key::tmodeSvinAccLimit)},
            {{0, 1, 0}}};
}

LegacyMessage navigation()
{
    return {0x0624,
            0,
            36,
            0,
            LegacyRule::maskAtOffset0,
            kAll,
            kNeoM8t | kF9tTim20,
            {u1(2, key::dynModel, 0), u1(3, 0x20110011, 2), u4(4, 0x401100C1, 2), u4(8, 0x401100C2, 2),
             u1(12, key::minElev, 1), u1(13, 0xA0110001, 3), u2(14, 0x301100B1, 4), u2(16, 0x301100B2, 5),
             u2(18, 0x301100B3, 4), u2(20, 0x301100B4, 5), u1(22, 0x20250038, 6), u1(23, 0x201100C4, 7),
             u1(24, 0x201100AA, 8), u1(25, 0x201100AB, 8), u2(28, 0x3025003B, 6), u1(30, 0x2011001C, 10)},
            {{0, 2, 0xFFFF}}};
}

LegacyMessage navigationExpert()
{
    return {0x0623,
            0,
            40,
            0,
            LegacyRule::maskAtOffset2,
            kAll,
            kNeoM8t | kF9tTim20,
            {u1(10, 0x201100A1, 2), u1(11, 0x201100A2, 2), u1(12, key::minCno, 3), u1(14, 0x10110013, 6),
             u1(17, 0x10110025, 10), u2(18, 0x30110017, 9), u1(20, 0xA0110002, -1), u1(26, 0x10110019, 13),
             u1(27, 0xA0110003, 14), u2(30, 0xB0110001, 14), u1(39, 0xA0110004, -1)},
            {{0, 2, 2, true}, {2, 2, 0xFFFF}, {4, 4, 0x0000023F}}};
}

LegacyMessage interference()
{
    return {0x0639,
            0,
            8,
            0,
            LegacyRule::wholeMessage,
            kAll,
            kNeoM8t | kF9tTim20,
            {bits4(0, 0, 4, 0x20410001), bits4(0, 4, 5, 0x20410002), bits4(0, 9, 22, 0xC0410001),
             bits4(0, 31, 1, key::itfmEnable), bits4(4, 0, 12, 0xB0410001), bits4(4, 12, 2, key::antSetting),
             bits4(4, 14, 1, 0x10410013)},
            {}};
}

LegacyMessage rate()
{
    return {0x0608,
            0,
            6,
            0,
            LegacyRule::wholeMessage,
            kAll,
            kNeoM8t | kF9tTim20,
            {u2(0, key::rateMeas), u2(2, key::rateNav), u2(4, key::rateTimeRef)},
            {}};
}

LegacyMessage receiverManager()
{
    return {0x0611, 0, 2, 0, LegacyRule::wholeMessage, kAll, kNeoM8t, {u1(1, 0xA0D00001)}, {{0, 1, 0x48}}};
}

LegacyMessage sbas()
{
    return {0x0616,
            0,
            8,
            0,
            LegacyRule::wholeMessage,
            kAll,
            kNeoM8t | kF9tTim20,
            {{0, 1, 0, 1, 0x90360001},
             {0, 1, 1, 1, 0x10360002},
             {1, 1, 0, 1, 0x10360003},
             {1, 1, 1, 1, 0x10360004},
             {1, 1, 2, 1, 0x10360005},
             u1(2, 0xA0360001),
             u4(4, 0x50360006)},
            {}};
}

LegacyMessage powerManagement()
{
    return {0x063B,
            0,
            48,
            44,
            LegacyRule::wholeMessage,
            kAll,
            kNeoM8t,
            {u8(0, 0xD0D00000), u8(8, 0xD0D00001), u8(16, 0xD0D00002), u8(24, 0xD0D00003), u8(32, 0xD0D00004),
             u8(40, 0xD0D00005)},
            {}};
}

} // namespace

const std::vector<LegacyMessage>& legacyTable()
{
    static const std::vector<LegacyMessage> table = {
        timePulse1(),   timePulse2(), timeMode2(),       timeMode3(), navigation(),      navigationExpert(),
        interference(), rate(),       receiverManager(), sbas(),      powerManagement(),
    };
    return table;
}

} // namespace ubxsim
