// What ubxctl makes of the receiver's messages.

#include <gtest/gtest.h>

#include "Bytes.h"
#include "messages/Hardware.h"
#include "messages/Navigation.h"
#include "messages/Survey.h"

using namespace ubxctl;
using testsupport::bytes;

TEST(Messages, NavPvtGivesTimeFixAndPosition)
{
    // 7 March 2024, 09:05:42, all valid, 21 ns; time only, fix ok; 30 satellites; 8.5416900, 47.3769000; 455.123 m.
    Bytes payload = bytes("00 00 00 00 E8 07 03 07 09 05 2A 07 15 00 00 00 00 00 00 00 05 01 00 1E "
                          "C4 5B 17 05 28 24 3D 1C D3 F1 06 00 B3 34 06 00 0A 00 00 00 14 00 00 00");
    payload.resize(92);

    const NavigationSolution solution = decodeNavPvt(payload);

    EXPECT_EQ(utcOf(solution), "2024-03-07T09:05:42Z");
    EXPECT_EQ(nameOf(solution.fix), "TIME-ONLY");
    EXPECT_TRUE(solution.fixOk);
    EXPECT_EQ(solution.satellitesUsed, 30);
    EXPECT_DOUBLE_EQ(solution.timeAccuracyNs, 21);
    EXPECT_NEAR(solution.longitude, 8.5416900, 1e-9); // 0x05175BC4
    EXPECT_NEAR(solution.latitude, 47.3769000, 1e-9); // 0x1C3D2428
    EXPECT_NEAR(solution.height, 455.123, 1e-9);
    EXPECT_NEAR(solution.horizontalAccuracy, 0.010, 1e-12);
    EXPECT_NEAR(solution.verticalAccuracy, 0.020, 1e-12);
}

TEST(Messages, AShortNavPvtIsReadAsZeros)
{
    const NavigationSolution solution = decodeNavPvt(bytes("00 00 00 00 E8"));
    EXPECT_EQ(utcOf(solution), "");
    EXPECT_EQ(nameOf(solution.fix), "NO-FIX");
    EXPECT_EQ(solution.satellitesUsed, 0);
}

TEST(Messages, NavSatGivesSatellitesWithTheirPlace)
{
    // Galileo 12 at 44 dBHz, elevation -5, azimuth 300, used, quality 7; then GPS 3, nowhere known.
    const Bytes payload = bytes("00 00 00 00 01 02 00 00  02 0C 2C FB 2C 01 00 00 0F 00 00 00 "
                                "00 03 00 A5 00 00 00 00 01 00 00 00");

    const auto satellites = decodeNavSat(payload);

    ASSERT_EQ(satellites.size(), 2U);
    EXPECT_EQ(satellites[0].name(), "E12");
    EXPECT_EQ(satellites[0].signal, 44);
    EXPECT_EQ(satellites[0].elevation, -5);
    EXPECT_EQ(satellites[0].azimuth, 300);
    EXPECT_EQ(satellites[0].quality, 7);
    EXPECT_TRUE(satellites[0].used);
    EXPECT_TRUE(satellites[0].hasPlace());
    EXPECT_EQ(satellites[1].name(), "G03");
    EXPECT_EQ(satellites[1].quality, 1);
    EXPECT_FALSE(satellites[1].used);
    EXPECT_FALSE(satellites[1].hasPlace());
}

TEST(Messages, NavSatThatClaimsMoreThanItHoldsGivesWhatItHolds)
{
    EXPECT_EQ(decodeNavSat(bytes("00 00 00 00 01 FF 00 00  02 0C 2C FB 2C 01 00 00 0F 00 00 00 00 03")).size(), 1U);
    EXPECT_TRUE(decodeNavSat({}).empty());
}

TEST(Messages, TimSvinGivesProgressAndPosition)
{
    // 60 s, mean 4281337.05 m, 643057.66 m, 4670115.58 m, variance 160000 mm2, 61 observations, valid, not active.
    const Bytes payload =
        bytes("3C 00 00 00  49 CD 84 19  66 3A D5 03  E6 07 D6 1B  00 71 02 00  3D 00 00 00  01 00 00 00");

    const SurveyProgress progress = decodeTimSvin(payload);

    EXPECT_EQ(progress.duration, 60U);
    EXPECT_EQ(progress.observations, 61U);
    EXPECT_NEAR(progress.accuracy, 0.4, 1e-12);
    EXPECT_TRUE(progress.valid);
    EXPECT_FALSE(progress.active);
    EXPECT_NEAR(progress.x, 4281337.05, 1e-6);
    EXPECT_NEAR(progress.y, 643057.66, 1e-6);
    EXPECT_NEAR(progress.z, 4670115.58, 1e-6);
}

TEST(Messages, EarthCentredCoordinatesBecomeLatitudeLongitudeAndHeight)
{
    // On the axes of the ellipsoid the answer needs no computation.
    Position position = fromEarthCentred(6378137.0 + 100, 0, 0);
    EXPECT_NEAR(position.latitude, 0, 1e-9);
    EXPECT_NEAR(position.longitude, 0, 1e-9);
    EXPECT_NEAR(position.height, 100, 1e-6);

    position = fromEarthCentred(0, -6378137.0, 0);
    EXPECT_NEAR(position.longitude, -90, 1e-9);

    position = fromEarthCentred(0, 0, -6356752.3142451793 - 25);
    EXPECT_NEAR(position.latitude, -90, 1e-9);
    EXPECT_NEAR(position.height, 25, 1e-6);

    // At 45 degrees on the ellipsoid: N = a / sqrt(1 - e2 / 2), x = N cos 45, z = N (1 - e2) sin 45.
    position = fromEarthCentred(4517590.87884893, 0, 4487348.40886592);
    EXPECT_NEAR(position.latitude, 45, 1e-9);
    EXPECT_NEAR(position.height, 0, 1e-5);
}

TEST(Messages, MonHwGivesAntennaAndInterference)
{
    Bytes payload(60);
    payload[16] = 0x51; // noise 81
    payload[18] = 0x24; // gain 4900
    payload[19] = 0x13;
    payload[20] = 4;
    payload[21] = 1;
    payload[22] = 0x0D; // interference critical
    payload[45] = 210;

    const HardwareStatus hardware = decodeMonHw(payload);

    EXPECT_EQ(hardware.noise, 81);
    EXPECT_EQ(hardware.gain, 4900);
    EXPECT_EQ(hardware.antennaWord(), "open circuit");
    EXPECT_TRUE(hardware.antennaBad());
    EXPECT_EQ(hardware.jammingWord(), "critical");
    EXPECT_TRUE(hardware.jammed());
    EXPECT_EQ(hardware.jammingIndicator, 210);
}
