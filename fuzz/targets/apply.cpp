// "ubxctl apply" with any file: read, compared with a receiver, applied to it, and compared again. The receiver is the
// simulated one, without its line; the first byte of the input chooses which.

#include <memory>

#include <ubxController_NEOM8T.h>
#include <ubxController_ZEDF9T.h>

#include "apply/Apply.h"
#include "machine/Machine.h"
#include "session/Failure.h"
#include "simulator/receiver/Receiver.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{

using ubxctl::Fate;

constexpr ubxsim::GpsTime kStart{1400000000000}; // in May 2024

/// A receiver that answers within the write of the request.
class Answering : public ubxctl::Exchange
{
public:
    Answering(ubxsim::Model model, const char* firmware) : receiver_(setup(model, firmware))
    {
        fuzz::machine().reset();
        fuzz::machine().onWrite = [this](const fuzz::Bytes& written) {
            ubxsim::FrameScanner scanner;
            scanner.feed(written.data(), written.size());
            while (const auto request = scanner.next())
                answer(*request);
        };
    }
    ~Answering() override { fuzz::machine().onWrite = nullptr; }

    std::vector<ubxctl::Answer> askAll(const std::vector<ubxctl::Poll>& polls) override
    {
        std::vector<ubxctl::Answer> answers;
        for (const ubxctl::Poll& poll : polls) {
            const ubxsim::Answer answer = receiver_.handle({poll.classId, poll.payload});
            const bool refused = answer.acknowledge == ubxsim::Acknowledge::nak;
            if (answer.replies.empty()) {
                answers.push_back({refused ? ubxctl::kRefused : ubxctl::kNoReply});
            } else {
                answers.push_back({ubxctl::kDone, answer.replies.front().payload});
            }
        }
        return answers;
    }

private:
    static ubxsim::ReceiverSetup setup(ubxsim::Model model, const char* firmware)
    {
        ubxsim::ReceiverSetup setup;
        setup.profile = ubxsim::profileOf(model, firmware, false, true);
        setup.quiet = true;
        setup.position = {-31.9505, 115.8605, 24.5};
        setup.start = kStart;
        return setup;
    }

    void answer(const ubxsim::Frame& request)
    {
        const ubxsim::Answer answer = receiver_.handle(request);
        for (const ubxsim::Frame& reply : answer.replies)
            fuzz::machine().receive(ubxsim::frame(reply.classId, reply.payload));
        fuzz::machine().receive({'\r', '\n'}); // the library takes a frame when another byte has come
    }

    ubxsim::Receiver receiver_;
};

std::vector<ubxctl::WantedSetting> read(const std::string& text)
{
    try {
        return ubxctl::parseStateFile(text, "file");
    } catch (const ubxctl::Failure& failure) {
        fuzz::require(failure.exitCode() == ubxctl::kUsage, "a wrong file is another sort of failure");
        fuzz::require(std::string(failure.what()).rfind("file:", 0) == 0, "it is not said where the file is wrong");
        return {};
    }
}

void expectSameWhenReadAgain(const ubxctl::WantedSetting& wanted)
{
    const ubxctl::Format& format = wanted.setting->format;
    const std::string shown = format.show(wanted.value);
    fuzz::require(format.same(format.parse(shown), wanted.value),
                  std::string(wanted.setting->key) + " = " + shown + " is another value when it is read again");
}

void tryOn(ubxctl::Receiver& receiver, const std::vector<ubxctl::WantedSetting>& wanted)
{
    std::vector<ubxctl::Difference> differences = ubxctl::compare(receiver, wanted);
    ubxctl::reportOf(differences, true).report.asText(true);
    ubxctl::apply(receiver, differences);
    const ubxctl::Outcome outcome = ubxctl::reportOf(differences, false);
    outcome.report.asText(false);
    outcome.report.asJson(outcome.status);
    fuzz::require((outcome.status & ~ubxctl::kRefused) == 0,
                  "a receiver that answers everything gave the status " + std::to_string(outcome.status));

    const std::vector<ubxctl::Difference> after = ubxctl::compare(receiver, wanted);
    for (std::size_t i = 0; i < after.size(); ++i) {
        const bool isSo = differences[i].fate == Fate::applied || differences[i].fate == Fate::unchanged;
        fuzz::require(!isSo || after[i].fate == Fate::unchanged, std::string(wanted[i].setting->key) +
                                                                     " was said to be " + wordFor(differences[i].fate) +
                                                                     " and is not as wanted");
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1) return 0;
    const unsigned choice = data[0];
    const std::vector<ubxctl::WantedSetting> wanted =
        read(std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
    for (const ubxctl::WantedSetting& one : wanted)
        expectSameWhenReadAgain(one);
    if (wanted.empty()) return 0;

    if (choice % 3 == 0) {
        const auto exchange = std::make_shared<Answering>(ubxsim::Model::neoM8t, "TIM 1.10");
        ubxctl::Receiver receiver(std::make_shared<ubxController_NEOM8T>(), exchange,
                                  {"NEOM8T", "00080000", "TIM 1.10", "22.00", "NEO-M8T-0"},
                                  ubxctl::Language::automatic);
        tryOn(receiver, wanted);
    } else {
        const std::string firmware = choice % 3 == 1 ? "TIM 2.20" : "TIM 2.13";
        const auto language = (choice & 64U) != 0    ? ubxctl::Language::messages
                              : (choice & 128U) != 0 ? ubxctl::Language::items
                                                     : ubxctl::Language::automatic;
        const auto exchange = std::make_shared<Answering>(ubxsim::Model::zedF9t, firmware.c_str());
        ubxctl::Receiver receiver(std::make_shared<ubxController_ZEDF9T>(firmware, true), exchange,
                                  {"ZEDF9T", "00190000", firmware, "29.20", "ZED-F9T"}, language);
        tryOn(receiver, wanted);
    }
    fuzz::require(fuzz::machine().openDescriptors == 0, "the port was left open");
    return 0;
}
