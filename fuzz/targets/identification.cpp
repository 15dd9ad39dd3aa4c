// The identification on any replies to the polls of port and version: which model it takes the receiver for, what it
// records, what it writes to the chip-info file, and what it sends back as the port's settings.

#include <stdexcept>

#include <ubloxChipInfo.h>
#include <ubxController.h>
#include <ubxController_ZEDF9T.h>

#include "SimulatedPlatform.h"
#include "queries/Asking.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{

using fuzz::Bytes;
using fuzz::Conversation;
using fuzz::Plain;

const Bytes kPortPoll = {0xB5, 0x62, 0x06, 0x00, 0x00, 0x00, 0x06, 0x18};
const Bytes kVersionPoll = {0xB5, 0x62, 0x0A, 0x04, 0x00, 0x00, 0x0E, 0x34};
constexpr std::uint16_t kCfgPrt = 0x0600;
constexpr std::uint16_t kMonVer = 0x0A04;
constexpr int kVersionPolls = 3;

/// What is known of the receiver, found a second time and plainly.
struct Known
{
    std::string hardware, firmware, protocol, module;

    /// Takes in a version record: texts that end with a zero byte, joined by colon and blank, and cut there again.
    void learn(const std::optional<Plain>& record)
    {
        std::string rest;
        if (record.has_value()) {
            rest = record->text(0, record->size()) + ": " + record->text(30, record->size());
            for (std::size_t at = 40; at < record->size(); at += 30)
                rest += ": " + record->text(at, record->size());
        }
        for (std::size_t end = 0; (end = rest.find(": ")) != std::string::npos; rest = rest.substr(end + 2)) {
            const std::string field = rest.substr(0, end);
            if (field == "00190000" || field == "00080000") {
                hardware = field;
            } else if (field.rfind("FWVER", 0) == 0) {
                firmware = field;
            } else if (field.rfind("PROT", 0) == 0) {
                protocol = field;
            } else if (field.rfind("MOD", 0) == 0) {
                module = field;
            }
        }
        const auto behind = [](const std::string& text, std::size_t count) {
            return text.size() > count ? text.substr(count) : std::string();
        };
        firmware = behind(firmware, 6);
        protocol = behind(protocol, 8);
        module = behind(module, 4);
    }

    std::string chip() const { return hardware == "00190000" ? "ZEDF9T" : "NEOM8T"; }

    std::string file() const
    {
        return "UBLOX_Chip=" + chip() + "\nUBLOX_HwVer=" + hardware + "\nUBLOX_SwVer=" + firmware +
               "\nUBLOX_ProtVer=" + protocol + "\nUBLOX_ModName=" + module + "\n";
    }
};

/// The port's settings as they must come back: output of UBX and NMEA, all else as it was.
Bytes portSettings(const Plain& reply)
{
    Bytes frame = {0xB5,
                   0x62,
                   0x06,
                   0x00,
                   static_cast<std::uint8_t>(reply.size() & 0xFF),
                   static_cast<std::uint8_t>(reply.size() >> 8)};
    for (std::size_t at = 0; at < reply.size(); ++at)
        frame.push_back(static_cast<std::uint8_t>(at == 14 ? 3 : reply.byte(at)));
    unsigned a = 0;
    unsigned b = 0;
    for (std::size_t at = 2; at < frame.size(); ++at) {
        a = (a + frame[at]) % 256;
        b = (b + a) % 256;
    }
    frame.push_back(static_cast<std::uint8_t>(a));
    frame.push_back(static_cast<std::uint8_t>(b));
    return frame;
}

/// The receiver of one identification.
class Receiver
{
public:
    Receiver(const Conversation& conversation, std::size_t identification)
        : port_(conversation.answer(2 * identification)), version_(conversation.answer(2 * identification + 1))
    {
        fuzz::machine().onWrite = [this](const Bytes& frame) { take(frame); };
    }

    void expectRightConversation(std::size_t bytesPerRead) const
    {
        const auto settings = fuzz::awaited(port_, bytesPerRead, kCfgPrt);
        std::vector<Bytes> expected = {kPortPoll};
        if (settings.has_value()) expected.push_back(portSettings(*settings));
        expected.insert(expected.end(), kVersionPolls, kVersionPoll);
        fuzz::require(written_ == expected, "the identification wrote other frames");
    }

    std::optional<Plain> version(std::size_t bytesPerRead) const
    {
        return fuzz::awaited(version_, bytesPerRead, kMonVer);
    }

private:
    void take(const Bytes& frame)
    {
        written_.push_back(frame);
        if (written_.size() == 1) fuzz::machine().receive(port_);
        if (frame == kVersionPoll && ++versionPolls_ == kVersionPolls) fuzz::machine().receive(version_);
    }

    const Bytes& port_;
    const Bytes& version_;
    std::vector<Bytes> written_;
    int versionPolls_ = 0;
};

void expectRecord(const Known& known)
{
    fuzz::require(ubloxChipInfo::getUbloxChipName() == known.chip(), "the record names another chip");
    fuzz::require(ubloxChipInfo::getUbloxHwVer() == known.hardware, "the record has another hardware version");
    fuzz::require(ubloxChipInfo::getUbloxSwVer() == known.firmware, "the record has another firmware version");
    fuzz::require(ubloxChipInfo::getUbloxProtVer() == known.protocol, "the record has another protocol version");
    fuzz::require(ubloxChipInfo::getUbloxModeName() == known.module, "the record has another module name");
}

/// The firmware's version chooses between keys. A text that holds no number behind "TIM" is told by an exception.
void useFirmwareVersion(const std::string& firmware)
{
    ubxController_ZEDF9T model(firmware, true);
    try {
        const int keys = model.checkUbloxChipFirmVer();
        fuzz::require(keys == 0 || keys == 1 || keys == 999, "no firmware has the keys " + std::to_string(keys));
        fuzz::require((keys == 999) == (firmware.find("TIM") == std::string::npos), "a firmware is taken for another");
    } catch (const std::invalid_argument&) {
    } catch (const std::out_of_range&) {
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Conversation conversation(data, size);
    fuzz::Machine& machine = fuzz::machine();
    machine.reset();
    machine.bytesPerRead = conversation.bytesPerRead;
    ubxplatform::reset();
    Known known;

    {
        Receiver first(conversation, 0);
        ubxController facade;
        first.expectRightConversation(conversation.bytesPerRead);
        known.learn(first.version(conversation.bytesPerRead));
        expectRecord(known);
        fuzz::require(machine.chipInfoIsThere && machine.chipInfo == known.file(), "the file holds something else");
        fuzz::require(facade.isZedF9t() == (known.chip() == "ZEDF9T"), "the receiver is taken for another");
        useFirmwareVersion(known.firmware);

        if (conversation.choice % 2 != 0) {
            machine.chipInfoIsThere = false;
            machine.chipInfo.clear();
            Receiver second(conversation, 1);
            facade.checkUbloxCheckId();
            second.expectRightConversation(conversation.bytesPerRead);
            known.learn(second.version(conversation.bytesPerRead));
            fuzz::require(machine.chipInfo == known.file(), "the second file holds something else");
        }
        machine.onWrite = nullptr;
    }
    fuzz::require(machine.openDescriptors == 0, "a descriptor was left open");
    return 0;
}
