#include "SimulatorTest.h"

#include "Files.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

using testsupport::bytes;
using namespace std::chrono_literals;

// The terminal, its link, its pace, and what happens when it goes away.

namespace
{

std::string linkTarget(const std::string& path)
{
    char target[256] = {};
    return ::readlink(path.c_str(), target, sizeof target - 1) > 0 ? target : "";
}

} // namespace

TEST_F(NeoM8tSimulator, SurvivesHostsThatCloseTheDevice)
{
    for (int i = 0; i < 3; ++i) {
        client::Client another(receiver.devicePath());
        EXPECT_TRUE(another.poll("0A 04").has_value());
    }
}

TEST_F(NeoM8tSimulator, MakesALinkAndTakesItAway)
{
    const std::string path = "/tmp/receiver-link";
    ASSERT_EQ(::symlink("/nowhere", path.c_str()), 0);

    {
        ubxsim::ReceiverSimulator another;
        another.linkAt(path);
        EXPECT_EQ(linkTarget(path), another.devicePath());
        client::Client throughLink(path);
        EXPECT_TRUE(throughLink.poll("0A 04").has_value());
    }

    struct stat status
    {};
    EXPECT_NE(::lstat(path.c_str(), &status), 0);
}

TEST_F(NeoM8tSimulator, LeavesAFileAloneThatStandsWhereItsLinkShould)
{
    const std::string path = "/tmp/not-a-link";
    const int file = ::open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
    ASSERT_GE(file, 0);
    ::close(file);

    EXPECT_THROW(receiver.linkAt(path), std::system_error);

    struct stat status
    {};
    ASSERT_EQ(::lstat(path.c_str(), &status), 0);
    EXPECT_TRUE(S_ISREG(status.st_mode));
}

TEST_F(NeoM8tSimulator, DoesNotDisturbAnotherOne)
{
    ubxsim::ReceiverSimulator other(options(ubxsim::Model::zedF9t));
    client::Client otherHost(other.devicePath());

    EXPECT_EQ(host.set("06 08", "D0 07 01 00 01 00"), true);

    EXPECT_EQ(hexOf(otherHost.poll("06 08")), "E8 03 01 00 01 00");
    EXPECT_EQ(receiver.receivedFrames().size(), 1U);
}

TEST_F(NeoM8tSimulator, GoesAwayAndComesBackUnderTheSameLink)
{
    const std::string path = "/tmp/receiver-link";
    receiver.linkAt(path);
    host.set("06 08", "D0 07 01 00 01 00");

    receiver.hangUp();

    client::Bytes read;
    EXPECT_LE(host.readOnce(read), 0);
    EXPECT_EQ(host.sendRaw(bytes("B5 62 0A 04 00 00 0E 34")), 0U);
    EXPECT_LT(::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC), 0);

    receiver.comeBack();

    client::Client again(path);
    EXPECT_EQ(hexOf(again.poll("06 08")), "D0 07 01 00 01 00") << "it was the line, not the receiver";
}

TEST_F(NeoM8tSimulator, HangsUpInsteadOfAnAnswer)
{
    ubxsim::Fault fault;
    fault.classId = 0x0609;
    fault.kind = ubxsim::FaultKind::hangUp;
    receiver.play(fault);

    host.send("06 09", "00 00 00 00 1F 1E 00 00 00 00 00 00 13");
    ASSERT_TRUE(receiver.waitForFrames(1));

    client::Bytes read;
    EXPECT_LE(host.readOnce(read), 0);
}

TEST_F(NeoM8tSimulator, LetsTheHostsWritesMeetAFullLine)
{
    receiver.stopReading(true);
    const client::Bytes poll = bytes("B5 62 0A 04 00 00 0E 34");
    const auto deadline = std::chrono::steady_clock::now() + 2s;
    std::size_t taken = 0;
    while (std::chrono::steady_clock::now() < deadline && host.sendRaw(poll) == poll.size()) {
        ++taken; // what the kernel moved on while the line filled up
    }

    EXPECT_LT(host.sendRaw(poll), poll.size());
    EXPECT_EQ(receiver.receivedFrames().size(), 0U);

    receiver.stopReading(false);

    EXPECT_TRUE(receiver.waitForFrames(taken));
    ASSERT_TRUE(host.poll("06 08").has_value());
}

