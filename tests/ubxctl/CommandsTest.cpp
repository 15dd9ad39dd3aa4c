// Every command on every receiver, as text and as JSON.

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include <gmock/gmock.h>

#include "ChildProcess.h"
#include "Files.h"
#include "OnReceivers.h"
#include "Tools.h"

using testing::HasSubstr;

namespace
{

class Commands : public OnEachReceiver
{
protected:
    Commands() { testsupport::write("/tmp/wanted", "cable-delay = 42\nelevation = 15\n"); }

    /// The status that a command ends with on a healthy receiver.
    int expected(const std::string& path) const
    {
        // A ZED-F9T restarts instead of telling, as real ones do; what a receiver does not say unasked is no reply.
        if (path == "reset info" && GetParam().isZedF9t()) return 4;
        if (path == "trace") return 4;
        if (path == "off") return 1; // the second time pulse was switched on before
        return 0;
    }

    Ran run(const std::string& path, const std::vector<std::string>& options = {})
    {
        std::vector<std::string> words = sampleOf(path);
        words.insert(words.end(), options.begin(), options.end());
        if (path != "reset info") return runUbxctl(words);
        return withFastClock([&] { return runUbxctl(words); });
    }
};

} // namespace

TEST_P(Commands, EndWellAndSaySomethingToPeople)
{
    for (const std::string& path : commandPaths()) {
        const Ran ran = run(path);
        EXPECT_EQ(ran.code, expected(path)) << path << ": " << ran.errors;
        EXPECT_EQ(ran.output.empty(), path == "trace") << path;
        EXPECT_EQ(ran.errors.empty(), expected(path) == 0) << path << ": " << ran.errors;
        EXPECT_EQ(ran.output.find('\x1b'), std::string::npos) << path << ": colours are for terminals";
    }
}

TEST_P(Commands, GiveProgramsOneObjectAsTheSchemaHasIt)
{
    const std::string documents = "/tmp/documents";
    std::ofstream file(documents);
    int count = 0;
    for (const std::string& path : commandPaths()) {
        if (path == "trace") receiver().say(testsupport::bytes("B5 62 05 01 02 00 06 8A 98 C1"));
        const Ran ran = run(path, {"--json"});
        EXPECT_EQ(ran.code, expected(path)) << path << ": " << ran.errors;
        if (path == "trace") continue; // lines of its own, see TraceTest
        const nlohmann::json object = ran.json();
        EXPECT_EQ(object["command"], path);
        EXPECT_EQ(object["status"], ran.code) << path;
        file << object.dump() << "\n";
        ++count;
    }
    file.close();

    EXPECT_EQ(count, static_cast<int>(commandPaths().size()) - 1);
    expectValid(documents);
}

TEST_P(Commands, FailToStartWithoutADeviceAndNameIt)
{
    receiver().hangUp();
    for (const std::string& path : commandPaths()) {
        if (path.rfind("help ", 0) == 0) continue;
        const Ran ran = run(path);
        EXPECT_EQ(ran.code, 69) << path;
        EXPECT_EQ(std::count(ran.errors.begin(), ran.errors.end(), '\n'), 1) << path << ": " << ran.errors;
        EXPECT_THAT(ran.errors, testing::StartsWith("ubxctl: ")) << path;
    }
}

