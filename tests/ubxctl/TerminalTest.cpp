// What an operator sees: in a terminal, and in a browser.

#include <chrono>
#include <filesystem>
#include <functional>
#include <regex>
#include <thread>

#include <gmock/gmock.h>

#include "ChildProcess.h"
#include "Files.h"
#include "OnReceivers.h"
#include "Tools.h"

using testing::HasSubstr;

namespace
{

/// A terminal of its own, with a shell in it.
class Terminal
{
public:
    Terminal(int columns, int rows)
    {
        tmux("-f /dev/null new-session -d -x " + std::to_string(columns) + " -y " + std::to_string(rows) +
             " 'env PS1=prompt: LC_ALL=C.UTF-8 sh'");
        waitFor("prompt:");
    }
    ~Terminal() { tmux("kill-server"); }

    void type(const std::string& line)
    {
        tmux("send-keys -l '" + line + "'");
        press("Enter");
    }
    void press(const std::string& key) { tmux("send-keys " + key); }
    void resize(int columns, int rows)
    {
        tmux("resize-window -x " + std::to_string(columns) + " -y " + std::to_string(rows));
    }

    std::string screen() const { return tmux("capture-pane -p"); }
    std::string colouredScreen() const { return tmux("capture-pane -p -e"); }

    /// The screen, once it shows this; as it is at the end of the patience otherwise.
    std::string waitFor(const std::string& text) const
    {
        return waitUntil([&](const std::string& screen) { return screen.find(text) != std::string::npos; });
    }

    /// After a command with "; echo ended $?" behind it.
    std::string waitForEnd() const
    {
        return waitUntil(
            [](const std::string& screen) { return std::regex_search(screen, std::regex("ended [0-9]")); });
    }

    /// Until the shell has its turn, with nothing typed yet.
    std::string waitForPrompt() const
    {
        return waitUntil(
            [](const std::string& screen) { return std::regex_search(screen, std::regex("prompt:\n*$")); });
    }

    std::string waitUntil(const std::function<bool(const std::string&)>& reached) const
    {
        constexpr auto kPatience = std::chrono::seconds(20);
        const auto deadline = std::chrono::steady_clock::now() + kPatience;
        std::string shown = screen();
        while (!reached(shown) && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            shown = screen();
        }
        return shown;
    }

private:
    static std::string nextSocket()
    {
        static int count = 0;
        return "/tmp/terminal" + std::to_string(++count);
    }

    std::string tmux(const std::string& arguments) const
    {
        const std::string command = "env -u TMUX LC_ALL=C.UTF-8 tmux -S " + socket_ + " " + arguments;
        return testsupport::runToEnd({"sh", "-c", command}).output;
    }

    std::string socket_ = nextSocket(); // a server of its own
};

std::size_t widest(const std::string& screen)
{
    std::size_t most = 0, width = 0;
    for (const char character : screen) {
        width = character == '\n' ? 0 : width + 1;
        most = std::max(most, width);
    }
    return most;
}

class InATerminal : public OnEachReceiver
{};

} // namespace

TEST_P(InATerminal, MonitorFillsTheScreenFollowsItsSizeAndLeavesItAsItWas)
{
    UBX_NEEDS_TOOL("tmux");
    Terminal terminal(100, 30);
    terminal.type("echo before");
    terminal.waitFor("\nbefore");

    terminal.type(ubxctlCommand() + " monitor");
    std::string screen = terminal.waitFor("GLONASS");
    EXPECT_THAT(screen, HasSubstr(GetParam().isZedF9t() ? "ZED-F9T  TIM 2." : "NEO-M8T  TIM 1.10"));
    for (const char* part : {"\nTime ", "\nFix           3D-FIX", "\nPosition ", "\nTiming mode   dynamic",
                             "\nTime pulses   1 on", "\nAntenna       ok", "\nInterference ", "\nGPS ", "▆"})
        EXPECT_THAT(screen, HasSubstr(part));
    EXPECT_THAT(screen, HasSubstr("q ends"));
    EXPECT_THAT(screen, testing::Not(HasSubstr("before")));
    EXPECT_THAT(terminal.colouredScreen(), HasSubstr("\x1b[32m"));

    terminal.resize(50, 8);
    screen = terminal.waitUntil([](const std::string& shown) { return widest(shown) <= 52; });
    EXPECT_THAT(screen, HasSubstr("\nFix           3D-FIX"));
    EXPECT_THAT(screen, testing::Not(HasSubstr("GLONASS"))); // no room
    terminal.resize(100, 30);
    EXPECT_THAT(terminal.waitFor("GLONASS"), HasSubstr("GLONASS"));

    terminal.press("q");
    screen = terminal.waitForPrompt();
    EXPECT_THAT(screen, HasSubstr("before"));
    EXPECT_THAT(screen, testing::Not(HasSubstr("GLONASS")));
    // What is typed shows again and is taken line by line.
    terminal.type("echo typed");
    EXPECT_THAT(terminal.waitFor("\ntyped"), HasSubstr("prompt:echo typed"));
}

