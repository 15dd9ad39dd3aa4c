#include "ReceiverTest.h"

#include <chrono>
#include <filesystem>
#include <future>
#include <regex>
#include <sstream>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "CapturedOutput.h"
#include "Files.h"

namespace testsupport
{

namespace
{

constexpr const char* kDevice = "/dev/tty_gps";

// What a test could have left behind for the next one of the same process.
constexpr const char* kLeftovers[] = {
    "/var/log/rxtool-errors.log",
    "/var/log/rxtool-neom8t-errors.log",
    "/var/log/rxtool-zedf9t-errors.log",
    "/tmp/ubloxChip-info.txt",
    "/dev/usb-ublox-f9t",
    "/dev/usb-ublox-m8t",
};

// A frame of a class that no receiver knows. It is sent behind what a test wants to see: when it has arrived, so has
// all that was sent before.
const Bytes kMarker = bytes("B5 62 7F 7F 00 00 FE 79");
constexpr std::chrono::seconds kArrival{10}; // only a receiver that has stopped takes that long

// Every message that the library sends.
constexpr std::uint16_t kMessages[] = {
    0x0600, 0x0601, 0x0604, 0x0608, 0x0609, 0x0611, 0x0616, 0x0623, 0x0624, 0x0631,
    0x0639, 0x063B, 0x063D, 0x063E, 0x068A, 0x068B, 0x0102, 0x0107, 0x0135, 0x0A04,
};

bool sendMarker(const std::string& device)
{
    const int fd = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) return false;
    const ssize_t written = ::write(fd, kMarker.data(), kMarker.size());
    ::close(fd);
    return written == static_cast<ssize_t>(kMarker.size());
}

bool endsWithMarker(const std::vector<ubxsim::Bytes>& frames)
{
    return !frames.empty() && frames.back() == kMarker;
}

std::string listing(const std::vector<std::string>& frames, const std::vector<std::string>& others)
{
    std::ostringstream text;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const bool same = i < others.size() && others[i] == frames[i];
        text << (same ? "    " : "  * ") << frames[i] << '\n';
    }
    return frames.empty() ? "    none\n" : text.str();
}

} // namespace

ubxsim::SimulatorOptions quietReceiver(ubxsim::Model model, const std::string& firmware)
{
    ubxsim::SimulatorOptions options;
    options.model = model;
    options.firmware = firmware;
    options.nmea = false;
    options.trailer = bytes("0D 0A");
    return options;
}

ReceiverTest::ReceiverTest(ubxsim::SimulatorOptions options) : options_(std::move(options))
{
    for (const char* file : kLeftovers)
        std::filesystem::remove(file);
}

ReceiverTest::~ReceiverTest() = default;

ubxsim::ReceiverSimulator& ReceiverTest::receiver()
{
    if (receiver_ == nullptr) {
        receiver_ = std::make_unique<ubxsim::ReceiverSimulator>(options_);
        receiver_->linkAt(kDevice);
    }
    return *receiver_;
}

std::vector<std::string> ReceiverTest::takeFrames()
{
    if (receiver_ == nullptr) return {};
    const bool sent = sendMarker(receiver_->devicePath());
    std::vector<ubxsim::Bytes> received = receiver_->receivedFrames();
    while (sent && !endsWithMarker(received) && receiver_->waitForFrames(received.size() + 1, kArrival)) {
        received = receiver_->receivedFrames();
    }
    EXPECT_TRUE(endsWithMarker(received)) << "the receiver does not take what it is sent";

    std::vector<std::string> frames;
    for (const ubxsim::Bytes& frame : received) {
        if (frame != kMarker) frames.push_back(hex(frame));
    }
    receiver_->clearReceived();
    return frames;
}

void ReceiverTest::expectFrames(const std::vector<std::string>& frames, const char* file, int line)
{
    std::vector<std::string> expected;
    for (const std::string& frame : frames)
        expected.push_back(hex(bytes(frame)));
    const std::vector<std::string> actual = takeFrames();
    if (actual == expected) return;
    ADD_FAILURE_AT(file, line) << "expected frames\n"
                               << listing(expected, actual) << "the receiver got\n"
                               << listing(actual, expected);
}

void ReceiverTest::expectNoFrames(const char* file, int line)
{
    expectFrames({}, file, line);
}

void ReceiverTest::silence()
{
    for (const std::uint16_t classId : kMessages)
        receiver().ignore(classId);
}

void ReceiverTest::expectWait(std::chrono::seconds limit, std::uint16_t classId, const std::function<void()>& operation)
{
    using namespace std::chrono_literals;
    receiver().corruptChecksum(classId); // makes the wait say in every round that it goes on to its limit
    const CapturedOutput standardError(STDERR_FILENO);
    const auto said = [&] { return standardError.text().size(); };
    const testclock::FastClock standing(0);
    const std::future<void> ended = std::async(std::launch::async, operation);
    const auto hasEnded = [&](std::chrono::seconds patience) {
        return ended.wait_for(patience) == std::future_status::ready;
    };
    const auto goOn = [&](std::size_t until) {
        while (said() < until && !hasEnded(0s))
            std::this_thread::yield();
    };

    goOn(1);
    testclock::jump(limit - 1s);
    goOn(said() + 1000);
    EXPECT_FALSE(hasEnded(0s)) << "it ended before " << limit.count() << " s";
    testclock::jump(1s);
    EXPECT_TRUE(hasEnded(10s)) << "it did not end after " << limit.count() << " s";
    testclock::jump(1h);
}

std::vector<std::string> ReceiverTest::log(const std::string& path)
{
    static const std::regex stamped("[0-2][0-9]:[0-5][0-9]:[0-5][0-9]_[0-9]{3}:  (.*)");
    std::vector<std::string> texts;
    for (const std::string& line : lines(path)) {
        std::smatch parts;
        texts.push_back(std::regex_match(line, parts, stamped) ? parts[1].str() : line);
    }
    return texts;
}

} // namespace testsupport
