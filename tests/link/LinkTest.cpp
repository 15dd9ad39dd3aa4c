#include "LinkTest.h"

#include <atomic>
#include <exception>
#include <memory>
#include <thread>
#include <utility>

#include <unistd.h>

#include "Calls.h"
#include "CapturedOutput.h"

namespace linktest
{

std::string errorsOf(const std::function<void()>& operation)
{
    const testsupport::CapturedOutput errors(STDERR_FILENO);
    operation();
    return errors.text();
}

namespace
{

/// How often a text begins with the line of a damaged frame, and its rest. There can be very many of them.
std::pair<unsigned long, std::string> countErrored(const std::string& text)
{
    const std::string line = kErrored;
    unsigned long count = 0;
    while (text.compare(count * line.size(), line.size(), line) == 0)
        ++count;
    return {count, text.substr(count * line.size())};
}

} // namespace

Wait LinkTest::receive(ubxIO& port, unsigned short classId, int timeLimit, const std::function<void()>& talk)
{
    std::atomic<bool> ended{false};
    std::string complaint;
    line.nobodyReads(false);
    std::thread talker([&] {
        try {
            talk();
            if (!until([&] { return ended.load(); })) complaint = "the wait does not end";
        } catch (const std::exception& error) {
            complaint = error.what();
        }
        while (!ended) { // Whatever went wrong, the test ends.
            clock.pass(1h);
            std::this_thread::yield();
        }
    });

    const testsupport::CapturedOutput errors(STDERR_FILENO);
    const unsigned long roundsBefore = calls::reads();
    const std::unique_ptr<UBXMessage> message(port.ReceiveMessage(classId, timeLimit));
    const unsigned long rounds = calls::reads() - roundsBefore;
    line.nobodyReads(true);
    ended = true;
    talker.join();

    EXPECT_EQ(complaint, "");
    const auto [errored, others] = countErrored(errors.text());
    if (message == nullptr) return {"", errored, others, rounds};
    const unsigned char* const frame = message->getPacketData();
    return {testsupport::hex(Bytes(frame, frame + message->getPacketLength())), errored, others, rounds};
}

void LinkTest::letTimePass()
{
    line.rounds(5);
    clock.pass(4s);
    line.rounds(5); // would not come if the wait had ended
    clock.pass(1s);
}

ubxIO& LinkTest::port()
{
    if (!port_) {
        port_.emplace();
        line.opened();
    }
    return port_->object;
}

void LinkTest::reopen()
{
    port_.reset();
    port();
}

Bytes operator+(const Bytes& first, const Bytes& second)
{
    Bytes both = first;
    both.insert(both.end(), second.begin(), second.end());
    return both;
}

Bytes nmea(std::size_t size)
{
    static const std::string kSentence = "$GNRMC,140307.00,V,,,,,,,,,,N*6B\r\n";
    Bytes all;
    while (all.size() < size)
        all.push_back(static_cast<std::uint8_t>(kSentence[all.size() % kSentence.size()]));
    return all;
}

} // namespace linktest
