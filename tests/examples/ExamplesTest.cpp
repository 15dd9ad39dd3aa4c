// The examples as a user runs them: programs of their own, in a sandbox with a simulated receiver.

#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ChildProcess.h"
#include "Files.h"

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;
using testsupport::Ended;

namespace
{

using Words = std::vector<std::string>;

/// Without links and "..", as it is in every sandbox that keeps it.
std::string captures()
{
    return std::filesystem::weakly_canonical(testsupport::capturesDirectory());
}

/// Runs an example on a receiver that is simulated (or played) by ubxsim with these arguments.
Ended runOn(const Words& receiver, const Words& example)
{
    const std::string programs = testsupport::programDirectory();
    Words command{programs + "/ubxsandbox", "--keep", testsupport::sourceDirectory(), "--keep", captures(),
                  programs + "/ubxsim"};
    command.insert(command.end(), receiver.begin(), receiver.end());
    command.push_back("--");
    command.push_back(programs + "/" + example.front());
    command.insert(command.end(), example.begin() + 1, example.end());
    return testsupport::runToEnd(command);
}

/// As above; its seconds pass in a moment.
Ended runOnQuick(Words receiver, const Words& example)
{
    receiver.insert(receiver.end(), {"--speed", "unlimited", "--time-scale", "20"});
    return runOn(receiver, example);
}

/// A line of the demo's table of settings.
auto showsSetting(const std::string& name, const std::string& setTo, const std::string& readBack)
{
    return ContainsRegex("\n  " + name + " +" + setTo + " +" + readBack + " +0\n");
}

TEST(MinimalExample, PrintsThePosition)
{
    const Ended ended = runOnQuick({"--model", "zed-f9t", "--position", "47.25", "-8.5", "455.5"}, {"ubxminimal"});

    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_THAT(ended.output, ContainsRegex("^47\\.2[45][0-9]*,-8\\.(5|49)[0-9]*,45[5-7][0-9.]*\n$"));
}

TEST(MinimalExample, SaysThatThereIsNoPositionAndEndsWithTheStatus)
{
    const Ended ended = testsupport::runToEnd(
        {testsupport::programDirectory() / "ubxsandbox", testsupport::programDirectory() / "ubxminimal"});

    EXPECT_EQ(ended.status, 8);
    EXPECT_EQ(ended.output, "");
    EXPECT_THAT(ended.errors, HasSubstr("no position: status 8\n"));
}

TEST(Demo, ShowsAZedF9tInBothOfItsLanguages)
{
    const Ended ended = runOnQuick({"--model", "zed-f9t", "--firmware", "TIM 2.20"}, {"ubxdemo"});

    EXPECT_EQ(ended.status, 0) << ended.output << ended.errors;
    EXPECT_THAT(ended.output, AllOf(HasSubstr("Every operation returned 0"), HasSubstr("UBLOX_SwVer=TIM 2.20\n"),
                                    showsSetting("constellations", "GPS, Galileo, BeiDou", "GPS, Galileo, BeiDou"),
                                    showsSetting("power mode", "CONTINUOUS", "not in this firmware"),
                                    showsSetting("constellations", "GPS, Galileo, GLONASS", "GPS, Galileo, GLONASS"),
                                    showsSetting("antenna cable delay", "50 ns", "50 ns")));
    EXPECT_THAT(ended.output, AllOf(HasSubstr("MOD=ZED-F9T\n"), HasSubstr("3D-FIX"), HasSubstr("survey-in"),
                                    ContainsRegex("GALILEO +[0-9]+ +Used +7 +[0-9]+ dBHz +==")));
}

TEST(Demo, ShowsAZedF9tThatStillHasPowerModes)
{
    const Ended ended = runOnQuick({"--model", "zed-f9t", "--firmware", "TIM 2.13"}, {"ubxdemo", "--legacy"});

    EXPECT_EQ(ended.status, 0) << ended.output << ended.errors;
    EXPECT_THAT(ended.output,
                AllOf(HasSubstr("UBLOX_SwVer=TIM 2.13\n"), showsSetting("power mode", "CONTINUOUS", "CONTINUOUS"),
                      Not(HasSubstr("through the configuration interface"))));
}

TEST(Demo, ShowsANeoM8t)
{
    const Ended ended = runOnQuick({"--model", "neo-m8t"}, {"ubxdemo"});

    EXPECT_EQ(ended.status, 0) << ended.output << ended.errors;
    EXPECT_THAT(ended.output,
                AllOf(HasSubstr("UBLOX_Chip=NEOM8T\n"), HasSubstr("MOD=NEO-M8T-0\n"),
                      showsSetting("constellations", "GPS, GLONASS", "GPS, GLONASS"),
                      showsSetting("minimum C/N0", "20 dBHz", "20 dBHz"), ContainsRegex("reset line +released")));
}

TEST(Demo, EndsWith1AndNamesTheSettingThatTheReceiverDidNotTake)
{
    const Ended ended = runOnQuick({"--model", "neo-m8t", "--fault", "keep-value CFG-NAVX5"}, {"ubxdemo"});

    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.output, AllOf(HasSubstr("1 of 26 operations failed: minimum C/N0."),
                                    ContainsRegex("minimum C/N0 +20 dBHz +[0-9]+ dBHz +1: refused, or another value")));
}

