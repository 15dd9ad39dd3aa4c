// A survey from its start to the fixed position.

#include <csignal>

#include <gmock/gmock.h>

#include "ChildProcess.h"
#include "OnReceivers.h"
#include "survey/SurveyWatch.h"

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;
using ubxctl::SurveyProgress;

namespace
{

SurveyProgress after(unsigned int seconds, double accuracy, bool valid, bool active)
{
    return {seconds, seconds + 1, accuracy, valid, active, 1, 1, 1};
}

class Survey : public OnEachReceiver
{
protected:
    static nlohmann::json timingMode() { return runUbxctl({"get", "timing-mode", "--json"}).json()["timing_mode"]; }
};

} // namespace

TEST(ProgressLine, ShowsABarTheTimeLeftObservationsAndAccuracy)
{
    EXPECT_EQ(ubxctl::progressLine(after(6480, 0.845, false, true), {10800, 1}, 100),
              "[########################----------------] 60 %  1:12:00 left  6481 observations  0.845 m");
}

TEST(ProgressLine, OfASurveyThatLastsLongEnoughSaysWhatItWaitsFor)
{
    EXPECT_THAT(ubxctl::progressLine(after(12000, 1.5, false, true), {10800, 1}, 100),
                HasSubstr("99 %  until 1 m  12001 observations  1.500 m"));
}

TEST(ProgressLine, OfAFinishedSurveySaysSo)
{
    EXPECT_THAT(ubxctl::progressLine(after(10800, 0.5, true, false), {10800, 1}, 100), HasSubstr(" 100 %  finished"));
}

TEST(ProgressLine, FitsIntoEveryTerminal)
{
    for (int columns = 1; columns < 200; ++columns) {
        EXPECT_LT(ubxctl::progressLine(after(6480, 0.845, false, true), {10800, 1}, columns).size(),
                  static_cast<std::size_t>(std::max(columns, 2)))
            << columns;
    }
}

TEST_P(Survey, CanBeFollowedAndFrozen)
{
    const Ran ran = runUbxctl({"survey", "auto", "--duration", "60s", "--accuracy", "20m", "--freeze", "--json"});

    EXPECT_EQ(ran.code, 0) << ran.errors;
    EXPECT_EQ(ran.json()["frozen"], true);
    EXPECT_EQ(ran.json()["survey_valid"], true);
    EXPECT_GE(ran.json()["survey_duration_s"], 60);
    const nlohmann::json held = timingMode();
    EXPECT_EQ(held["mode"], "fixed");
    EXPECT_NEAR(held["latitude_deg"].get<double>(), -31.9505, 1e-4);
    EXPECT_NEAR(held["longitude_deg"].get<double>(), 115.8605, 1e-4);
    EXPECT_NEAR(held["height_m"].get<double>(), 24.5, 10);
    EXPECT_NEAR(held["latitude_deg"].get<double>(), ran.json()["latitude_deg"].get<double>(), 2e-7);
    EXPECT_NEAR(held["height_m"].get<double>(), ran.json()["height_m"].get<double>(), 0.011);
    EXPECT_NEAR(held["accuracy_m"].get<double>(), ran.json()["survey_accuracy_m"].get<double>(), 0.002);
}

TEST_P(Survey, BeginsAnewWithTheSameParameters)
{
    const std::vector<std::string> command = {"survey", "auto", "--duration", "120s", "--accuracy", "20m", "--wait"};
    ASSERT_EQ(runUbxctl(command).code, 0);
    const auto start = std::chrono::steady_clock::now();

    const Ran again = runUbxctl(command);

    EXPECT_EQ(again.code, 0) << again.errors;
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(1800)); // two minutes of its own
}

TEST_P(Survey, ShowsLinesWhereThereIsNoTerminal)
{
    const Ran ran = runUbxctl({"survey", "auto", "--duration", "90s", "--accuracy", "20m", "--wait"});
    EXPECT_EQ(ran.code, 0) << ran.errors;
    EXPECT_THAT(ran.output, StartsWith("["));
    EXPECT_THAT(ran.output, HasSubstr(" 100 %  finished"));
    EXPECT_EQ(ran.output.find('\r'), std::string::npos);
}

