// How the port is opened and set up, and what happens where it can't be.

#include <ubxIO.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include "Calls.h"
#include "ChildProcess.h"
#include "Files.h"
#include "FlushLog.h"
#include "LinkTest.h"
#include "sandbox/Sandbox.h"

namespace
{

namespace fs = std::filesystem;

using namespace linktest;
using testsupport::bytes;
using testsupport::openDescriptors;

/// A test without a line.
class NoPort : public testing::Test
{
protected:
    NoPort() { sandbox::removeGps(); }
    ~NoPort() override
    {
        sandbox::removeGps();
        calls::reset();
    }

    /// What comes of every operation on a port that did not open.
    static void expectClosed(ubxIO& port)
    {
        UBXMessage message(0x0A04, 0, nullptr);
        unsigned char byte = 0x5A;
        int sent = 0;
        UBXMessage* received = &message;

        const std::string sending = errorsOf([&] { sent = port.SendMessage(&message); });
        const std::string receiving = errorsOf([&] { received = port.ReceiveMessage(0x0A04, 5); });

        EXPECT_EQ(sent, -1);
        EXPECT_EQ(sending, kNotSent);
        EXPECT_EQ(received, nullptr);
        EXPECT_EQ(receiving, kNotReceiving);
        EXPECT_EQ(port.ReadFromUART(&byte, 1), 0);
        EXPECT_EQ(byte, 0x5A);
    }

    /// Opens the port, uses it and closes it again. @return what opening it wrote.
    static std::string failToOpen()
    {
        const std::size_t before = openDescriptors();
        std::string errors;
        {
            std::optional<Held<ubxIO>> port;
            errors = errorsOf([&] { port.emplace(); });
            expectClosed(port->object);
            EXPECT_EQ(openDescriptors(), before);
        }
        EXPECT_EQ(openDescriptors(), before);
        return errors;
    }
};

TEST_F(NoPort, WithoutDeviceSaysSoAndFailsInEveryOperation)
{
    EXPECT_EQ(failToOpen(), kNotOpened);
}

TEST_F(NoPort, BehindALinkThatLeadsNowhereSaysSoAndFailsInEveryOperation)
{
    sandbox::linkGps("/dev/pts/4711");

    EXPECT_EQ(failToOpen(), kNotOpened);
}

TEST_F(NoPort, OnAFileHasNoSettings)
{
    std::ofstream("/tmp/file") << "no terminal";
    sandbox::linkGps("/tmp/file");

    EXPECT_EQ(failToOpen(), kNoSettings);

    EXPECT_EQ(testsupport::slurp("/tmp/file"), "no terminal");
}

TEST_F(NoPort, OnADeviceThatIsNoTerminalHasNoSettings)
{
    sandbox::linkGps("/dev/null");

    EXPECT_EQ(failToOpen(), kNoSettings);
}

TEST_F(NoPort, OnADirectoryIsNotOpened)
{
    sandbox::linkGps("/tmp");

    EXPECT_EQ(failToOpen(), kNotOpened);
}

TEST_F(NoPort, WhoseSettingsCannotBeReadSaysSo)
{
    const Line line;
    calls::refuse({EIO, 0, 0, 0, {}});

    EXPECT_EQ(failToOpen(), kNoSettings);
}

TEST_F(NoPort, WhoseSettingsCannotBeAppliedSaysSo)
{
    const Line line;
    calls::refuse({0, EIO, 0, 0, {}});

    EXPECT_EQ(failToOpen(), kNotConfigured);
}

TEST_F(NoPort, IsNotOpenedLaterByTheSameObject)
{
    std::optional<Held<ubxIO>> port;
    errorsOf([&] { port.emplace(); });

    const Line line;

    expectClosed(port->object);
}

/// A line whose settings are those of a console.
class Opening : public LinkTest
{
protected:
    Opening()
    {
        termios console{};
        ::tcgetattr(line.nearEnd(), &console);
        console.c_iflag |= static_cast<tcflag_t>(IGNBRK | BRKINT | PARMRK | ISTRIP | INLCR | IGNCR | ICRNL | IXON);
        console.c_oflag |= static_cast<tcflag_t>(OPOST | ONLCR);
        console.c_lflag |= static_cast<tcflag_t>(ECHO | ECHONL | ICANON | ISIG | IEXTEN);
        console.c_cflag |= static_cast<tcflag_t>(CSTOPB | CRTSCTS);
        ::cfsetispeed(&console, B9600);
        ::cfsetospeed(&console, B9600);
        ::tcsetattr(line.nearEnd(), TCSANOW, &console);
        flushlog::clear();
        calls::clearLog();
    }

    termios settings() const
    {
        termios present{};
        EXPECT_EQ(::tcgetattr(line.nearEnd(), &present), 0);
        return present;
    }

    /// The descriptors that the library has of the line.
    std::vector<int> librarysDescriptors() const
    {
        std::vector<int> all;
        for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
            std::error_code gone;
            const int fd = std::stoi(entry.path().filename().string());
            if (fd != line.nearEnd() && fs::read_symlink(entry.path(), gone) == line.device()) all.push_back(fd);
        }
        return all;
    }
};

/// The open flags as the system shows them.
int flagsOf(int fd)
{
    for (const std::string& entry : testsupport::lines("/proc/self/fdinfo/" + std::to_string(fd))) {
        if (entry.rfind("flags:", 0) == 0) return std::stoi(entry.substr(6), nullptr, 8);
    }
    return -1;
}