TEST_P(Commands, OnSaysThatTheSecondTimePulseDecides)
{
    const Ran ran = runUbxctl({"on"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_THAT(ran.errors, HasSubstr("ubxctl timepulse set 2 on"));

    EXPECT_EQ(runUbxctl({"timepulse", "set", "2", "on"}).code, 0);
    EXPECT_EQ(runUbxctl({"on"}).code, 0);
    EXPECT_EQ(runUbxctl({"off"}).code, 1);
    EXPECT_EQ(runUbxctl({"timepulse", "set", "2", "off"}).code, 0);
    EXPECT_EQ(runUbxctl({"off"}).code, 0);
}

TEST_P(Commands, InfoNamesTheReceiver)
{
    const nlohmann::json object = runUbxctl({"info", "--json"}).json();
    EXPECT_EQ(object["model"], GetParam().isZedF9t() ? "ZED-F9T" : "NEO-M8T");
    EXPECT_EQ(object["firmware"], GetParam().firmware);
    EXPECT_EQ(object["hardware"], GetParam().isZedF9t() ? "00190000" : "00080000");
}

TEST_P(Commands, NavGivesThePartsThatWereAskedFor)
{
    EXPECT_THAT(runUbxctl({"nav", "fix"}).output, testing::StartsWith("Fix"));
    EXPECT_EQ(runUbxctl({"nav", "fix", "--json"}).json()["fix"], "3D-FIX");
    const nlohmann::json position = runUbxctl({"nav", "POS", "--json"}).json();
    EXPECT_NEAR(position["latitude_deg"].get<double>(), -31.9505, 1e-4);
    EXPECT_NEAR(position["longitude_deg"].get<double>(), 115.86, 1e-2);
    EXPECT_FALSE(position.contains("fix"));
    EXPECT_TRUE(runUbxctl({"nav", "--json"}).json().contains("time_utc"));
}

TEST_P(Commands, SetWritesAndReadsBackEverySetting)
{
    const std::pair<const char*, const char*> values[] = {{"constellations", "GPS,GLO"},
                                                          {"antenna-type", "active"},
                                                          {"jamming-detection", "on"},
                                                          {"cable-delay", "-42"},
                                                          {"min-cno", "12"},
                                                          {"elevation", "15"},
                                                          {"dynamic-model", "portable"},
                                                          {"fix-mode", "3D"},
                                                          {"time-reference", "UTC"},
                                                          {"utc-standard", "auto"},
                                                          {"timing-mode", "survey 60s 50m"}};
    for (const auto& [key, value] : values) {
        const Ran ran = runUbxctl({"set", key, value});
        EXPECT_EQ(ran.code, 0) << key << ": " << ran.errors;
    }
    const nlohmann::json all = runUbxctl({"get", "--json"}).json();
    EXPECT_EQ(all["constellations"], nlohmann::json({"GPS", "GLO"}));
    EXPECT_EQ(all["antenna_type"], "active");
    EXPECT_EQ(all["jamming_detection"], true);
    EXPECT_EQ(all["cable_delay_ns"], -42);
    EXPECT_EQ(all["min_cno_dbhz"], 12);
    EXPECT_EQ(all["elevation_deg"], 15);
    EXPECT_EQ(all["dynamic_model"], "portable");
    EXPECT_EQ(all["fix_mode"], "3D");
    EXPECT_EQ(all["time_reference"], "UTC");
    EXPECT_EQ(all["utc_standard"], "auto");
    EXPECT_EQ(all["timing_mode"], nlohmann::json({{"mode", "survey"}, {"duration_s", 60}, {"accuracy_m", 50.0}}));
}

TEST_P(Commands, SetKeepsWhatItsMessageDisturbs)
{
    ASSERT_EQ(runUbxctl({"set", "cable-delay", "42"}).code, 0);
    ASSERT_EQ(runUbxctl({"set", "jamming-detection", "on"}).code, 0);

    EXPECT_EQ(runUbxctl({"set", "constellations", "GPS"}).code, 0);
    EXPECT_EQ(runUbxctl({"timepulse", "set", "2", "on"}).code, 0);
    EXPECT_EQ(runUbxctl({"set", "antenna-type", "passive"}).code, 0);

    EXPECT_EQ(runUbxctl({"get", "cable-delay", "--json"}).json()["cable_delay_ns"], 42);
    EXPECT_EQ(runUbxctl({"get", "jamming-detection", "--json"}).json()["jamming_detection"], true);
}

TEST_P(Commands, UtcStandardIsTheReceiversOwnOnAZedF9t)
{
    const Ran ran = runUbxctl({"set", "utc-standard", "SU"});
    if (GetParam().isZedF9t()) {
        EXPECT_EQ(ran.code, 0) << ran.errors;
        EXPECT_EQ(receiver().keyValue(0x2011001C), 6U);
    } else {
        EXPECT_EQ(ran.code, 1);
        EXPECT_THAT(ran.errors, HasSubstr("wanted SU, the receiver holds auto"));
    }
}

TEST_P(Commands, SetModelAndFixModeGoOutInOneMessage)
{
    receiver().clearReceived();
    EXPECT_EQ(runUbxctl({"set", "dynamic-model", "pedestrian", "--fix-mode", "2D"}).code, 0);
    int sets = 0;
    for (const auto& frame : receiver().receivedFrames()) {
        const bool isSet = frame.size() == 44 && frame[2] == 0x06 && frame[3] == 0x24;
        sets += isSet ? 1 : 0;
        if (!isSet) continue;
        EXPECT_EQ(frame[6], 0x05);
        EXPECT_EQ(frame[8], 3);
        EXPECT_EQ(frame[9], 1);
    }
    EXPECT_EQ(sets, 1);
}

TEST_P(Commands, InterfaceChoosesTheLanguageOfAZedF9t)
{
    receiver().clearReceived();
    EXPECT_EQ(runUbxctl({"--interface", "messages", "set", "min-cno", "20"}).code, 0);
    for (const auto& frame : receiver().receivedFrames())
        EXPECT_FALSE(frame[2] == 0x06 && (frame[3] == 0x8A || frame[3] == 0x8B));
    EXPECT_EQ(runUbxctl({"get", "min-cno", "--json"}).json()["min_cno_dbhz"], 20);
}

TEST_P(Commands, SurveyStaticIsHeldAsItWasGiven)
{
    EXPECT_EQ(runUbxctl({"survey", "static", "47.3769", "-8.54169", "455.1m", "--accuracy", "50cm"}).code, 0);
    const nlohmann::json held = runUbxctl({"get", "timing-mode", "--json"}).json()["timing_mode"];
    EXPECT_EQ(held["mode"], "fixed");
    EXPECT_NEAR(held["latitude_deg"].get<double>(), 47.3769, 2e-7);
    EXPECT_NEAR(held["longitude_deg"].get<double>(), -8.54169, 2e-7);
    EXPECT_NEAR(held["height_m"].get<double>(), 455.1, 0.011);
    EXPECT_NEAR(held["accuracy_m"].get<double>(), 0.5, 1e-6);
}

TEST_P(Commands, SurveyStaticTakesNumbersWithoutAZeroInFront)
{
    EXPECT_EQ(runUbxctl({"survey", "static", "-.5", "-.25", "-.75m"}).code, 0);
    const nlohmann::json held = runUbxctl({"get", "timing-mode", "--json"}).json()["timing_mode"];
    EXPECT_NEAR(held["latitude_deg"].get<double>(), -0.5, 2e-7);
    EXPECT_NEAR(held["longitude_deg"].get<double>(), -0.25, 2e-7);
    EXPECT_NEAR(held["height_m"].get<double>(), -0.75, 0.011);
}

TEST_P(Commands, SurveyModeStaticSaysWhenThePositionCameOutElsewhere)
{
    const Ran ran = runUbxctl({"survey", "mode", "static"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_THAT(ran.errors, HasSubstr("ubxctl survey static -31.950"));
}

TEST_P(Commands, SurveyStaticTakesTheWorstAccuracyThatThereIs)
{
    EXPECT_EQ(runUbxctl({"survey", "static", "47.3769", "8.54169", "455.1m", "--accuracy", "200m"}).code, 0);
    const nlohmann::json held = runUbxctl({"get", "timing-mode", "--json"}).json()["timing_mode"];
    EXPECT_NEAR(held["accuracy_m"].get<double>(), 200, 1e-6);
}

TEST_P(Commands, TimepulseSetSaysWhenTheReceiverKeepsItAsItWas)
{
    receiver().keepValue(GetParam().isZedF9t() ? 0x068A : 0x0631);
    const Ran ran = runUbxctl({"timepulse", "set", "2", "on"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.output, "refused\n");
}

UBX_ON_EACH_RECEIVER(Commands);
