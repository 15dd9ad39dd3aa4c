#include <ZedF9tUbxMessageBuilder.h>

#include <algorithm>

#include <gtest/gtest.h>

#include "BuiltPayload.h"

using configtest::built;
using testsupport::Bytes;
using testsupport::bytes;
using Builder = ZedF9tUbxMessageBuilder;

namespace
{

bool contains(const Bytes& payload, const Bytes& part)
{
    return std::search(payload.begin(), payload.end(), part.begin(), part.end()) != payload.end();
}

} // namespace

TEST(TimePulse, FirstPulseIsSetWithItsOwnKeys)
{
    EXPECT_EQ(built(&Builder::configureTP, 0, 1, true), bytes("00 01 00 00 "
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
                                                              "09 00 05 10 01"));
}

TEST(TimePulse, SecondPulseIsSetWithItsOwnKeysAndTheFirstOnesUnlockedLength)
{
    EXPECT_EQ(built(&Builder::configureTP, 1, 4, true), bytes("00 01 00 00 "
                                                              "23 00 05 20 00 "
                                                              "30 00 05 20 01 "
                                                              "01 00 05 30 00 00 "
                                                              "12 00 05 10 01 "
                                                              "0D 00 05 40 40 42 0F 00 "
                                                              "0E 00 05 40 40 42 0F 00 "
                                                              "04 00 05 40 00 00 00 00 "
                                                              "10 00 05 40 A0 86 01 00 "
                                                              "17 00 05 20 04 "
                                                              "13 00 05 10 01 "
                                                              "14 00 05 10 01"));
}

TEST(TimePulse, SecondPulseHasNoUnlockedLengthKeyOfItsOwn)
{
    const Bytes payload = built(&Builder::configureTP, 1, 0, false);

    EXPECT_TRUE(contains(payload, bytes("04 00 05 40")));
    EXPECT_FALSE(contains(payload, bytes("0F 00 05 40")));
}

TEST(TimePulse, DisabledPulseKeepsSyncAndLockedValues)
{
    EXPECT_EQ(built(&Builder::configureTP, 0, 0, false), bytes("00 01 00 00 "
                                                               "23 00 05 20 00 "
                                                               "30 00 05 20 01 "
                                                               "01 00 05 30 00 00 "
                                                               "07 00 05 10 00 "
                                                               "02 00 05 40 40 42 0F 00 "
                                                               "03 00 05 40 40 42 0F 00 "
                                                               "04 00 05 40 00 00 00 00 "
                                                               "05 00 05 40 A0 86 01 00 "
                                                               "0C 00 05 20 00 "
                                                               "08 00 05 10 01 "
                                                               "09 00 05 10 01"));
    EXPECT_EQ(built(&Builder::configureTP, 1, 255, false), bytes("00 01 00 00 "
                                                                 "23 00 05 20 00 "
                                                                 "30 00 05 20 01 "
                                                                 "01 00 05 30 00 00 "
                                                                 "12 00 05 10 00 "
                                                                 "0D 00 05 40 40 42 0F 00 "
                                                                 "0E 00 05 40 40 42 0F 00 "
                                                                 "04 00 05 40 00 00 00 00 "
                                                                 "10 00 05 40 A0 86 01 00 "
                                                                 "17 00 05 20 FF "
                                                                 "13 00 05 10 01 "
                                                                 "14 00 05 10 01"));
}

TEST(TimePulse, AnyOtherPulseSetsOnlyTheThreeCommonKeys)
{
    const Bytes common = bytes("00 01 00 00 "
                               "23 00 05 20 00 "
                               "30 00 05 20 01 "
                               "01 00 05 30 00 00");
    ASSERT_EQ(common.size(), 20U);

    EXPECT_EQ(built(&Builder::configureTP, 2, 3, true), common);
    EXPECT_EQ(built(&Builder::configureTP, 255, 0, false), common);
}
