#include "SimulatorTest.h"

#include "simulator/faults/ActionText.h"
#include "simulator/receiver/Geodesy.h"
#include "simulator/receiver/SimTime.h"

using client::number;
using client::signedNumber;
using testsupport::bytes;
using namespace std::chrono_literals;

// The messages about one navigation epoch, and how settings and surroundings change them.

namespace
{

/// Asks for several messages in one write, so that they tell about the same epoch, and looks at the next epoch again
/// should they not.
struct Epoch
{
    client::Bytes pvt;
    client::Bytes position;
    client::Bytes satellites;
};

Epoch askForEpoch(client::Client& host)
{
    const client::Bytes polls = bytes("B5 62 01 07 00 00 08 19 B5 62 01 02 00 00 03 0A B5 62 01 35 00 00 36 A3");
    for (int attempt = 0; attempt < 20; ++attempt) {
        host.sendRaw(polls);
        const auto pvt = host.waitFor(0x0107);
        const auto position = host.waitFor(0x0102);
        const auto satellites = host.waitFor(0x0135);
        if (pvt && position && satellites && number(*pvt, 0, 4) == number(*position, 0, 4) &&
            number(*pvt, 0, 4) == number(*satellites, 0, 4)) {
            return {*pvt, *position, *satellites};
        }
    }
    throw std::runtime_error("no epoch");
}

int usedSatellites(const client::Bytes& navSat, int gnssId = -1)
{
    int used = 0;
    for (std::size_t at = 8; at < navSat.size(); at += 12) {
        const bool counts = gnssId < 0 || navSat[at] == gnssId;
        used += counts && (number(navSat, at + 8, 4) & 8) != 0 ? 1 : 0;
    }
    return used;
}

} // namespace

TEST_F(NeoM8tSimulator, TellsTheSameEpochInAllMessages)
{
    const Epoch epoch = askForEpoch(host);

    ASSERT_EQ(epoch.pvt.size(), 92U);
    ASSERT_EQ(epoch.position.size(), 28U);
    ASSERT_EQ(epoch.satellites.size(), 8 + 12 * number(epoch.satellites, 5, 1));
    EXPECT_EQ(epoch.pvt[20], 3) << "a 3D fix";
    EXPECT_EQ(signedNumber(epoch.pvt, 24, 4), signedNumber(epoch.position, 4, 4)) << "longitude";
    EXPECT_EQ(signedNumber(epoch.pvt, 28, 4), signedNumber(epoch.position, 8, 4)) << "latitude";
    EXPECT_EQ(signedNumber(epoch.pvt, 32, 4), signedNumber(epoch.position, 12, 4)) << "height";
    EXPECT_EQ(epoch.pvt[23], usedSatellites(epoch.satellites));
    EXPECT_NEAR(static_cast<double>(signedNumber(epoch.pvt, 28, 4)), -319505000.0, 300.0);
}

TEST_F(NeoM8tSimulator, TellsTheTimeThatItWasStartedWith)
{
    const auto pvt = host.poll("01 07");

    ASSERT_TRUE(pvt.has_value());
    EXPECT_EQ(number(*pvt, 4, 2), 2023U);
    EXPECT_EQ(number(*pvt, 6, 1), 11U);
    EXPECT_EQ(number(*pvt, 7, 1), 14U);
    EXPECT_EQ(number(*pvt, 8, 1), 22U);
    EXPECT_EQ(number(*pvt, 11, 1), 7U);
    // 14 November 2023 22:13:20 UTC is 252818 s into GPS week 2288, 18 s ahead of UTC.
    EXPECT_GE(number(*pvt, 0, 4), 252818000U);
    EXPECT_EQ(number(*host.poll("01 20"), 8, 2), 2288U);
}

TEST_F(NeoM8tSimulator, UsesOnlyTheConstellationsThatAreOn)
{
    EXPECT_EQ(usedSatellites(askForEpoch(host).satellites, 2), 0);
    EXPECT_GT(usedSatellites(askForEpoch(host).satellites, 6), 0);

    ASSERT_EQ(host.set("06 3E", "00 20 20 02 02 04 08 00 01 00 01 00 06 00 00 00 00 00 01 00"), true);

    ASSERT_TRUE(eventually([this] { return usedSatellites(askForEpoch(host).satellites, 2) > 0; }));
    const Epoch epoch = askForEpoch(host);
    for (std::size_t at = 8; at < epoch.satellites.size(); at += 12) {
        EXPECT_NE(epoch.satellites[at], 6) << "a GLONASS satellite";
    }
    EXPECT_LE(usedSatellites(epoch.satellites, 2), 8) << "no more than it has channels for";
}

