#include "ZedF9tTest.h"

#include "Bytes.h"
#include "Files.h"

using testsupport::Bytes;
using testsupport::bytes;

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
