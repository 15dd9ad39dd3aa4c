#include "ZedF9tTest.h"

#include <chrono>
#include <future>
#include <thread>

#include "Bytes.h"
#include "Files.h"
#include "TestClock.h"

using testsupport::Bytes;
using testsupport::bytes;
using testsupport::CapturedOutput;
using namespace std::chrono_literals;

namespace zedtest
{

namespace
{

constexpr std::uint16_t kValget = 0x068B;

// Version 1, RAM, position 0, then the items.
Bytes itemReply(const std::string& items)
{
    return bytes("01 00 00 00 " + items);
}

} // namespace

ZedF9tTest::ZedF9tTest(const std::string& firmware)
    : ReceiverTest(testsupport::quietReceiver(ubxsim::Model::zedF9t, firmware)), controller("FWVER=" + firmware, kByKey)
{}

void ZedF9tTest::answerItems(const std::string& items, int times)
{
    receiver().answerWith(kValget, itemReply(items), times);
}

void ZedF9tTest::answerShortened(const std::string& items, std::size_t length)
{
    Bytes reply = itemReply(items);
    reply.resize(length);
    receiver().answerWith(kValget, reply, 1);
}

void ZedF9tTest::answer(std::uint16_t classId, const std::string& payload, int times)
{
    receiver().answerWith(classId, bytes(payload), times);
}

void ZedF9tTest::answerWrongly(std::uint16_t classId)
{
    // Of any message: a wrong checksum holds up every wait.
    receiver().answerRaw(classId, bytes("B5 62 06 8B 00 00 00 00 0D 0A"), 1);
}

int ZedF9tTest::whileOneWaitIsInVain(const std::function<int()>& operation)
{
    const CapturedOutput errors(STDERR_FILENO);
    const testclock::FastClock standing(0);
    std::future<int> status = std::async(std::launch::async, operation);
    const auto hasEnded = [&] { return status.wait_for(0s) == std::future_status::ready; };

    // The wait complains of the checksum: it has begun, and its time limit can pass.
    while (errors.text().empty() && !hasEnded())
        std::this_thread::yield();
    testclock::jump(5s);
    return status.get();
}

void ZedF9tTest::renewTimePulse()
{
    receiver();
    ubxController_ZEDF9T other(kVersion2_20, kLegacy);
    other.setAntennaDelay(0);
    other.configTimePulse(1, 0, true);
    takeFrames();
}

void ZedF9tTest::plugIntoUsb()
{
    testsupport::write("/dev/usb-ublox-f9t", "");
}

std::vector<std::string> ZedF9tTest::log()
{
    return ReceiverTest::log("/var/log/rxtool-zedf9t-errors.log");
}

} // namespace zedtest