namespace
{

/// A second takes 50 ms, so that what lasts a second or two is not missed.
class SlowerNeoM8tSimulator : public SimulatorTest
{
protected:
    SlowerNeoM8tSimulator() : SimulatorTest(slower()) {}

private:
    static ubxsim::SimulatorOptions slower()
    {
        ubxsim::SimulatorOptions wanted = options(ubxsim::Model::neoM8t);
        wanted.epoch = 50ms;
        return wanted;
    }
};

} // namespace

TEST_F(SlowerNeoM8tSimulator, HasNoFixForAMomentAfterAChangeOfConstellations)
{
    receiver.setKeyValue(0x10310025, 0);

    EXPECT_TRUE(eventually([this] { return number(*host.poll("01 07"), 20, 1) == 0; }));
    EXPECT_TRUE(eventually([this] { return number(*host.poll("01 07"), 20, 1) == 3; }));
}

TEST_F(NeoM8tSimulator, ObeysTheElevationLimit)
{
    const int before = usedSatellites(askForEpoch(host).satellites);

    receiver.setKeyValue(0x201100A4, 45);

    ASSERT_TRUE(eventually([&] { return usedSatellites(askForEpoch(host).satellites) < before; }));
    const client::Bytes satellites = askForEpoch(host).satellites;
    for (std::size_t at = 8; at < satellites.size(); at += 12) {
        if ((number(satellites, at + 8, 4) & 8) != 0) {
            EXPECT_GE(signedNumber(satellites, at + 3, 1), 45);
        }
    }
}

TEST_F(NeoM8tSimulator, ObeysTheSignalLimit)
{
    receiver.setKeyValue(0x201100A3, 40);

    ASSERT_TRUE(eventually([this] {
        const client::Bytes satellites = askForEpoch(host).satellites;
        bool weakUsed = false;
        for (std::size_t at = 8; at < satellites.size(); at += 12) {
            weakUsed = weakUsed || ((number(satellites, at + 8, 4) & 8) != 0 && satellites[at + 2] < 40);
        }
        return !weakUsed && usedSatellites(satellites) > 0;
    }));
}

TEST_F(NeoM8tSimulator, HasATimeOnlyFixAtOnceWhenItsPositionIsGiven)
{
    ASSERT_EQ(host.set("06 3D", "02 00 01 00 40 93 34 1C 80 F0 10 05 0C 30 00 00 2C 01 00 00 00 00 00 00 00 00 00 00"),
              true); // 47.3207616 N, 8.4996224 E, 123 m, 0.3 m

    ASSERT_TRUE(eventually([this] { return number(*host.poll("01 07"), 20, 1) == 5; }));
    const Epoch epoch = askForEpoch(host);
    EXPECT_EQ(signedNumber(epoch.pvt, 28, 4), 473207616);
    EXPECT_EQ(signedNumber(epoch.pvt, 24, 4), 84996224);
    EXPECT_EQ(signedNumber(epoch.pvt, 32, 4), 123000);
    EXPECT_EQ(number(epoch.pvt, 40, 4), 300U) << "horizontal accuracy, mm";
    EXPECT_EQ(number(epoch.pvt, 76, 2), 9999U) << "the geometry does not matter";
    EXPECT_EQ(testsupport::hex(*host.poll("0D 04")).substr(0, 11), "00 00 00 00") << "no survey was made";
}

TEST_F(NeoM8tSimulator, LosesTheFixWithTheSatellites)
{
    receiver.happen(std::get<ubxsim::Event>(ubxsim::parseAction("satellites off").what));

    ASSERT_TRUE(eventually([this] { return number(*host.poll("01 07"), 20, 1) == 0; }));
    const Epoch epoch = askForEpoch(host);
    EXPECT_EQ(number(epoch.satellites, 5, 1), 0U);
    EXPECT_EQ(epoch.pvt[21] & 1, 0) << "not a good fix";

    receiver.happen(std::get<ubxsim::Event>(ubxsim::parseAction("satellites on").what));
    EXPECT_TRUE(eventually([this] { return number(*host.poll("01 07"), 20, 1) == 3; }));
}

