// Settings from a file.

#include <gmock/gmock.h>

#include "ChildProcess.h"
#include "Files.h"
#include "OnReceivers.h"

using testing::HasSubstr;

namespace
{

constexpr const char* kFile = "/tmp/site.conf";

constexpr const char* kSite = R"(# The roof of the east wing
timing-mode       = fixed 47.3769 8.54169 455.1m 5cm
cable-delay       = 42 ns      # 8 m of cable
constellations    = GPS,GLO
antenna-type      = active
jamming-detection = on
min-cno           = 12
elevation         = 15
dynamic-model     = stationary
fix-mode          = 3D
time-reference    = UTC
)";

class Apply : public OnEachReceiver
{
protected:
    Apply() { testsupport::write(kFile, kSite); }

    /// What became of each setting.
    static std::map<std::string, std::string> resultsOf(const Ran& ran)
    {
        std::map<std::string, std::string> results;
        const nlohmann::json object = ran.json();
        for (const auto& setting : object["settings"])
            results[setting["setting"]] = setting["result"];
        return results;
    }

    Ran apply() { return runUbxctl({"apply", kFile, "--json"}); }

    /// The frames that set something. Those with a payload of a poll's length, and CFG-PRT, which the identification
    /// writes each time, do not count.
    int writes()
    {
        int count = 0;
        for (const auto& frame : receiver().receivedFrames()) {
            const bool isConfiguration = frame[2] == 0x06 && frame[3] != 0x8B && frame[3] != 0x00;
            count += isConfiguration && frame.size() > 8 + 1 ? 1 : 0;
        }
        return count;
    }

    std::uint16_t elevationMessage() const { return GetParam().isZedF9t() ? 0x068A : 0x0624; }
};

} // namespace

TEST_P(Apply, WritesWhatDiffersAndTheSecondTimeNothing)
{
    const Ran first = apply();
    EXPECT_EQ(first.code, 0) << first.output;
    auto results = resultsOf(first);
    EXPECT_EQ(results.size(), 10U);
    for (const auto& [setting, result] : results)
        EXPECT_THAT(result, testing::AnyOf("applied", "unchanged")) << setting;
    EXPECT_EQ(results["cable-delay"], "applied");

    receiver().clearReceived();
    const Ran second = apply();
    EXPECT_EQ(second.code, 0);
    for (const auto& [setting, result] : resultsOf(second))
        EXPECT_EQ(result, "unchanged") << setting;
    EXPECT_EQ(writes(), 0);
}

