// The flush on a pseudo terminal, as this program, a shared library that it uses and a command of a sandbox see it.

#include "sandbox/TtyFlush.h"

#include <array>
#include <cerrno>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include "ChildProcess.h"
#include "Files.h"
#include "FlushLog.h"
#include "InterposedLibrary.h"

using testsupport::Ended;
using testsupport::runToEnd;

namespace
{

/// More than what the other side's line discipline takes in (4095 bytes): the rest waits, and is what a flush can hit.
const std::string kFrames(6000, 'f');

/// A raw pseudo terminal: the port that the library opens on one side, and the receiver on the other. Something is
/// under way in both directions.
class TtyFlush : public testing::Test
{
protected:
    TtyFlush()
    {
        flushlog::clear();
        receiver_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        ::unlockpt(receiver_);
        std::array<char, 64> name{};
        ::ptsname_r(receiver_, name.data(), name.size());
        port_ = ::open(name.data(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        termios settings{};
        ::tcgetattr(port_, &settings);
        ::cfmakeraw(&settings);
        ::tcsetattr(port_, TCSANOW, &settings);
    }
    ~TtyFlush() override
    {
        ::close(port_);
        ::close(receiver_);
    }

    void SetUp() override
    {
        writeTo(port_, kFrames);
        writeTo(receiver_, "navigation");
    }

    int port() const { return port_; }

    /// How much of the frames arrives: what is read before a byte that is written only now.
    std::size_t reachesReceiver() const
    {
        writeTo(port_, ".");
        std::string all;
        while (all.empty() || all.back() != '.') {
            std::array<char, 1024> bytes{};
            const ssize_t got = ::read(receiver_, bytes.data(), bytes.size());
            if (got <= 0) throw std::runtime_error("the receiver can't read");
            all.append(bytes.data(), static_cast<std::size_t>(got));
        }
        return all.size() - 1;
    }

    /// What the port still reads of what the receiver sent before.
    std::string reachesPort() const
    {
        std::array<char, 64> bytes{};
        const ssize_t got = ::read(port_, bytes.data(), bytes.size());
        return got > 0 ? std::string(bytes.data(), static_cast<std::size_t>(got)) : std::string();
    }

private:
    static void writeTo(int fd, const std::string& text)
    {
        ASSERT_EQ(::write(fd, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }

    int receiver_ = -1;
    int port_ = -1;
};

TEST_F(TtyFlush, OfThePseudoTerminalItselfThrowsAwayWhatTheReceiverHasNotRead)
{
    ASSERT_EQ(::ioctl(port(), TCFLSH, TCIOFLUSH), 0);

    EXPECT_LT(reachesReceiver(), kFrames.size()) << "then there is nothing to put right";
}

TEST_F(TtyFlush, OfBothQueuesDiscardsInputOnly)
{
    EXPECT_EQ(::tcflush(port(), TCIOFLUSH), 0);

    EXPECT_EQ(reachesPort(), "");
    EXPECT_EQ(reachesReceiver(), kFrames.size());
    EXPECT_EQ(flushlog::asked(), std::vector<int>{TCIOFLUSH});
}

TEST_F(TtyFlush, OfOutputDiscardsNothing)
{
    EXPECT_EQ(::tcflush(port(), TCOFLUSH), 0);

    EXPECT_EQ(reachesPort(), "navigation");
    EXPECT_EQ(reachesReceiver(), kFrames.size());
    EXPECT_EQ(flushlog::asked(), std::vector<int>{TCOFLUSH});
}

TEST_F(TtyFlush, OfInputDiscardsInput)
{
    EXPECT_EQ(::tcflush(port(), TCIFLUSH), 0);

    EXPECT_EQ(reachesPort(), "");
    EXPECT_EQ(reachesReceiver(), kFrames.size());
}

TEST_F(TtyFlush, InASharedLibraryIsTheSame)
{
    EXPECT_EQ(flushAsALibraryDoes(port(), TCIOFLUSH), 0);

    EXPECT_EQ(reachesPort(), "");
    EXPECT_EQ(reachesReceiver(), kFrames.size());
    EXPECT_EQ(flushlog::asked(), std::vector<int>{TCIOFLUSH});
}

TEST_F(TtyFlush, OfWhatIsNoTerminalFailsAsEver)
{
    const int file = ::open("/dev/null", O_RDWR | O_CLOEXEC);

    for (const int queue : {TCIFLUSH, TCOFLUSH, TCIOFLUSH}) {
        errno = 0;
        EXPECT_EQ(::tcflush(file, queue), -1) << queue;
        EXPECT_EQ(errno, ENOTTY) << queue;
        EXPECT_EQ(::tcflush(-1, queue), -1) << queue;
        EXPECT_EQ(errno, EBADF) << queue;
    }
    ::close(file);
}

TEST_F(TtyFlush, OfAQueueThatDoesNotExistFailsAsEver)
{
    EXPECT_EQ(::tcflush(port(), 17), -1);
    EXPECT_EQ(errno, EINVAL);
}

TEST_F(TtyFlush, IsThatOfTheRealPortInACommandOfTheSandboxOnly)
{
    const std::string programs = testsupport::programDirectory();

    const Ended without = runToEnd({programs + "/tty_flush_probe"});
    const Ended with = runToEnd({programs + "/ubxsandbox", programs + "/tty_flush_probe"});

    EXPECT_EQ(without.output, "lost\n");
    EXPECT_EQ(with.output, "arrived\n") << with.errors;
    EXPECT_EQ(with.errors, "");
}

} // namespace
