// Signals that arrive in the middle of an exchange.

#include <ubxIO.h>

#include <csignal>
#include <string>
#include <vector>

#include "Calls.h"
#include "LinkTest.h"

namespace
{

using namespace linktest;
using testsupport::bytes;

constexpr const char* kItem = "B5 62 06 8B 09 00 01 00 00 00 A3 00 11 20 28 97 08";
constexpr unsigned short kItems = 0x068B;

class Interruptions : public LinkTest
{
protected:
    UBXMessage poll{0x0A04, 0, nullptr};
};

TEST_F(Interruptions, AreKeptOffFromOpeningWritingAndClosing)
{
    calls::watch();
    {
        ubxIO opened;
        EXPECT_EQ(opened.SendMessage(&poll), 0);
    }

    EXPECT_EQ(calls::signalLog(), (std::vector<std::string>{"open held", "write held", "close held"}));
}

TEST_F(Interruptions, AreKeptOffFromClosingAPortThatCanNotBeSetUp)
{
    calls::watch();
    calls::refuse({EIO, 0, 0, 0, {}});
    EXPECT_EQ(errorsOf([] { const ubxIO unusable; }), kNoSettings);

    EXPECT_EQ(calls::signalLog(), (std::vector<std::string>{"open held", "close held"}));
}

TEST_F(Interruptions, AreAllowedAgainAsTheyWereBefore)
{
    sigset_t wanted;
    ::sigemptyset(&wanted);
    ::sigaddset(&wanted, SIGUSR1);
    ::pthread_sigmask(SIG_BLOCK, &wanted, nullptr);
    {
        ubxIO opened;
        opened.SendMessage(&poll);
    }
    sigset_t after;
    ::pthread_sigmask(SIG_UNBLOCK, &wanted, &after);

    for (int signal = 1; signal < 32; ++signal)
        EXPECT_EQ(::sigismember(&after, signal), signal == SIGUSR1 ? 1 : 0) << signal;
}

TEST_F(Interruptions, OfAnOpenThatTakesNoticeAllTheSameMakeThePortUnusable)
{
    calls::watch();
    calls::interruptOpens(1);
    EXPECT_EQ(errorsOf([] { const ubxIO unusable; }), kNotOpened);
    EXPECT_EQ(calls::signalLog().size(), 1U) << "no second attempt";

    ubxIO next;
    EXPECT_EQ(next.SendMessage(&poll), 0);
}

TEST_F(Interruptions, OfReadsCostNothing)
{
    port();
    calls::interruptReads(3);

    const Wait wait = receive(port(), kItems, 5, [&] {
        line.rounds(4);
        line.say(bytes(kItem) + bytes("0D"));
    });

    EXPECT_EQ(wait.frame, kItem);
    EXPECT_EQ(wait.errors, "");
}

} // namespace
