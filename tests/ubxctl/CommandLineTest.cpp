// Command lines with mistakes, and streams that are closed.

#include <algorithm>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include "ChildProcess.h"
#include "Run.h"
#include "output/Console.h"

using testing::HasSubstr;

namespace
{

/// Nothing of it may reach a receiver.
Ran refused(const std::vector<std::string>& words)
{
    const Ran ran = runUbxctl(words);
    EXPECT_EQ(ran.code, 64) << testing::PrintToString(words) << ran.errors;
    EXPECT_EQ(std::count(ran.errors.begin(), ran.errors.end(), '\n'), 1) << ran.errors;
    return ran;
}

} // namespace

TEST(CommandLine, SaysHowACommandThatIsNotWholeGoesOn)
{
    EXPECT_THAT(refused({"restart"}).errors,
                HasSubstr("restart is not a whole command; there are restart hot, restart cold; try: ubxctl restart "
                          "--help"));
    EXPECT_THAT(refused({"restart", "warm"}).errors, HasSubstr("no such command as restart warm; there are restart "));
    EXPECT_THAT(refused({"doctr"}).errors, HasSubstr("no such command as doctr; try: ubxctl --help"));
    EXPECT_THAT(refused({"--wait-lock", "5"}).errors, HasSubstr("a command is missing"));
    EXPECT_THAT(refused({"survey", "--jsn"}).errors, HasSubstr("no such option as --jsn; try: ubxctl survey --help"));
    EXPECT_THAT(refused({"set", "min-cnr", "5"}).errors, HasSubstr("; try: ubxctl set --help"));
}

TEST(CommandLine, TakesNoEmptyArgumentForZeroOrForNone)
{
    const std::vector<std::vector<std::string>> lines = {{"survey", "static", "", "8.54169", "455m"},
                                                         {"survey", "static", "47.3769", "", "455m"},
                                                         {"survey", "auto", "--duration", ""},
                                                         {"timepulse", "set", "1", "on", "--constellations", ""},
                                                         {"group-delay", ""},
                                                         {"dump", "--output", ""},
                                                         {"metrics", "--output", ""},
                                                         {"satellites", "--plot", ""},
                                                         {"trace", "--raw", ""}};
    for (const auto& words : lines)
        EXPECT_THAT(refused(words).errors, HasSubstr(": it is empty; try: ubxctl "));
}

TEST(CommandLine, TakesDecimalNumbersOnly)
{
    const std::vector<std::vector<std::string>> lines = {{"survey", "static", "nan", "8", "455m"},
                                                         {"survey", "static", "0x10", "8", "455m"},
                                                         {"survey", "static", "47,3", "8", "1m"},
                                                         {"survey", "static", "47", "1e1", "455m"},
                                                         {"set", "cable-delay", "+-5"},
                                                         {"--wait-lock", "nan", "info"},
                                                         {"--wait-lock", "2592001", "info"},
                                                         {"trace", "--seconds", "nan"},
                                                         {"trace", "--count", "-1"},
                                                         {"trace", "--count", "0"}};
    for (const auto& words : lines)
        refused(words);
}

TEST(CommandLine, ComplaintIsOneLineThatATerminalDoesNotObey)
{
    for (const auto& words : std::vector<std::vector<std::string>>{
             {"\x1b[31mred\nblue"}, {"get", "\x1b[31mred\nblue"}, {"timepulse", "grid", "\x1b[31mred\nblue"}}) {
        const Ran ran = refused(words);
        EXPECT_THAT(ran.errors, HasSubstr(" [31mred blue"));
        EXPECT_EQ(ran.errors.find('\x1b'), std::string::npos);
    }
}

TEST(CommandLine, HelpThatCanNotBeWrittenEndsWith74)
{
    for (const char* rest : {" --help > /dev/full", " --version > /dev/full", " --help >&-"}) {
        const testsupport::Ended ended = testsupport::runToEnd({"sh", "-c", ubxctlCommand() + rest});
        EXPECT_EQ(ended.status, 74) << rest;
        EXPECT_THAT(ended.errors, HasSubstr("standard output can't be written")) << rest;
    }
}

TEST(Console, GivesTheNumberOfAClosedStreamToNothingThatIsOpenedLater)
{
    // The receiver's port would get what the library prints.
    const auto look = [] {
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            ::close(stream);
        const ubxctl::Console console(true);
        ::_exit(::open("/dev/null", O_RDWR) > STDERR_FILENO ? 0 : 1);
    };
    EXPECT_EXIT(look(), testing::ExitedWithCode(0), "");
}
