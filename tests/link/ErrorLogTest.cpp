// What commands and polls leave in the error log when the port or the log itself can't be used.

#include <ubxController_NEOM8T.h>
#include <ubxController_ZEDF9T.h>

#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "Calls.h"
#include "Files.h"
#include "LinkTest.h"
#include "sandbox/Sandbox.h"

namespace
{

namespace fs = std::filesystem;

using linktest::errorsOf;
using linktest::StoppedClock;
using testsupport::lines;
using testsupport::openDescriptors;
using testsupport::slurp;

using Lines = std::vector<std::string>;

constexpr const char* kNeoM8tLog = "/var/log/rxtool-neom8t-errors.log";
constexpr const char* kZedF9tLog = "/var/log/rxtool-zedf9t-errors.log";

/// There is no device, and no log yet; it is seven seconds and 42 milliseconds past 14:03.
class ErrorLog : public testing::Test
{
protected:
    ErrorLog()
    {
        sandbox::removeGps();
        fs::remove_all(kNeoM8tLog);
        fs::remove_all(kZedF9tLog);
        ::setenv("TZ", "UTC0", 1);
        ::tzset();
        clock.pass(std::chrono::seconds(20000L * 86400 + 14L * 3600 + 3L * 60 + 7 - std::time(nullptr)));
        calls::setMicroseconds(42000);
    }
    ~ErrorLog() override
    {
        calls::reset();
        ::unsetenv("TZ");
        ::tzset();
        fs::remove_all(kNeoM8tLog);
        fs::remove_all(kZedF9tLog);
    }

    /// A command that cannot be sent. @return its result.
    static unsigned int failToSend(ubxController_NEOM8T& controller)
    {
        unsigned int status = 4711;
        const std::string errors =
            errorsOf([&] { status = controller.sendUBXMessage(UBXMessage(0x0609, 13, nullptr)); });
        EXPECT_EQ(errors, std::string(linktest::kNotOpened) + linktest::kNotSent);
        return status;
    }

