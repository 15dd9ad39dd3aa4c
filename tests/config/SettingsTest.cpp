#include <ZedF9tUbxMessageBuilder.h>

#include <climits>

#include <gtest/gtest.h>

#include "BuiltPayload.h"

using configtest::built;
using testsupport::bytes;
using Builder = ZedF9tUbxMessageBuilder;

TEST(KeyValueSettings, InterferenceMonitorTakesThresholdsFirst)
{
    EXPECT_EQ(built(&Builder::configureITFM, true, 3, 15, false, 2), bytes("00 01 00 00 "
                                                                           "01 00 41 20 03 "
                                                                           "02 00 41 20 0F "
                                                                           "0D 00 41 10 01 "
                                                                           "10 00 41 20 02 "
                                                                           "13 00 41 10 00"));
}

TEST(KeyValueSettings, InterferenceMonitorOffStillTakesItsOtherArguments)
{
    EXPECT_EQ(built(&Builder::configureITFM, false, 0xFF, 0x80, true, 1), bytes("00 01 00 00 "
                                                                                "01 00 41 20 FF "
                                                                                "02 00 41 20 80 "
                                                                                "0D 00 41 10 00 "
                                                                                "10 00 41 20 01 "
                                                                                "13 00 41 10 01"));
}

TEST(KeyValueSettings, JammingLeavesTheAntennaTypeAlone)
{
    EXPECT_EQ(built(&Builder::configureJamming, true, 3, 5, false), bytes("00 01 00 00 "
                                                                          "01 00 41 20 03 "
                                                                          "02 00 41 20 05 "
                                                                          "0D 00 41 10 01 "
                                                                          "13 00 41 10 00"));
    EXPECT_EQ(built(&Builder::configureJamming, false, 4, 6, true), bytes("00 01 00 00 "
                                                                          "01 00 41 20 04 "
                                                                          "02 00 41 20 06 "
                                                                          "0D 00 41 10 00 "
                                                                          "13 00 41 10 01"));
}

TEST(KeyValueSettings, AntennaTypeIsOneByte)
{
    EXPECT_EQ(built(&Builder::configureAntennaType, 2), bytes("00 01 00 00 10 00 41 20 02"));
    EXPECT_EQ(built(&Builder::configureAntennaType, 0), bytes("00 01 00 00 10 00 41 20 00"));
}

TEST(KeyValueSettings, ElevationOfTenDegreesIsNineBytes)
{
    EXPECT_EQ(built(&Builder::configureNAV5Elevation, 10), bytes("00 01 00 00 A4 00 11 20 0A"));
}

TEST(KeyValueSettings, ElevationAboveTheRangeIsWrittenAsGiven)
{
    EXPECT_EQ(built(&Builder::configureNAV5Elevation, 200), bytes("00 01 00 00 A4 00 11 20 C8"));
}

TEST(KeyValueSettings, UtcStandardIsOneByte)
{
    EXPECT_EQ(built(&Builder::configureNAV5UtcStandard, 3), bytes("00 01 00 00 1C 00 11 20 03"));
}

TEST(KeyValueSettings, Nav5SetsElevationThenUtcStandard)
{
    EXPECT_EQ(built(&Builder::configureNAV5, 20, 4), bytes("00 01 00 00 "
                                                           "A4 00 11 20 14 "
                                                           "1C 00 11 20 04"));
    EXPECT_EQ(built(&Builder::configureNAV5, 0xFF, 0x81), bytes("00 01 00 00 "
                                                                "A4 00 11 20 FF "
                                                                "1C 00 11 20 81"));
}

TEST(KeyValueSettings, Navx5OfTwentyIsNineBytes)
{
    EXPECT_EQ(built(&Builder::configureNAVX5, 20), bytes("00 01 00 00 A3 00 11 20 14"));
}

TEST(KeyValueSettings, AntennaTimeBiasIsTwoBytes)
{
    EXPECT_EQ(built(&Builder::setAntennaTimeBias, 50), bytes("00 01 00 00 01 00 05 30 32 00"));
    EXPECT_EQ(built(&Builder::setAntennaTimeBias, -2), bytes("00 01 00 00 01 00 05 30 FE FF"));
    EXPECT_EQ(built(&Builder::setAntennaTimeBias, -32768), bytes("00 01 00 00 01 00 05 30 00 80"));
    EXPECT_EQ(built(&Builder::setAntennaTimeBias, 32767), bytes("00 01 00 00 01 00 05 30 FF 7F"));
}