TEST_F(Opening, WritesNothingWhenItSucceeds)
{
    EXPECT_EQ(errorsOf([&] { port(); }), "");
}

TEST_F(Opening, IsForReadingAndWritingWithoutWaitingAndWithSynchronousWrites)
{
    port();

    const std::vector<int> descriptors = librarysDescriptors();
    ASSERT_EQ(descriptors.size(), 1U);
    const int flags = flagsOf(descriptors[0]);
    EXPECT_EQ(flags & O_ACCMODE, O_RDWR);
    EXPECT_EQ(flags & O_NONBLOCK, O_NONBLOCK);
    EXPECT_EQ(flags & O_SYNC, O_SYNC);
    EXPECT_EQ(flags & O_APPEND, 0);
}

TEST_F(Opening, DoesNotMakeTheLineTheControllingTerminal)
{
    const testsupport::Ended ended = testsupport::runToEnd([&] {
        if (::setsid() < 0) return 2;
        const ubxIO sessionLeaders;
        return ::open("/dev/tty", O_RDWR) < 0 ? 0 : 1;
    });

    EXPECT_EQ(ended.status, 0);
}

TEST_F(Opening, MakesTheLineRaw)
{
    ASSERT_NE(settings().c_lflag & ICANON, 0U);

    port();

    const termios raw = settings();
    EXPECT_EQ(raw.c_iflag & (IGNBRK | BRKINT | PARMRK | ISTRIP | INLCR | IGNCR | ICRNL | IXON), 0U);
    EXPECT_EQ(raw.c_oflag & OPOST, 0U);
    EXPECT_EQ(raw.c_lflag & (ECHO | ECHONL | ICANON | ISIG | IEXTEN), 0U);
    EXPECT_EQ(raw.c_cflag & (CSIZE | PARENB), static_cast<tcflag_t>(CS8));
}

TEST_F(Opening, ClearsTheSecondStopBitAndHardwareFlowControl)
{
    ASSERT_NE(settings().c_cflag & CSTOPB, 0U);
    ASSERT_NE(settings().c_cflag & CRTSCTS, 0U);

    port();

    EXPECT_EQ(settings().c_cflag & CSTOPB, 0U);
    EXPECT_EQ(settings().c_cflag & CRTSCTS, 0U);
}

TEST_F(Opening, LeavesTheLineSpeedAsItIs)
{
    port();

    const termios raw = settings();
    EXPECT_EQ(::cfgetispeed(&raw), static_cast<speed_t>(B9600));
    EXPECT_EQ(::cfgetospeed(&raw), static_cast<speed_t>(B9600));
}

TEST_F(Opening, AsksForBothQueuesToBeDiscarded)
{
    port();

    EXPECT_EQ(flushlog::asked(), std::vector<int>{TCIOFLUSH});
}

TEST_F(Opening, AppliesTheSettingsAtOnceAndOnce)
{
    port();

    EXPECT_EQ(calls::log(), std::vector<std::string>{"tcsetattr now"});
}

TEST_F(Opening, DiscardsWhatWasSaidBefore)
{
    reopen();
    line.say(bytes("B5 62 0A 04 00 00 0E 34 00"));

    reopen();

    std::array<unsigned char, 32> buffer{};
    EXPECT_EQ(port().ReadFromUART(buffer.data(), 32), 0);
}

TEST_F(Opening, LeavesNoDescriptorBehindHoweverOftenItIsDone)
{
    const std::size_t before = openDescriptors();
    for (int i = 0; i < 50; ++i) {
        const ubxIO once;
        EXPECT_EQ(openDescriptors(), before + 1);
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(Opening, MayBeDoneTwiceAtATime)
{
    const std::size_t before = openDescriptors();
    {
        const ubxIO listening;
        const ubxIO sending;
        EXPECT_EQ(openDescriptors(), before + 2);
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(Opening, OfALineThatHasHungUpFailsUntilItComesBack)
{
    line.hangUp();
    EXPECT_EQ(errorsOf([] { const ubxIO gone; }), kNotOpened);

    line.comeBack();
    EXPECT_EQ(errorsOf([] { const ubxIO back; }), "");
}

TEST_F(Opening, IsDoneOnceForEveryObject)
{
    static_assert(!std::is_copy_constructible_v<ubxIO>);
    static_assert(!std::is_copy_assignable_v<ubxIO>);
    static_assert(std::is_base_of_v<UBXMessagingInterface, ubxIO>);
}

TEST_F(Opening, SetsUpAnyTerminalThatItIsGiven)
{
    Line other;
    termios twoStopBits{};
    ::tcgetattr(other.nearEnd(), &twoStopBits);
    twoStopBits.c_cflag |= static_cast<tcflag_t>(CSTOPB);
    ::tcsetattr(other.nearEnd(), TCSANOW, &twoStopBits);
    bool done = false;

    const std::string errors = errorsOf([&] { done = port().SetupUART(other.nearEnd()); });

    EXPECT_TRUE(done);
    EXPECT_EQ(errors, "");
    ::tcgetattr(other.nearEnd(), &twoStopBits);
    EXPECT_EQ(twoStopBits.c_cflag & CSTOPB, 0U);
}

TEST_F(Opening, RefusesToSetUpWhatIsNoTerminal)
{
    port();
    bool done = true;

    EXPECT_EQ(errorsOf([&] { done = port().SetupUART(-1); }), kNoSettings);

    EXPECT_FALSE(done);
}

} // namespace