    const std::string line = "14:03:07_042:  Could not send : 06 09: Clear, Save and Load configurations";
    StoppedClock clock;
};

TEST_F(ErrorLog, GetsALineForACommandThatCannotBeSentAndTheCommandReturnsZero)
{
    ubxController_NEOM8T controller;

    EXPECT_EQ(failToSend(controller), 0U);

    EXPECT_EQ(lines(kNeoM8tLog), Lines{line});
}

TEST_F(ErrorLog, GetsALineForAPollThatCannotBeSentAndThePollReturnsEight)
{
    ubxController_NEOM8T controller;
    signed char minCNo = 0;
    int status = 0;

    errorsOf([&] { status = controller.getMinCNo(minCNo); });

    EXPECT_EQ(status, 8);
    EXPECT_EQ(lines(kNeoM8tLog), Lines{"14:03:07_042:  Could not send : 06 23: Navigation Engine Expert Settings"});
}

TEST_F(ErrorLog, GetsALineForACommandThatIsWrittenInPartOnly)
{
    const linktest::Line port;
    calls::refuse({0, 0, 0, 0, 20});
    ubxController_NEOM8T controller;

    EXPECT_EQ(controller.sendUBXMessage(UBXMessage(0x0609, 13, nullptr)), 0U);

    EXPECT_EQ(lines(kNeoM8tLog), Lines{line});
}

TEST_F(ErrorLog, GetsNoLineForACommandThatIsSent)
{
    const linktest::Line port;
    ubxController_NEOM8T controller;

    EXPECT_EQ(controller.sendUBXMessage(UBXMessage(0x0609, 13, nullptr)), 0U);

    EXPECT_EQ(slurp(kNeoM8tLog), "");
}

TEST_F(ErrorLog, OfTheZedF9tIsAnotherFile)
{
    ubxController_ZEDF9T controller("TIM 2.20", true);

    errorsOf([&] { EXPECT_EQ(controller.sendUBXMessage(UBXMessage(0x0609, 13, nullptr)), 0U); });

    EXPECT_EQ(lines(kZedF9tLog), Lines{line});
    EXPECT_FALSE(fs::exists(kNeoM8tLog));
}

TEST_F(ErrorLog, IsWrittenLineByLineWhileTheControllerLives)
{
    ubxController_NEOM8T controller;

    failToSend(controller);
    EXPECT_EQ(slurp(kNeoM8tLog), line + "\n");

    failToSend(controller);
    EXPECT_EQ(slurp(kNeoM8tLog), line + "\n" + line + "\n");
}

TEST_F(ErrorLog, IsMadeWithTheController)
{
    const ubxController_NEOM8T controller;

    EXPECT_TRUE(fs::exists(kNeoM8tLog));
    EXPECT_EQ(slurp(kNeoM8tLog), "");
}

TEST_F(ErrorLog, IsContinuedByTheNextController)
{
    testsupport::write(kNeoM8tLog, "from another day\n");
    {
        ubxController_NEOM8T first;
        failToSend(first);
    }
    ubxController_NEOM8T second;
    failToSend(second);

    EXPECT_EQ(lines(kNeoM8tLog), (Lines{"from another day", line, line}));
}

TEST_F(ErrorLog, IsAppendedToByTwoControllersAtATime)
{
    ubxController_NEOM8T first;
    ubxController_NEOM8T second;

    failToSend(first);
    failToSend(second);
    failToSend(first);

    EXPECT_EQ(lines(kNeoM8tLog), (Lines{line, line, line}));
}

TEST_F(ErrorLog, IsClosedWithItsController)
{
    const std::size_t before = openDescriptors();
    {
        const ubxController_NEOM8T controller;
        EXPECT_EQ(openDescriptors(), before + 1);
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(ErrorLog, HasTheLinesOfEveryTimeInOneForm)
{
    const std::regex form("[0-2][0-9]:[0-5][0-9]:[0-5][0-9]_[0-9]{3}:  Could not send : 06 09: "
                          "Clear, Save and Load configurations");
    calls::setMicroseconds({});
    testclock::runNormally();
    ubxController_NEOM8T controller;
    for (int i = 0; i < 200; ++i)
        failToSend(controller);

    const Lines all = lines(kNeoM8tLog);
    EXPECT_EQ(all.size(), 200U);
    for (const std::string& one : all)
        ASSERT_TRUE(std::regex_match(one, form)) << one;
}

TEST_F(ErrorLog, ThatCannotBeOpenedCostsOnlyItsLines)
{
    fs::create_directory(kNeoM8tLog);
    {
        ubxController_NEOM8T controller;

        EXPECT_EQ(failToSend(controller), 0U);
        EXPECT_EQ(failToSend(controller), 0U);
    }
    EXPECT_TRUE(fs::is_directory(kNeoM8tLog));
    EXPECT_TRUE(fs::is_empty(kNeoM8tLog));
}

TEST_F(ErrorLog, InADirectoryThatCannotBeWrittenCostsOnlyItsLines)
{
    sandbox::forbidChanges("/var/log");
    std::optional<linktest::Held<ubxController_NEOM8T>> controller;
    controller.emplace();
    sandbox::permitChanges("/var/log");

    EXPECT_EQ(failToSend(controller->object), 0U);

    EXPECT_FALSE(fs::exists(kNeoM8tLog)); // not opened later either
}

TEST_F(ErrorLog, InADirectoryThatIsNotThereCostsOnlyItsLines)
{
    fs::create_symlink("/var/log/nowhere/errors.log", kNeoM8tLog);
    ubxController_NEOM8T controller;

    EXPECT_EQ(failToSend(controller), 0U);
}

TEST_F(ErrorLog, OnAFullDiskCostsOnlyTheLinesThatDoNotFit)
{
    fs::create_symlink("/dev/full", kNeoM8tLog);
    ubxController_NEOM8T controller;

    EXPECT_EQ(failToSend(controller), 0U);
    EXPECT_EQ(failToSend(controller), 0U);
}

/// No file may grow beyond this size while it is in scope.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        ::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limited{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        ::signal(SIGXFSZ, SIG_DFL);
        std::cerr.clear(); // where it leads to a file, it did not get there
    }

private:
    rlimit before_{};
};

TEST_F(ErrorLog, IsContinuedWhenThereIsRoomAgain)
{
    ubxController_NEOM8T controller;
    failToSend(controller);
    {
        const FileSizeLimit full(line.size() + 1);
        controller.sendUBXMessage(UBXMessage(0x0609, 13, nullptr)); // says so on standard error, which may be a file
        EXPECT_EQ(lines(kNeoM8tLog), Lines{line});
    }

    failToSend(controller);

    EXPECT_EQ(lines(kNeoM8tLog), (Lines{line, line, line})); // what could not be written is made up for
}

TEST_F(ErrorLog, GetsALineForAReplyThatDoesNotComeAndThePollReturnsFour)
{
    const linktest::Line port;
    testclock::runNormally();
    const testclock::FastClock fast(50);
    ubxController_NEOM8T controller;
    signed char minCNo = 0;
    int status = 0;

    const std::string errors = errorsOf([&] { status = controller.getMinCNo(minCNo); });

    EXPECT_EQ(status, 4);
    EXPECT_EQ(errors, linktest::kTimedOut);
    const Lines all = lines(kNeoM8tLog);
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].substr(13), "  Did not receive : 06 23: Navigation Engine Expert Settings");
}

} // namespace