TEST(SimulatorLine, LosesWholeFramesWhenNobodyReads)
{
    ubxsim::SimulatorOptions options;
    options.epoch = 2ms;
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());
    // Nobody reads until the kernel's buffer is nearly full, and for many seconds of the receiver's more.
    int unread = 0;
    while (unread < 3900) {
        ASSERT_EQ(::ioctl(host.descriptor(), FIONREAD, &unread), 0);
    }
    std::this_thread::sleep_for(500ms);

    auto items = host.listen(100ms);

    ASSERT_GT(items.size(), 20U);
    items.pop_back(); // of the last one a part may still be on its way
    std::vector<int> seconds;
    for (const client::Item& item : items) {
        EXPECT_NE(item.kind, client::Item::Kind::noise) << testsupport::hex(item.raw);
        EXPECT_EQ(item.text.find('$', 1), std::string::npos) << "a part of one before another: " << item.text;
        if (item.text.compare(0, 7, "$GNRMC,") == 0) {
            seconds.push_back(std::stoi(item.text.substr(11, 2)));
        }
    }
    const auto gap =
        std::adjacent_find(seconds.begin(), seconds.end(), [](int one, int next) { return next != (one + 1) % 60; });
    EXPECT_NE(gap, seconds.end()) << "nothing was lost";
}

TEST(SimulatorLine, KeepsThePaceOfTheLineSpeed)
{
    ubxsim::SimulatorOptions options;
    options.nmea = false;
    options.unlimitedSpeed = false;
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());

    // MON-VER takes 258 bytes of 10 bits at 9600 bits per second.
    const auto asked = std::chrono::steady_clock::now();
    ASSERT_TRUE(host.poll("0A 04").has_value());
    const auto slow = std::chrono::steady_clock::now() - asked;
    EXPECT_GE(slow, 265ms);
    EXPECT_LE(slow, 1000ms);

    ASSERT_EQ(host.set("06 00", "01 00 00 00 C0 08 00 00 00 C2 01 00 07 00 03 00 00 00 00 00"), true); // 115200

    const auto askedAgain = std::chrono::steady_clock::now();
    ASSERT_TRUE(host.poll("0A 04").has_value());
    const auto fast = std::chrono::steady_clock::now() - askedAgain;
    EXPECT_GE(fast, 20ms);
    EXPECT_LE(fast, 200ms);
}

TEST(SimulatorLine, MakesRepliesWaitBehindBufferedOutput)
{
    ubxsim::SimulatorOptions options;
    options.unlimitedSpeed = false; // 9600 bits per second: the sentences of a second take most of it
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());

    // On a busy machine the question may come late, when little is left in front of the reply: one second of five will
    // do.
    bool hasWaited = false;
    for (int second = 0; second < 5 && !hasWaited; ++second) {
        ASSERT_TRUE(host.waitForText("$GNVTG"));
        const auto asked = std::chrono::steady_clock::now();
        ASSERT_TRUE(host.poll("06 08").has_value());
        hasWaited = std::chrono::steady_clock::now() - asked >= 300ms;
    }
    EXPECT_TRUE(hasWaited);
}

TEST(SimulatorLine, TellsWhenItsTransmitBufferOverflows)
{
    ubxsim::SimulatorOptions options;
    options.unlimitedSpeed = false;
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());
    ASSERT_TRUE(
        receiver.setKeyValue(0x30210001, 25)); // forty solutions a second don't fit through 9600 bits per second

    EXPECT_TRUE(host.waitForText("$GNTXT,01,01,00,txbuf alloc*61", 6s));
}

TEST(SimulatorOptionsCheck, RefusesATimeThatStandsStill)
{
    ubxsim::SimulatorOptions options;
    options.timeScale = 0;

    EXPECT_THROW(ubxsim::ReceiverSimulator receiver(options), std::invalid_argument);
}

TEST(SimulatorClosing, LeavesNoDescriptorBehind)
{
    const auto count = [] {
        int open = 0;
        for (int fd = 0; fd < 256; ++fd) {
            open += ::fcntl(fd, F_GETFD) >= 0 ? 1 : 0;
        }
        return open;
    };
    const int before = count();

    for (int i = 0; i < 10; ++i) {
        ubxsim::ReceiverSimulator receiver;
        client::Client host(receiver.devicePath());
        host.send("0A 04");
    }

    EXPECT_EQ(count(), before);
}