TEST(Demo, ReadsAReceiverWithoutChangingIt)
{
    const Ended ended = runOnQuick({"--model", "neo-m8t"}, {"ubxdemo", "--read-only"});

    EXPECT_EQ(ended.status, 0) << ended.output << ended.errors;
    EXPECT_THAT(ended.output, AllOf(ContainsRegex("antenna cable delay +50 ns +0\n"), Not(HasSubstr("set to"))));
}

TEST(Demo, WatchesASurveyOfThreeHoursToItsEnd)
{
    const Ended ended =
        runOn({"--model", "neo-m8t", "--speed", "unlimited", "--time-scale", "6000"}, {"ubxdemo", "--survey"});

    EXPECT_EQ(ended.status, 0) << ended.output << ended.errors;
    EXPECT_THAT(ended.output, AllOf(ContainsRegex("survey +[0-9]+ s, [0-9]+ observations, .* m, not valid, active\n"),
                                    ContainsRegex("survey +10800 s, 10801 observations, 0\\.[0-9]+ m, valid, ended\n"),
                                    HasSubstr("The survey has ended with a time-only fix.\n")));
}

TEST(Demo, UsesNoColoursWhereThereIsNoTerminal)
{
    const Ended ended = runOnQuick({"--model", "neo-m8t"}, {"ubxdemo", "--read-only"});

    EXPECT_THAT(ended.output, Not(HasSubstr("\033")));
}

TEST(Demo, RefusesARecordingWithoutFrames)
{
    const std::string file = testsupport::sourceDirectory() / "README.md";

    const Ended ended = runOnQuick({"--model", "neo-m8t"}, {"ubxdemo", "--recording", file});

    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors.substr(ended.errors.find("ubxdemo: ")),
              "ubxdemo: " + file + " holds no UBX frame that the library knows\n");
}

class DemoOnARecording : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!testsupport::haveCaptures()) GTEST_SKIP() << "no recordings at " << testsupport::capturesDirectory();
    }

    static Ended replay(const std::string& name)
    {
        const std::string file = captures() + "/" + name;
        return runOn({"--replay", file}, {"ubxdemo", "--recording", file});
    }
};

TEST_F(DemoOnARecording, ShowsVersionsPositionAndSatellites)
{
    const Ended ended = replay("lea-m8f-mon-ver.log");

    EXPECT_EQ(ended.status, 0) << ended.output << ended.errors;
    EXPECT_THAT(ended.output,
                AllOf(HasSubstr("2.20 (81289)\n"), HasSubstr("MOD LEA-M8F-0\n"), HasSubstr("UBLOX_ProtVer=16.00\n"),
                      HasSubstr("-34.9082, 138.596 degrees"), ContainsRegex("GLONASS +14 +Used +7 +5[0-9] dBHz"),
                      ContainsRegex("getSurveyInfo +not in this recording")));
}

TEST_F(DemoOnARecording, SaysThatOneWithoutAVersionIsNotIdentified)
{
    const Ended ended = replay("zed-f9t-tim-2.25.log");

    EXPECT_EQ(ended.status, 0) << ended.output << ended.errors;
    EXPECT_THAT(ended.output, AllOf(HasSubstr("It holds no version record."), HasSubstr("taken for a NEO-M8T"),
                                    HasSubstr("44.0689, -121.314 degrees"), HasSubstr("BEIDOU"),
                                    ContainsRegex("getInfo +not in this recording")));
}

} // namespace