TEST_P(Survey, WaitsOnForOneThatDoesNotConverge)
{
    turn(ubxsim::EventKind::hopelessSurvey, true);
    testsupport::ChildProcess survey(
        {"sh", "-c", "exec " + ubxctlCommand() + " survey auto --duration 60s --accuracy 1m --wait"});
    EXPECT_THAT(survey.readLine(), ContainsRegex("observations"));

    survey.send(SIGINT);
    const testsupport::Ended ended = survey.wait();

    EXPECT_EQ(ended.status, 130);
    EXPECT_THAT(ended.errors, HasSubstr("the survey goes on in the receiver; watch it again with: ubxctl survey wait"));
    EXPECT_EQ(timingMode()["mode"], "survey");
    EXPECT_EQ(runUbxctl({"survey", "status", "--json"}).json()["survey_active"], true);
}

TEST_P(Survey, LetsOtherCommandsInBetweenWhileItIsWatched)
{
    turn(ubxsim::EventKind::hopelessSurvey, true);
    testsupport::ChildProcess survey(
        {"sh", "-c", "exec " + ubxctlCommand() + " survey auto --duration 60s --accuracy 1m --wait"});
    EXPECT_THAT(survey.readLine(), ContainsRegex("observations"));

    EXPECT_EQ(runUbxctl({"get", "min-cno", "--wait-lock", "10"}).code, 0);

    survey.send(SIGINT);
    EXPECT_EQ(survey.wait().status, 130);
}

TEST_P(Survey, CanBeWatchedAgainAndFrozenThen)
{
    ASSERT_EQ(runUbxctl({"survey", "auto", "--duration", "120s", "--accuracy", "20m"}).code, 0);
    const Ran ran = runUbxctl({"survey", "wait", "--freeze", "--json"});
    EXPECT_EQ(ran.code, 0) << ran.errors;
    EXPECT_EQ(timingMode()["mode"], "fixed");
}

TEST_P(Survey, WaitSaysThatNoneGoesOn)
{
    const Ran ran = runUbxctl({"survey", "wait"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_THAT(ran.errors, HasSubstr("start one with: ubxctl survey auto --wait"));
}

TEST_P(Survey, FreezeTellsWhenThePositionWasNotTakenOver)
{
    ASSERT_EQ(runUbxctl({"survey", "auto", "--duration", "60s", "--accuracy", "20m", "--wait"}).code, 0);
    receiver().keepValue(GetParam().isZedF9t() ? 0x068A : 0x063D);
    const Ran ran = runUbxctl({"survey", "wait", "--freeze"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_THAT(ran.errors, HasSubstr("was not taken over"));
}

TEST_P(Survey, DoesNotFreezeThePositionOfAnEarlierOneThatWasShorter)
{
    // 60 s, 61 observations, 1 m, valid and not active: whatever is asked for, and before it.
    ubxsim::Fault earlier{0x0D04, ubxsim::FaultKind::answerWith, -1, ubxsim::RequestKind::poll, {}};
    earlier.bytes = {0x3C, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x40, 0x42, 0x0F, 0, 0x3D, 0, 0, 0, 1, 0, 0, 0};
    receiver().play(earlier);

    const Ran ran = withFastClock([] {
        return runUbxctl({"survey", "auto", "--duration", "600s", "--accuracy", "20m", "--freeze"});
    });

    EXPECT_EQ(ran.code, 1);
    EXPECT_THAT(ran.errors, HasSubstr("no survey goes on any more"));
    EXPECT_EQ(timingMode()["mode"], "survey");
}

TEST_P(Survey, EndsWhenTheReceiverFallsSilent)
{
    ASSERT_EQ(runUbxctl({"survey", "auto", "--duration", "36000s", "--accuracy", "20m"}).code, 0);
    receiver().ignore(0x0D04);
    const Ran ran = runUbxctl({"survey", "wait"}, deviceWith(std::chrono::milliseconds(50)));
    EXPECT_EQ(ran.code, 4);
    EXPECT_THAT(ran.errors, HasSubstr("it may go on"));
}

TEST_P(Survey, StatusTellsModeAndProgress)
{
    ASSERT_EQ(runUbxctl({"survey", "auto", "--duration", "36000s", "--accuracy", "2m"}).code, 0);
    const nlohmann::json status = runUbxctl({"survey", "status", "--json"}).json();
    EXPECT_EQ(status["mode"], "AUTO");
    EXPECT_EQ(status["timing_mode"], nlohmann::json({{"mode", "survey"}, {"duration_s", 36000}, {"accuracy_m", 2.0}}));
    EXPECT_TRUE(status.contains("survey_observations"));
    EXPECT_NEAR(status["latitude_deg"].get<double>(), -31.9505, 1e-3);
}

UBX_ON_EACH_RECEIVER(Survey);
