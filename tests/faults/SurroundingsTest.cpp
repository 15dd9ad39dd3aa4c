// What happens around a receiver: its antenna, the satellites, the calendar. To the library all of it is an answer.

#include <memory>

#include <ubxIO.h>

#include "FaultTest.h"

namespace
{

using namespace std::chrono_literals;
using testsupport::Lines;

class Surroundings : public testsupport::FaultTest
{
protected:
    explicit Surroundings(std::chrono::microseconds epoch = 20ms) : FaultTest(epoch)
    {
        EXPECT_TRUE(becomes("FIX", "3D-FIX"));
    }

    /// The receiver gets no position meanwhile; the library says so and goes on.
    void expectNoFixBetween(const std::string& begin, const std::string& end)
    {
        play(begin);
        EXPECT_TRUE(becomes("FIX", "NO-FIX"));
        unsigned char satellites = 99;
        EXPECT_EQ(controller.getNofSatellitesInNavSol(satellites), 0);
        EXPECT_EQ(satellites, 0);
        expectTheNextWorks();

        play(end);
        EXPECT_TRUE(becomes("FIX", "3D-FIX"));
        EXPECT_EQ(errors(), Lines{});
    }

    /// How long the survey has lasted, in seconds of the receiver.
    unsigned surveyed()
    {
        ubxIO port;
        UBXMessage poll(0x0D04, 0, nullptr);
        EXPECT_EQ(port.SendMessage(&poll), 0);
        const std::unique_ptr<UBXMessage> report(port.ReceiveMessage(0x0D04, 5));
        if (report == nullptr) return 0;
        return report->getByte(0) + 256U * report->getByte(1);
    }
};

TEST_F(Surroundings, WithASurveyThatNeverConvergesLeaveItUnfinished)
{
    play("survey hopeless");
    EXPECT_EQ(controller.setSurveyAuto(60, 1.0F), 0);
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (surveyed() < 150 && std::chrono::steady_clock::now() < end)
        std::this_thread::yield();

    EXPECT_GE(surveyed(), 150U);
    EXPECT_EQ(solution("FIX"), "3D-FIX");
    EXPECT_EQ(errors(), Lines{});
    play("survey normal");
    EXPECT_EQ(controller.setSurveyStatic(-31.9505, 115.8605, 24.5, 1.0), 0);
    EXPECT_TRUE(becomes("FIX", "TIME-ONLY"));
}

TEST_F(Surroundings, WithAJammerCostTheFix)
{
    expectNoFixBetween("jamming on", "jamming off");
}

TEST_F(Surroundings, WithTheAntennaCableCutCostTheFix)
{
    expectNoFixBetween("antenna open", "antenna ok");
}

TEST_F(Surroundings, WithTheAntennaCableShortedCostTheFix)
{
    expectNoFixBetween("antenna short", "antenna ok");
}

TEST_F(Surroundings, WithoutSatellitesCostTheFix)
{
    expectNoFixBetween("satellites off", "satellites on");
}

TEST_F(Surroundings, WithoutSatellitesLeaveAnEmptyReport)
{
    play("satellites off");
    EXPECT_TRUE(becomes("FIX", "NO-FIX"));

    std::string report;
    EXPECT_EQ(controller.getSatelliteInfo(report), 0);
    EXPECT_EQ(report.find("Used"), std::string::npos) << report;
}

class Calendar : public Surroundings
{
protected:
    Calendar() : Surroundings(150ms) {}
};

TEST_F(Calendar, WithALeapSecondShowsTheSecond60)
{
    play("leap-second");

    EXPECT_TRUE(becomes("TIME", "2024-06-30T23:59+60:00"));
    EXPECT_TRUE(becomes("TIME", "2024-07-01T00:00+"));
    EXPECT_EQ(errors(), Lines{});
    expectTheNextWorks();
}

TEST_F(Calendar, WithAWeekThatRollsOverShowsADateOf1024WeeksBefore)
{
    play("week-rollover");

    EXPECT_TRUE(becomes("TIME", "2035-06-02T23:59+"));
    EXPECT_TRUE(becomes("TIME", "2015-10-17T23:59+"));
    EXPECT_EQ(errors(), Lines{});
    expectTheNextWorks();
}

} // namespace