TEST_F(SlowerNeoM8tSimulator, ShowsTheLeapSecond)
{
    receiver.happen(std::get<ubxsim::Event>(ubxsim::parseAction("leap-second").what));

    ASSERT_TRUE(eventually([this] { return signedNumber(*host.poll("01 26"), 11, 1) == 1; })) << "announced";
    bool seen = false;
    ASSERT_TRUE(eventually([&] {
        const client::Bytes pvt = *host.poll("01 07");
        seen = seen || number(pvt, 10, 1) == 60;
        return number(pvt, 4, 2) == 2024 && number(pvt, 6, 1) == 1;
    }));
    EXPECT_TRUE(seen) << "23:59:60";
    EXPECT_EQ(signedNumber(*host.poll("01 26"), 9, 1), 19);
}

TEST_F(SlowerNeoM8tSimulator, TellsAnOldDateAfterTheWeekRollover)
{
    receiver.happen(std::get<ubxsim::Event>(ubxsim::parseAction("week-rollover").what));

    // Built for the 1024 weeks from week 1867 on: up to May 2035, then October 2015 again.
    ASSERT_TRUE(eventually([this] { return number(*host.poll("01 07"), 4, 2) == 2035; }));
    EXPECT_TRUE(eventually([this] { return number(*host.poll("01 07"), 4, 2) == 2015; }));
}

TEST(SimulatorColdStart, TakesItsTimeToTheFirstFix)
{
    ubxsim::SimulatorOptions options;
    options.nmea = false;
    options.coldStart = true;
    options.epoch = 4ms;
    const auto start = std::chrono::steady_clock::now(); // before the receiver's own
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());

    EXPECT_EQ(number(*host.poll("01 07"), 20, 1), 0U);
    EXPECT_TRUE(eventually([&] { return number(*host.poll("01 07"), 20, 1) == 3; }));

    EXPECT_GE(std::chrono::steady_clock::now() - start, 90ms) << "26 s of 4 ms each, but for the start";
    EXPECT_EQ(number(*host.poll("01 03"), 8, 4), 26000U) << "time to first fix, ms";
}

TEST(SimulatorGeodesy, ConvertsBothWays)
{
    // Null island, the pole, and a surveyed place: 45 N 90 E at the surface.
    EXPECT_NEAR(ubxsim::toEcef({0, 0, 0}).x, 6378137.0, 0.001);
    EXPECT_NEAR(ubxsim::toEcef({90, 0, 0}).z, 6356752.314, 0.001);
    const ubxsim::Ecef ecef = ubxsim::toEcef({45, 90, 0});
    EXPECT_NEAR(ecef.y, 4517590.879, 0.001);
    EXPECT_NEAR(ecef.z, 4487348.409, 0.001);

    for (const ubxsim::Geodetic place : {ubxsim::Geodetic{-31.9505, 115.8605, 24.5}, {89.9, -120, 4000}, {1, 2, -50}}) {
        const ubxsim::Geodetic again = ubxsim::toGeodetic(ubxsim::toEcef(place));
        EXPECT_NEAR(again.latitude, place.latitude, 1e-9);
        EXPECT_NEAR(again.longitude, place.longitude, 1e-9);
        EXPECT_NEAR(again.height, place.height, 1e-4);
    }
}

TEST(SimulatorTime, KnowsDatesAndWeeks)
{
    const ubxsim::GpsTime time = ubxsim::gpsTimeOf(1700000000000);
    EXPECT_EQ(time.week(), 2288);
    EXPECT_EQ(time.timeOfWeek(), 252818000U);

    const ubxsim::UtcTime leapDay = ubxsim::utcTimeOf(ubxsim::gpsTimeOf(1709251199999), 18, false);
    EXPECT_EQ(leapDay.year, 2024);
    EXPECT_EQ(leapDay.month, 2);
    EXPECT_EQ(leapDay.day, 29);
    EXPECT_EQ(leapDay.hour, 23);
    EXPECT_EQ(leapDay.minute, 59);
    EXPECT_EQ(leapDay.second, 59);
    EXPECT_EQ(leapDay.millisecond, 999);
}