TEST(KeyValueSettings, AntennaTimeBiasOutOfRangeKeepsItsLow16Bits)
{
    EXPECT_EQ(built(&Builder::setAntennaTimeBias, 70000), bytes("00 01 00 00 01 00 05 30 70 11"));
    EXPECT_EQ(built(&Builder::setAntennaTimeBias, INT_MIN), bytes("00 01 00 00 01 00 05 30 00 00"));
}

TEST(KeyValueSettings, GroupDelayIsFourBytes)
{
    EXPECT_EQ(built(&Builder::setGnssGroupDelay, 70000), bytes("00 01 00 00 06 00 05 40 70 11 01 00"));
    EXPECT_EQ(built(&Builder::setGnssGroupDelay, -1), bytes("00 01 00 00 06 00 05 40 FF FF FF FF"));
}

TEST(KeyValueSettings, RateIsOneSolutionPerSecondInTheGivenTime)
{
    EXPECT_EQ(built(&Builder::configureRATE, 4), bytes("00 01 00 00 "
                                                       "01 00 21 30 E8 03 "
                                                       "02 00 21 30 01 00 "
                                                       "03 00 21 20 04"));
}

TEST(KeyValueSettings, WholeTimingModeSetsEightItemsModeFirst)
{
    // 47.2851234 and -8.5654321 degrees, -10.00 m, 5000, 10800 s, 90
    EXPECT_EQ(built(&Builder::configureTMODE, 2, 472851234, -85654321, -1000, 5000U, 10800U, 90U),
              bytes("00 01 00 00 "
                    "01 00 03 20 02 "
                    "02 00 03 20 01 "
                    "09 00 03 40 22 23 2F 1C "
                    "0A 00 03 40 CF 04 E5 FA "
                    "0B 00 03 40 18 FC FF FF "
                    "0F 00 03 40 88 13 00 00 "
                    "10 00 03 40 30 2A 00 00 "
                    "11 00 03 40 5A 00 00 00"));
}

TEST(KeyValueSettings, SurveyInSetsTheModeLast)
{
    EXPECT_EQ(built(&Builder::configureSurveyInMode, 1, 10800U, 10000U), bytes("00 01 00 00 "
                                                                               "10 00 03 40 30 2A 00 00 "
                                                                               "11 00 03 40 10 27 00 00 "
                                                                               "01 00 03 20 01"));
    EXPECT_EQ(built(&Builder::configureSurveyInMode, 0, 0U, 0xFFFFFFFFU), bytes("00 01 00 00 "
                                                                                "10 00 03 40 00 00 00 00 "
                                                                                "11 00 03 40 FF FF FF FF "
                                                                                "01 00 03 20 00"));
}

TEST(KeyValueSettings, FixedPositionSetsTheModeLast)
{
    // The four corners of the argument range: 90 and -180 degrees, 10000 m, 200 m.
    EXPECT_EQ(built(&Builder::configureFixedMode, 2, 900000000, -1800000000, 1000000, 200000U),
              bytes("00 01 00 00 "
                    "02 00 03 20 01 "
                    "09 00 03 40 00 E9 A4 35 "
                    "0A 00 03 40 00 2E B6 94 "
                    "0B 00 03 40 40 42 0F 00 "
                    "0F 00 03 40 40 0D 03 00 "
                    "01 00 03 20 02"));
}

TEST(KeyValueSettings, SbasUsesAllButIntegrityAndSearchesFourteenSatellites)
{
    EXPECT_EQ(built(&Builder::configureSBAS), bytes("00 01 00 00 "
                                                    "02 00 36 10 01 "
                                                    "03 00 36 10 01 "
                                                    "04 00 36 10 01 "
                                                    "05 00 36 10 00 "
                                                    "06 00 36 50 E9 A3 37 00 00 00 00 00"));
}

TEST(KeyValueSettings, BeidouSystemUsesItsGeostationarySatellites)
{
    EXPECT_EQ(built(&Builder::configureBdsSystemConfig), bytes("00 01 00 00 14 00 34 10 01"));
}

TEST(KeyValueSettings, ExtendedPowerManagementIsFullPowerWhateverIsAskedFor)
{
    EXPECT_EQ(built(&Builder::configureExtendedPowerManagement, 0), bytes("00 01 00 00 01 00 D0 20 00"));
    EXPECT_EQ(built(&Builder::configureExtendedPowerManagement, 1), bytes("00 01 00 00 01 00 D0 20 00"));
    EXPECT_EQ(built(&Builder::configureExtendedPowerManagement, 255), bytes("00 01 00 00 01 00 D0 20 00"));
}
