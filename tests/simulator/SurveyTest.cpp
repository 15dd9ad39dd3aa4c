#include "SimulatorTest.h"

#include "simulator/faults/ActionText.h"

#include <cmath>

using client::number;
using client::signedNumber;
using namespace std::chrono_literals;

// The survey-in, in simulated time: a second takes 5 ms.

namespace
{

struct Report
{
    std::uint64_t duration;
    std::uint64_t observations;
    double accuracy; // m
    bool valid;
    bool active;
    client::Bytes payload;
};

Report surveyReport(client::Client& host)
{
    const client::Bytes payload = host.poll("0D 04").value_or(client::Bytes(28));
    return {
        number(payload, 0, 4), number(payload, 20, 4), std::sqrt(static_cast<double>(number(payload, 16, 4))) / 1000.0,
        payload[24] != 0,      payload[25] != 0,       payload};
}

// CFG-TMODE2: survey-in of 60 s, 50 m.
constexpr const char* kSurvey60 = "01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 3C 00 00 00 50 C3 00 00";

} // namespace

TEST_F(NeoM8tSimulator, SurveysUntilTheTimeHasPassedAndTheMeanIsGood)
{
    ASSERT_EQ(host.set("06 3D", kSurvey60), true);

    Report report{};
    std::uint64_t last = 0;
    ASSERT_TRUE(eventually([&] {
        report = surveyReport(host);
        EXPECT_GE(report.duration, last);
        last = report.duration;
        if (report.active && report.observations > 0) {
            EXPECT_EQ(report.observations, report.duration + 1);
            EXPECT_FALSE(report.valid);
            EXPECT_NEAR(report.accuracy, 12.1, 0.4);
        }
        return report.valid;
    }));

    EXPECT_FALSE(report.active);
    EXPECT_EQ(report.duration, 60U);
    EXPECT_EQ(report.observations, 61U);
    ASSERT_TRUE(eventually([this] { return number(*host.poll("01 07"), 20, 1) == 5; }));
    // The mean and the position told from then on are the same place.
    const auto place = host.poll("01 01");
    EXPECT_NEAR(static_cast<double>(signedNumber(*place, 4, 4)),
                static_cast<double>(signedNumber(report.payload, 4, 4)), 2.0);
    EXPECT_EQ(number(*host.poll("06 3D"), 0, 1), 1U) << "the setting still says survey-in";
    EXPECT_EQ(number(*host.poll("06 3D"), 4, 4), 0U) << "and shows no result";
}

TEST_F(NeoM8tSimulator, GoesOnSurveyingWhileTheLimitIsNotMet)
{
    // 10 s and 1 m: the mean is that good after 300 s.
    ASSERT_EQ(host.set("06 3D", "01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 0A 00 00 00 E8 03 00 00"),
              true);

    Report report{};
    ASSERT_TRUE(eventually([&] { return (report = surveyReport(host)).valid; }));

    EXPECT_GE(report.duration, 290U);
    EXPECT_LE(report.duration, 320U);
    EXPECT_LE(report.accuracy, 1.0);
}

TEST_F(NeoM8tSimulator, NeverEndsAHopelessSurvey)
{
    receiver.happen(std::get<ubxsim::Event>(ubxsim::parseAction("survey hopeless").what));
    ASSERT_EQ(host.set("06 3D", "01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 0A 00 00 00 E8 03 00 00"),
              true);

    ASSERT_TRUE(eventually([this] { return surveyReport(host).duration >= 400; }));

    EXPECT_FALSE(surveyReport(host).valid);
    EXPECT_TRUE(surveyReport(host).active);

    receiver.happen(std::get<ubxsim::Event>(ubxsim::parseAction("survey normal").what));
    EXPECT_TRUE(eventually([this] { return surveyReport(host).valid; }));
}

TEST_F(ZedF9tSimulator, StartsTheSurveyAnewWhenItsParametersChange)
{
    ASSERT_EQ(host.set("06 8A", "00 01 00 00 10 00 03 40 00 10 00 00 11 00 03 40 10 27 00 00 01 00 03 20 01"), true);
    ASSERT_TRUE(eventually([this] { return surveyReport(host).duration > 150; }));

    ASSERT_EQ(host.set("06 8A", "00 01 00 00 10 00 03 40 00 10 00 00"), true) << "the same duration";
    EXPECT_GT(surveyReport(host).duration, 150U);
    ASSERT_EQ(host.set("06 8A", "00 01 00 00 10 00 03 40 00 20 00 00"), true) << "another";
    EXPECT_TRUE(eventually([this] { return surveyReport(host).duration < 150; }));
}

TEST_F(ZedF9tSimulator, EndsTheSurveyWithItsMode)
{
    ASSERT_EQ(host.set("06 8A", "00 01 00 00 10 00 03 40 00 10 00 00 11 00 03 40 10 27 00 00 01 00 03 20 01"), true);
    ASSERT_TRUE(eventually([this] { return surveyReport(host).active; }));

    ASSERT_EQ(host.set("06 8A", "00 01 00 00 01 00 03 20 00"), true);

    ASSERT_TRUE(eventually([this] { return !surveyReport(host).active; }));
    EXPECT_EQ(surveyReport(host).observations, 0U);
    EXPECT_EQ(number(*host.poll("01 07"), 20, 1), 3U);
}

TEST(SimulatorTimeScale, MakesAThreeHourSurveyTakeSeconds)
{
    ubxsim::SimulatorOptions options;
    options.nmea = false;
    options.timeScale = 6000;
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());

    ASSERT_EQ(host.set("06 3D", "01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 30 2A 00 00 E8 03 00 00"),
              true); // 10800 s, 1 m
    Report report{};
    ASSERT_TRUE(eventually([&] { return (report = surveyReport(host)).valid; }));

    EXPECT_EQ(report.duration, 10800U);
    EXPECT_NEAR(report.accuracy, 0.3, 0.05);
}
