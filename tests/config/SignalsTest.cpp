#include <ZedF9tUbxMessageBuilder.h>

#include <array>
#include <bitset>
#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

#include "BuiltPayload.h"

using configtest::built;
using testsupport::Bytes;
using testsupport::bytes;
using Builder = ZedF9tUbxMessageBuilder;

namespace
{

enum When
{
    kAlways,   // on when the flag is
    kDualBand, // on when the flag is and both bands are used
    kNever,
};

struct Expected
{
    const char* key; // as it stands in the payload
    int flag;        // 0 GPS, 1 SBAS, 2 Galileo, 3 BeiDou, 5 QZSS, 6 GLONASS, 7 the eighth
    When when;
};

const std::vector<Expected> kSignal = {
    {"1F 00 31 10", 0, kAlways},   {"01 00 31 10", 0, kAlways}, {"03 00 31 10", 0, kDualBand}, //
    {"20 00 31 10", 1, kAlways},   {"05 00 31 10", 1, kAlways},                                //
    {"21 00 31 10", 2, kAlways},   {"07 00 31 10", 2, kAlways}, {"0A 00 31 10", 2, kDualBand}, //
    {"22 00 31 10", 3, kAlways},   {"0D 00 31 10", 3, kAlways}, {"0E 00 31 10", 3, kDualBand}, //
    {"24 00 31 10", 5, kAlways},   {"12 00 31 10", 5, kAlways}, {"14 00 31 10", 5, kAlways},   //
    {"15 00 31 10", 5, kDualBand},                                                             //
    {"25 00 31 10", 6, kAlways},   {"18 00 31 10", 6, kAlways}, {"1A 00 31 10", 6, kDualBand},
};

const std::vector<Expected> kSignalForTim2_20 = {
    {"01 00 31 10", 0, kAlways}, {"03 00 31 10", 0, kDualBand}, {"04 00 31 10", 0, kNever},    //
    {"05 00 31 10", 1, kAlways},                                                               //
    {"07 00 31 10", 2, kAlways}, {"09 00 31 10", 2, kNever},    {"0A 00 31 10", 2, kDualBand}, //
    {"0D 00 31 10", 3, kAlways}, {"0E 00 31 10", 3, kDualBand}, {"0F 00 31 10", 3, kNever},    //
    {"12 00 31 10", 5, kAlways}, {"15 00 31 10", 5, kDualBand}, {"17 00 31 10", 5, kNever},    //
    {"18 00 31 10", 6, kAlways}, {"1A 00 31 10", 6, kDualBand},                                //
    {"1D 00 31 10", 7, kNever},                                                                //
    {"1F 00 31 10", 0, kAlways}, {"20 00 31 10", 1, kAlways},   {"21 00 31 10", 2, kAlways},   //
    {"22 00 31 10", 3, kAlways}, {"24 00 31 10", 5, kAlways},   {"25 00 31 10", 6, kAlways},   //
    {"26 00 31 10", 7, kAlways}, {"28 00 31 10", 3, kNever},
};

template <std::size_t flags>
void expectEveryCombination(unsigned int (*recipe)(unsigned char*, bool*, bool), const std::vector<Expected>& rows)
{
    for (unsigned int mask = 0; mask < 1U << flags; ++mask) {
        for (const bool dualBand : {false, true}) {
            SCOPED_TRACE("flags " + std::bitset<flags>(mask).to_string() + (dualBand ? ", dual band" : ""));
            std::array<bool, flags> gnss{};
            for (std::size_t flag = 0; flag < flags; ++flag)
                gnss[flag] = (mask >> flag & 1) != 0;
            Bytes expected = bytes("00 01 00 00");
            for (const Expected& row : rows) {
                const Bytes key = bytes(row.key);
                expected.insert(expected.end(), key.begin(), key.end());
                const bool flag = (mask >> row.flag & 1) != 0;
                const bool on = (row.when == kAlways && flag) || (row.when == kDualBand && flag && dualBand);
                expected.push_back(on ? 0x01 : 0x00);
            }
            const std::array<bool, flags> before = gnss;

            ASSERT_EQ(built(recipe, gnss.data(), dualBand), expected);

            ASSERT_EQ(gnss, before);
        }
    }
}

} // namespace

