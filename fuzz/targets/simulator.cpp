// The simulated receiver on any requests, without its line: what it answers and what it keeps must be a receiver's.

#include <string>
#include <vector>

#include "machine/Machine.h"
#include "simulator/receiver/Receiver.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{

using namespace std::chrono_literals;
using ubxsim::Acknowledge;

constexpr std::uint16_t kCfgRst = 0x0604;
constexpr ubxsim::GpsTime kStart{1400000000000}; // in May 2024

ubxsim::ReceiverSetup setupOf(unsigned choice)
{
    const bool zedF9t = (choice & 1U) != 0;
    const char* const firmware = zedF9t ? ((choice & 2U) != 0 ? "TIM 2.13" : "TIM 2.20") : "TIM 1.10";
    const bool strict = (choice & 4U) != 0;
    const bool l5 = (choice & 8U) != 0;
    ubxsim::ReceiverSetup setup;
    setup.profile = ubxsim::profileOf(zedF9t ? ubxsim::Model::zedF9t : ubxsim::Model::neoM8t, firmware, strict, l5);
    setup.port = (choice & 16U) != 0 ? ubxsim::Port::usb : ubxsim::Port::uart1;
    setup.quiet = (choice & 32U) != 0;
    setup.coldStart = (choice & 64U) != 0;
    setup.position = {-31.9505, 115.8605, 24.5};
    setup.start = kStart;
    return setup;
}

/// The values in RAM, in the order of their keys.
using Settings = std::vector<std::uint64_t>;

Settings settingsOf(ubxsim::Receiver& receiver, const std::vector<ubxsim::Key>& keys)
{
    Settings settings;
    settings.reserve(keys.size());
    const ubxsim::SettingsStore& store = receiver.configuration().store();
    for (const ubxsim::Key key : keys)
        settings.push_back(store.get(key));
    return settings;
}

bool isSentence(const ubxsim::Bytes& bytes)
{
    const std::string text(bytes.begin(), bytes.end());
    const std::size_t star = text.rfind('*');
    if (text.empty() || text[0] != '$' || star == std::string::npos || text.size() != star + 5) return false;
    unsigned sum = 0;
    for (std::size_t at = 1; at < star; ++at)
        sum ^= static_cast<unsigned char>(text[at]);
    constexpr const char* kDigits = "0123456789ABCDEF";
    return text.substr(star + 1) == std::string{kDigits[sum >> 4], kDigits[sum & 15U], '\r', '\n'};
}

bool isFrame(const ubxsim::Bytes& bytes)
{
    unsigned a = 0;
    unsigned b = 0;
    if (bytes.size() < 8 || bytes[0] != 0xB5 || bytes[1] != 0x62) return false;
    if (bytes[4] + 256U * bytes[5] + 8U != bytes.size()) return false;
    for (std::size_t at = 2; at + 2 < bytes.size(); ++at) {
        a = (a + bytes[at]) % 256;
        b = (b + a) % 256;
    }
    return bytes[bytes.size() - 2] == a && bytes[bytes.size() - 1] == b;
}

/// @param settings  as they are; brought up to date.
void handle(ubxsim::Receiver& receiver, const std::vector<ubxsim::Key>& keys, Settings& settings,
            const ubxsim::Frame& request)
{
    const bool wasStarting = receiver.isBooting();
    const ubxsim::Answer answer = receiver.handle(request);
    Settings after = settingsOf(receiver, keys);
    const bool changed = after != settings;
    settings = std::move(after);

    const bool isConfiguration = request.classId >> 8 == 0x06;
    const bool refused = answer.acknowledge == Acknowledge::nak;
    fuzz::require(!changed || isConfiguration, "a message outside of the configuration changed a setting");
    fuzz::require(!changed || !refused, "a refused request changed a setting");
    fuzz::require(!changed || answer.replies.empty(), "a poll changed a setting");
    fuzz::require(answer.replies.empty() || !refused, "a refused request has a reply");
    fuzz::require(isConfiguration || answer.acknowledge == Acknowledge::none, "only configuration is acknowledged");
    if (wasStarting) {
        fuzz::require(answer.replies.empty() && answer.acknowledge == Acknowledge::none, "it answers while it starts");
    }
    if (request.classId == kCfgRst) {
        fuzz::require(answer.acknowledge != Acknowledge::ack, "no receiver acknowledges a reset");
    }
    for (const ubxsim::Frame& reply : answer.replies)
        fuzz::require(reply.classId == request.classId, "a request was answered by another message");
    for (const ubxsim::Bytes& notice : answer.notices)
        fuzz::require(isSentence(notice), "a notice is no sentence");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1) return 0;
    ubxsim::Receiver receiver(setupOf(data[0]));
    const std::vector<ubxsim::Key> keys = receiver.configuration().store().allKeys();
    Settings settings = settingsOf(receiver, keys);
    ubxsim::FrameScanner scanner;
    ubxsim::SimTime now{0};
    scanner.feed(data + 1, size - 1);
    scanner.giveUpPartialFrame();
    while (const auto request = scanner.next()) {
        handle(receiver, keys, settings, *request);
        receiver.takeReset();
        // Four requests a second: time for an epoch now and then, and for a start.
        now += 275ms;
        for (const ubxsim::Bytes& output : receiver.advanceTo(now))
            fuzz::require(isSentence(output) || isFrame(output), "it puts out neither a sentence nor a frame");
        fuzz::require(receiver.nextEvent() > now, "its time stands still");
    }
    return 0;
}