TEST_P(Apply, DryRunShowsTheDifferenceAndWritesNothing)
{
    const Ran ran = runUbxctl({"apply", kFile, "--dry-run", "--json"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(resultsOf(ran)["cable-delay"], "would change");
    EXPECT_EQ(ran.json()["dry_run"], true);
    EXPECT_EQ(writes(), 0);
    EXPECT_THAT(runUbxctl({"apply", kFile, "--dry-run"}).output,
                testing::ContainsRegex("cable-delay +[0-9]+ ns +42 ns +would change"));
}

TEST_P(Apply, OfADumpChangesNothing)
{
    ASSERT_EQ(apply().code, 0);
    ASSERT_EQ(runUbxctl({"dump", "--output", "/tmp/dumped"}).code, 0);
    receiver().clearReceived();

    const Ran ran = runUbxctl({"apply", "/tmp/dumped", "--json"});

    EXPECT_EQ(ran.code, 0);
    EXPECT_GE(resultsOf(ran).size(), 11U);
    EXPECT_EQ(writes(), 0);
}

TEST_P(Apply, StopsBeforeAnythingIsSentWhenALineIsWrong)
{
    testsupport::write(kFile, std::string(kSite) + "elevatoin = 3\n");
    Ran ran = apply();
    EXPECT_EQ(ran.code, 64);
    EXPECT_THAT(ran.errors, HasSubstr("/tmp/site.conf:12: there is no setting \"elevatoin\""));

    testsupport::write(kFile, "cable-delay = 32768\n");
    ran = apply();
    EXPECT_EQ(ran.code, 64);
    EXPECT_THAT(ran.errors, HasSubstr("/tmp/site.conf:1: cable-delay: it takes -32768 to 32767 ns"));
    EXPECT_TRUE(receiver().receivedFrames().empty());
}

TEST_P(Apply, GoesOnAfterASettingThatTheReceiverKeeps)
{
    ASSERT_EQ(apply().code, 0);
    testsupport::write(kFile, "elevation = 20\ntiming-mode = dynamic\n");
    // The first of the two that go out.
    receiver().keepValue(elevationMessage(), 1);

    const Ran ran = apply();

    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(resultsOf(ran)["elevation"], "refused");
    EXPECT_EQ(resultsOf(ran)["timing-mode"], "applied");
    EXPECT_THAT(ran.errors, HasSubstr("elevation: refused"));
    // The fault is over: the same file once more.
    EXPECT_EQ(apply().code, 0);
}

TEST_P(Apply, GoesOnAfterASettingThatTheReceiverRefuses)
{
    testsupport::write(kFile, "elevation = 20\nmin-cno = 20\n");
    receiver().play({static_cast<std::uint16_t>(GetParam().isZedF9t() ? 0x068A : 0x0623),
                     ubxsim::FaultKind::refuse,
                     1,
                     ubxsim::RequestKind::set,
                     {}}); // the limit of C/N0 goes out first

    const Ran ran = apply();

    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(resultsOf(ran)["min-cno"], "refused");
    EXPECT_EQ(resultsOf(ran)["elevation"], "applied");
}

TEST_P(Apply, SaysNotConfirmedWhenTheReplyIsMissingAfterTheWrite)
{
    testsupport::write(kFile, "min-cno = 20\n");
    // The first poll is answered, with 9 dBHz; those after the write are not.
    const std::uint16_t poll = GetParam().isZedF9t() ? 0x068B : 0x0623;
    receiver().answerWith(
        poll,
        GetParam().isZedF9t() ? testsupport::bytes("01 00 00 00 A3 00 11 20 09") : receiver().legacyPayload(0x0623), 1);
    receiver().ignore(poll);

    const Ran ran = withFastClock([&] { return apply(); });

    EXPECT_EQ(ran.code & 4, 4);
    EXPECT_EQ(resultsOf(ran)["min-cno"], "not confirmed");
}

TEST_P(Apply, DoesNotWriteWhatItCouldNotRead)
{
    testsupport::write(kFile, "min-cno = 20\n");
    receiver().ignore(GetParam().isZedF9t() ? 0x068B : 0x0623);

    const Ran ran = withFastClock([&] { return apply(); });

    EXPECT_EQ(ran.code, 4);
    EXPECT_EQ(resultsOf(ran)["min-cno"], "no reply");
    EXPECT_EQ(writes(), 0);
}

TEST_P(Apply, SaysNoReplyWhenTheDeviceIsGoneBeforeTheReading)
{
    testsupport::write(kFile, "min-cno = 20\n");
    ubxctl::Surroundings surroundings = ubxctl::Surroundings::real();
    const auto identify = surroundings.control;
    surroundings.control = [&] {
        auto control = identify();
        receiver().hangUp();
        return control;
    };

    const Ran ran = runUbxctl({"apply", kFile, "--json"}, surroundings);

    EXPECT_NE(ran.code & 12, 0);
    EXPECT_EQ(ran.code & 1, 0);
    EXPECT_EQ(resultsOf(ran)["min-cno"], "no reply");
}

TEST_P(Apply, SaysThatAFileHasNoSetting)
{
    testsupport::write(kFile, "# nothing yet\n");
    EXPECT_THAT(runUbxctl({"apply", kFile}).output, HasSubstr("There is no setting in the file."));
}

TEST_P(Apply, TakesStandardInput)
{
    const auto ended =
        testsupport::runToEnd({"sh", "-c", "echo 'cable-delay = 7' | " + ubxctlCommand() + " apply - --json"});
    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_EQ(nlohmann::json::parse(ended.output)["settings"][0]["result"], "applied");
}

UBX_ON_EACH_RECEIVER(Apply);