TEST_P(InATerminal, MonitorLeavesTheTerminalAsItWasWhenItIsInterrupted)
{
    UBX_NEEDS_TOOL("tmux");
    Terminal terminal(100, 30);
    terminal.type(ubxctlCommand() + " monitor; echo ended $?");
    terminal.waitFor("GLONASS");
    terminal.press("C-c");
    const std::string screen = terminal.waitForEnd();
    EXPECT_THAT(screen, HasSubstr("ended 0"));
    EXPECT_THAT(screen, testing::Not(HasSubstr("GLONASS")));
}

TEST_P(InATerminal, SurveyShowsABarAndLeavesTheSurveyRunningOnCtrlC)
{
    UBX_NEEDS_TOOL("tmux");
    Terminal terminal(90, 20);
    terminal.type(ubxctlCommand() + " survey auto --duration 600s --accuracy 20m --wait; echo ended $?");
    const std::string bar = terminal.waitFor(" left  ");
    EXPECT_THAT(bar, testing::ContainsRegex("\\[#*-+\\] [0-9]+ %  0:[01][0-9]:[0-9][0-9] left  [0-9]+ observations  "));
    // It stays on its line.
    terminal.waitFor("##");
    const std::string later = terminal.screen();
    EXPECT_EQ(later.find(" left  "), later.rfind(" left  ")) << later;

    terminal.press("C-c");
    const std::string screen = terminal.waitForEnd();
    EXPECT_THAT(screen, HasSubstr("the survey goes on in the receiver"));
    EXPECT_EQ(runUbxctl({"survey", "status", "--json", "--wait-lock", "5"}).json()["mode"], "AUTO");
}

TEST_P(InATerminal, SurveyEndsWithTheFixedPosition)
{
    UBX_NEEDS_TOOL("tmux");
    Terminal terminal(90, 30);
    terminal.type(ubxctlCommand() + " survey auto --duration 60s --accuracy 20m --freeze; echo ended $?");
    const std::string screen = terminal.waitForEnd();
    EXPECT_THAT(screen, HasSubstr("ended 0"));
    EXPECT_THAT(screen, HasSubstr("100 %  finished"));
    EXPECT_THAT(screen, HasSubstr("ubxctl save"));
}

TEST_P(InATerminal, BashCompletesWhatIsTyped)
{
    UBX_NEEDS_TOOL("tmux");
    std::filesystem::create_directory("/tmp/bin");
    Terminal terminal(90, 20);
    testsupport::write("/tmp/bin/ubxctl", "#!/bin/sh\nexec " + ubxctlCommand() + " \"$@\"\n");
    std::filesystem::permissions("/tmp/bin/ubxctl", std::filesystem::perms::owner_all);
    terminal.type("PATH=/tmp/bin:$PATH exec env PS1=bash: bash --norc");
    terminal.waitFor("bash:");
    terminal.type("source <(ubxctl help completion); echo sourced");
    terminal.waitFor("\nsourced");

    terminal.press("-l 'ubxctl set fix'");
    terminal.press("Tab");
    EXPECT_THAT(terminal.waitFor("fix-mode"), HasSubstr("bash:ubxctl set fix-mode"));
    terminal.press("-l 'au'");
    terminal.press("Tab");
    terminal.press("Enter");
    const std::string screen = terminal.waitFor("Fix mode  auto");
    EXPECT_THAT(screen, HasSubstr("bash:ubxctl set fix-mode auto\nFix mode  auto"));
}

TEST_P(InATerminal, TablesHaveColoursThereOnly)
{
    UBX_NEEDS_TOOL("tmux");
    Terminal terminal(90, 50);
    terminal.type(ubxctlCommand() + " satellites");
    terminal.waitFor("SYSTEM");
    EXPECT_THAT(terminal.colouredScreen(), HasSubstr("\x1b[32m"));
    terminal.type("clear; NO_COLOR=1 " + ubxctlCommand() + " nav fix");
    terminal.waitFor("3D-FIX");
    EXPECT_THAT(terminal.colouredScreen(), testing::Not(HasSubstr("\x1b[32m")));
}

UBX_ON_EACH_RECEIVER(InATerminal);

namespace
{

class InABrowser : public OnEachReceiver
{};

} // namespace

TEST_P(InABrowser, PlotOpens)
{
    UBX_NEEDS_TOOL("chromium");
    ASSERT_EQ(runUbxctl({"satellites", "--plot", "/tmp/sky.svg"}).code, 0);
    const testsupport::Ended ended = testsupport::runToEnd(
        {"sh", "-c",
         "HOME=/tmp timeout 50 chromium --headless --no-sandbox --disable-gpu --hide-scrollbars --window-size=1500,620 "
         "--screenshot=/tmp/sky.png file:///tmp/sky.svg"});
    EXPECT_EQ(ended.status, 0) << ended.errors;
    const std::string picture = testsupport::slurp("/tmp/sky.png");
    EXPECT_THAT(picture, testing::StartsWith("\x89PNG"));
    // An error page or an empty one of this size has some 5 kB.
    EXPECT_GT(picture.size(), 20000U) << ended.errors;
}

INSTANTIATE_TEST_SUITE_P(, InABrowser, testing::Values(kZedF9t),
                         [](const auto& one) { return std::string(one.param.name); });
