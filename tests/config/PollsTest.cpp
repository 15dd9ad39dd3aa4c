#include <ZedF9tUbxMessageBuilder.h>

#include <gtest/gtest.h>

#include "BuiltPayload.h"

using configtest::built;
using testsupport::bytes;
using Builder = ZedF9tUbxMessageBuilder;

TEST(KeyValuePolls, AntennaTimeBiasAsksForTheCableDelay)
{
    EXPECT_EQ(built(&Builder::poll_AntennaTimeBias), bytes("00 00 00 00 01 00 05 30"));
}

TEST(KeyValuePolls, JammingAsksWhetherTheInterferenceMonitorIsOn)
{
    EXPECT_EQ(built(&Builder::poll_Jamming), bytes("00 00 00 00 0D 00 41 10"));
}

TEST(KeyValuePolls, AntennaTypeAsksForTheAntennaSetting)
{
    EXPECT_EQ(built(&Builder::poll_AntennaType), bytes("00 00 00 00 10 00 41 20"));
}

TEST(KeyValuePolls, RateAsksForTheTimeReference)
{
    EXPECT_EQ(built(&Builder::polll_CFG_RATE), bytes("00 00 00 00 03 00 21 20"));
}

TEST(KeyValuePolls, SignalConfigurationAsksForSixConstellations)
{
    EXPECT_EQ(built(&Builder::poll_SIGNALConfiguration), bytes("00 00 00 00 "
                                                               "1F 00 31 10 "
                                                               "20 00 31 10 "
                                                               "21 00 31 10 "
                                                               "22 00 31 10 "
                                                               "24 00 31 10 "
                                                               "25 00 31 10"));
}

TEST(KeyValuePolls, SignalConfigurationForTim220AsksForSevenConstellations)
{
    EXPECT_EQ(built(&Builder::poll_SIGNALConfigurationForTim2_20), bytes("00 00 00 00 "
                                                                         "1F 00 31 10 "
                                                                         "20 00 31 10 "
                                                                         "21 00 31 10 "
                                                                         "22 00 31 10 "
                                                                         "24 00 31 10 "
                                                                         "25 00 31 10 "
                                                                         "26 00 31 10"));
}

TEST(KeyValuePolls, TimePulseEnableOfPulseZeroAsksForTheFirst)
{
    EXPECT_EQ(built(&Builder::poll_CFG_TP_Enable, 0), bytes("00 00 00 00 07 00 05 10"));
}

TEST(KeyValuePolls, TimePulseEnableOfPulseOneAsksForTheSecond)
{
    EXPECT_EQ(built(&Builder::poll_CFG_TP_Enable, 1), bytes("00 00 00 00 12 00 05 10"));
}

TEST(KeyValuePolls, TimePulseEnableOfAnyOtherPulseAsksForNothing)
{
    EXPECT_EQ(built(&Builder::poll_CFG_TP_Enable, 2), bytes("00 00 00 00"));
    EXPECT_EQ(built(&Builder::poll_CFG_TP_Enable, 255), bytes("00 00 00 00"));
}

TEST(KeyValuePolls, TimingModeAsksForTheModeAlone)
{
    EXPECT_EQ(built(&Builder::poll_TMODE), bytes("00 00 00 00 01 00 03 20"));
}

TEST(KeyValuePolls, SurveyDurationAsksForItsMinimum)
{
    EXPECT_EQ(built(&Builder::poll_SvinMinDurConfiguration), bytes("00 00 00 00 10 00 03 40"));
}

TEST(KeyValuePolls, SurveyAccuracyAsksForItsLimit)
{
    EXPECT_EQ(built(&Builder::poll_SurveyAccuracyConfiguration), bytes("00 00 00 00 11 00 03 40"));
}

TEST(KeyValuePolls, WholeTimingModeAsksForEightItems)
{
    EXPECT_EQ(built(&Builder::poll_CFG_TMODE), bytes("00 00 00 00 "
                                                     "01 00 03 20 "
                                                     "02 00 03 20 "
                                                     "09 00 03 40 "
                                                     "0A 00 03 40 "
                                                     "0B 00 03 40 "
                                                     "0F 00 03 40 "
                                                     "10 00 03 40 "
                                                     "11 00 03 40"));
}

TEST(KeyValuePolls, Nav5ElevationAsksForTheMinimumElevation)
{
    EXPECT_EQ(built(&Builder::poll_NAV5Elevation), bytes("00 00 00 00 A4 00 11 20"));
}

TEST(KeyValuePolls, Nav5UtcStandardAsksForTheUtcStandard)
{
    EXPECT_EQ(built(&Builder::poll_NAV5UtcStandard), bytes("00 00 00 00 1C 00 11 20"));
}

TEST(KeyValuePolls, Navx5AsksForTheMinimumSignal)
{
    EXPECT_EQ(built(&Builder::poll_NAVX5), bytes("00 00 00 00 A3 00 11 20"));
}
