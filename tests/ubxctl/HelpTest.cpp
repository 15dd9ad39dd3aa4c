// What ubxctl says of itself: --help, the manual page, the completion.

#include <gmock/gmock.h>

#include "ChildProcess.h"
#include "Files.h"
#include "Run.h"
#include "Tools.h"
#include "settings/Setting.h"

using testing::HasSubstr;

namespace
{

/// What bash offers for a line; its last word is the one that is begun.
std::string completionsOf(const std::string& line)
{
    const std::string script = R"(source /tmp/completion
COMP_WORDS=()" + line + R"()
[[ ")" + line + R"(" == *" " ]] && COMP_WORDS+=("")
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_ubxctl
echo "${COMPREPLY[@]}")";
    testsupport::Ended ended = testsupport::runToEnd({"bash", "-c", script});
    EXPECT_EQ(ended.errors, "");
    ended.output.erase(ended.output.find_last_not_of('\n') + 1);
    return ended.output;
}

class Completion : public testing::Test
{
protected:
    Completion() { testsupport::write("/tmp/completion", runUbxctl({"help", "completion"}).output); }
};

} // namespace

TEST(Help, TellsANewcomerHowToSetACableDelaySurveyAndFreeze)
{
    const Ran ran = runUbxctl({"--help"});
    EXPECT_EQ(ran.code, 0);
    EXPECT_THAT(ran.output, HasSubstr("ubxctl set cable-delay 42"));
    EXPECT_THAT(ran.output, HasSubstr("ubxctl survey auto --duration 3h --accuracy 1m --wait --freeze"));
    EXPECT_THAT(ran.output, HasSubstr("ubxctl doctor"));
}

TEST(Help, OfEveryCommandTellsWhatItIsFor)
{
    for (const std::string& path : commandPaths()) {
        std::istringstream stream(path);
        std::vector<std::string> words;
        for (std::string word; stream >> word;)
            words.push_back(word);
        words.emplace_back("--help");
        const Ran ran = runUbxctl(words);
        EXPECT_EQ(ran.code, 0) << path;
        EXPECT_THAT(ran.output, HasSubstr("Usage: ubxctl ")) << path;
        EXPECT_EQ(ran.errors, "") << path;
    }
}

TEST(Help, OfSetTellsWhatEverySettingTakes)
{
    const std::string text = runUbxctl({"set", "--help"}).output;
    for (const ubxctl::Setting& setting : ubxctl::allSettings()) {
        EXPECT_THAT(text, HasSubstr(std::string("  ") + setting.key + "\n"));
        EXPECT_THAT(text, HasSubstr(setting.format.choices()));
    }
}

TEST(Help, VersionIsThatOfTheProject)
{
    EXPECT_THAT(runUbxctl({"--version"}).output, testing::ContainsRegex("^[0-9]+\\.[0-9]+\\.[0-9]+\n$"));
}

TEST(ManualPage, HasEveryCommandAndNoMistake)
{
    const std::string page = runUbxctl({"help", "man"}).output;
    for (const std::string& path : commandPaths()) {
        std::string escaped;
        for (const char character : path)
            escaped += character == '-' ? std::string("\\-") : std::string(1, character);
        EXPECT_THAT(page, HasSubstr(".SS \"" + escaped + "\"\n"));
    }
    UBX_NEEDS_TOOL("groff");
    testsupport::write("/tmp/ubxctl.1", page);
    const testsupport::Ended ended = testsupport::runToEnd({"groff", "-man", "-ww", "-Tascii", "/tmp/ubxctl.1"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_THAT(ended.output, HasSubstr("survey auto"));
    const std::size_t steps = ended.output.find("A first installation");
    EXPECT_NE(steps, std::string::npos);
    EXPECT_EQ(ended.output.find("A first installation", steps + 1), std::string::npos);
}

TEST_F(Completion, OffersCommandsThenTheirWords)
{
    EXPECT_THAT(completionsOf("ubxctl sur"), "survey");
    EXPECT_THAT(completionsOf("ubxctl survey "), HasSubstr("status auto wait static dynamic mode"));
    EXPECT_THAT(completionsOf("ubxctl survey auto --d"), "--duration");
    EXPECT_THAT(completionsOf("ubxctl restart "), HasSubstr("hot cold"));
}

TEST_F(Completion, OffersSettingsAndTheirValues)
{
    EXPECT_EQ(completionsOf("ubxctl set cab"), "cable-delay");
    EXPECT_EQ(completionsOf("ubxctl get min"), "min-cno");
    EXPECT_EQ(completionsOf("ubxctl set antenna-type "), "active passive unknown");
    EXPECT_EQ(completionsOf("ubxctl --json set time-reference G"), "GPS GLO GAL");
    EXPECT_EQ(completionsOf("ubxctl nav p"), "pos");
}

TEST_F(Completion, OffersOptionsAndTheirValues)
{
    EXPECT_EQ(completionsOf("ubxctl --js"), "--json");
    EXPECT_EQ(completionsOf("ubxctl --interface m"), "messages");
    EXPECT_EQ(completionsOf("ubxctl --wait-lock 5 inf"), "info");
    EXPECT_EQ(completionsOf("ubxctl apply /tmp/complet"), "/tmp/completion");
    EXPECT_EQ(completionsOf("ubxctl dump --output /tmp/complet"), "/tmp/completion");
}