TEST(Signals, EveryCombinationOfSevenFlagsAndBandsIsWrittenAsTheTableSays)
{
    expectEveryCombination<7>(&Builder::configureSIGNAL, kSignal);
}

TEST(Signals, ForTim220EveryCombinationOfEightFlagsAndBandsIsWrittenAsTheTableSays)
{
    expectEveryCombination<8>(&Builder::configureSIGNALForTim2_20, kSignalForTim2_20);
}

TEST(Signals, AllFlagsInDualBandTurnEverySignalOn)
{
    bool gnss[] = {true, true, true, true, true, true, true};

    EXPECT_EQ(built(&Builder::configureSIGNAL, gnss, true), bytes("00 01 00 00 "
                                                                  "1F 00 31 10 01 "
                                                                  "01 00 31 10 01 "
                                                                  "03 00 31 10 01 "
                                                                  "20 00 31 10 01 "
                                                                  "05 00 31 10 01 "
                                                                  "21 00 31 10 01 "
                                                                  "07 00 31 10 01 "
                                                                  "0A 00 31 10 01 "
                                                                  "22 00 31 10 01 "
                                                                  "0D 00 31 10 01 "
                                                                  "0E 00 31 10 01 "
                                                                  "24 00 31 10 01 "
                                                                  "12 00 31 10 01 "
                                                                  "14 00 31 10 01 "
                                                                  "15 00 31 10 01 "
                                                                  "25 00 31 10 01 "
                                                                  "18 00 31 10 01 "
                                                                  "1A 00 31 10 01"));
}

TEST(Signals, WithoutDualBandTheSecondBandIsOffWhateverTheFlags)
{
    bool gnss[] = {true, true, true, true, true, true, true};

    EXPECT_EQ(built(&Builder::configureSIGNAL, gnss, false), bytes("00 01 00 00 "
                                                                   "1F 00 31 10 01 "
                                                                   "01 00 31 10 01 "
                                                                   "03 00 31 10 00 "
                                                                   "20 00 31 10 01 "
                                                                   "05 00 31 10 01 "
                                                                   "21 00 31 10 01 "
                                                                   "07 00 31 10 01 "
                                                                   "0A 00 31 10 00 "
                                                                   "22 00 31 10 01 "
                                                                   "0D 00 31 10 01 "
                                                                   "0E 00 31 10 00 "
                                                                   "24 00 31 10 01 "
                                                                   "12 00 31 10 01 "
                                                                   "14 00 31 10 01 "
                                                                   "15 00 31 10 00 "
                                                                   "25 00 31 10 01 "
                                                                   "18 00 31 10 01 "
                                                                   "1A 00 31 10 00"));
}

TEST(Signals, ImesFlagChangesNothing)
{
    bool without[] = {true, false, true, false, false, true, false};
    bool with[] = {true, false, true, false, true, true, false};

    EXPECT_EQ(built(&Builder::configureSIGNAL, without, true), built(&Builder::configureSIGNAL, with, true));
}

TEST(Signals, ForTim220AllFlagsInDualBandLeaveTheL5GenerationOff)
{
    bool gnss[] = {true, true, true, true, true, true, true, true};

    EXPECT_EQ(built(&Builder::configureSIGNALForTim2_20, gnss, true), bytes("00 01 00 00 "
                                                                            "01 00 31 10 01 "
                                                                            "03 00 31 10 01 "
                                                                            "04 00 31 10 00 "
                                                                            "05 00 31 10 01 "
                                                                            "07 00 31 10 01 "
                                                                            "09 00 31 10 00 "
                                                                            "0A 00 31 10 01 "
                                                                            "0D 00 31 10 01 "
                                                                            "0E 00 31 10 01 "
                                                                            "0F 00 31 10 00 "
                                                                            "12 00 31 10 01 "
                                                                            "15 00 31 10 01 "
                                                                            "17 00 31 10 00 "
                                                                            "18 00 31 10 01 "
                                                                            "1A 00 31 10 01 "
                                                                            "1D 00 31 10 00 "
                                                                            "1F 00 31 10 01 "
                                                                            "20 00 31 10 01 "
                                                                            "21 00 31 10 01 "
                                                                            "22 00 31 10 01 "
                                                                            "24 00 31 10 01 "
                                                                            "25 00 31 10 01 "
                                                                            "26 00 31 10 01 "
                                                                            "28 00 31 10 00"));
}
