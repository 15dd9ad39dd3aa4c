#pragma once

#include "simulator/faults/Action.h"
#include "simulator/receiver/Geodesy.h"
#include "simulator/receiver/Model.h"
#include "simulator/settings/Ports.h"
#include "simulator/settings/SettingsStore.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace ubxsim
{

class SimulatedDevice;

struct SimulatorOptions
{
    Model model = Model::neoM8t;
    std::string firmware;      // "TIM 1.10" for the NEO-M8T, "TIM 2.20" for the ZED-F9T when empty
    bool strictLegacy = false; // only the legacy messages that real receivers were seen to answer
    bool l5Signals = true;     // a ZED-F9T from TIM 2.20 on knows the L5 keys
    bool nmea = true;          // false: no unsolicited output at all until told
    Port port = Port::uart1;   // the receiver's port behind the line

    std::chrono::microseconds epoch{1000000}; // wall time of one second of the receiver
    double timeScale = 1.0;                   // further speed-up of the receiver's time
    bool unlimitedSpeed = true;               // bytes leave at once; false: at the pace of the set line speed
    Bytes trailer;                            // sent after each reply that no acknowledgement follows

    Geodetic position{-31.9505, 115.8605, 24.5};
    /// Unix time at which the receiver's time starts; the present when empty.
    std::optional<std::chrono::milliseconds> startTime;
    bool coldStart = false; // has to find the satellites first
    std::string traceFile;  // gets every frame in both directions; empty for none
};

/// A receiver behind a pseudo terminal. The constructor starts its thread, the destructor leaves nothing behind.
class ReceiverSimulator
{
public:
    /// Throws std::invalid_argument for options that make no receiver, std::system_error where no terminal can be had.
    explicit ReceiverSimulator(SimulatorOptions options = {});
    ~ReceiverSimulator();
    ReceiverSimulator(const ReceiverSimulator&) = delete;
    ReceiverSimulator& operator=(const ReceiverSimulator&) = delete;

    /// For example "/dev/pts/3". Another one after `comeBack`.
    std::string devicePath() const;
    /// A symbolic link to the terminal; replaces an older link, is removed by the destructor.
    void linkAt(const std::string& path);

    // What the host sent: whole frames with the right checksum, sync to checksum, in order of arrival.
    std::vector<Bytes> receivedFrames() const;
    /// Empty when there is none.
    Bytes received(std::size_t index) const;
    bool waitForFrames(std::size_t atLeast, std::chrono::milliseconds limit = std::chrono::milliseconds(2000)) const;
    void clearReceived();
    /// Bytes that belonged to no good frame.
    std::size_t strayBytes() const;

    // Faults per message; `classId` is 0xCCII, `times` below 0 means for ever. Of ignore, refuse, keepValue, answerWith
    // and answerRaw the first that fits a request counts; faults in the delivery add up, one of each kind per answer.
    void ignore(std::uint16_t classId, int times = -1);
    void refuse(std::uint16_t classId, int times = -1);
    void keepValue(std::uint16_t classId, int times = -1);
    /// Answers polls with this payload, of any length. A set is handled as usual, unless real receivers never
    /// acknowledge it (CFG-RST): then it counts as a poll.
    void answerWith(std::uint16_t classId, Bytes payload, int times = -1);
    /// These bytes instead of any answer; nothing is applied.
    void answerRaw(std::uint16_t classId, Bytes raw, int times = -1);
    void answerLate(std::uint16_t classId, std::chrono::milliseconds delay, int times = -1);
    void answerTwice(std::uint16_t classId, int times = -1);
    void answerInPieces(std::uint16_t classId, std::size_t pieceSize, std::chrono::microseconds gap, int times = -1);
    /// Of the first frame only: together with `answerTwice` a good copy follows.
    void corruptChecksum(std::uint16_t classId, int times = 1);
    void precedeWith(std::uint16_t classId, Bytes raw, int times = -1);
    /// Any other fault, or one for polls or sets only.
    void play(Fault fault);
    void clearFaults();

    // The line.
    void say(Bytes raw);
    void hangUp();
    void comeBack();
    void stopReading(bool stop);

    // Whatever else can happen, now or at a time of the receiver.
    void happen(const Event& event);
    void schedule(Action action);

    /// The present settings as the payload of a legacy poll's reply; empty when the receiver knows no such message.
    Bytes legacyPayload(std::uint16_t classId, std::uint8_t index = 0) const;
    /// In RAM.
    std::optional<std::uint64_t> keyValue(std::uint32_t key) const;
    std::optional<std::uint64_t> storedValue(Layer layer, std::uint32_t key) const;
    /// False for a key or value that the receiver refuses.
    bool setKeyValue(std::uint32_t key, std::uint64_t value);
    /// The rate of a periodic message on the port in use.
    std::uint64_t outputRate(std::uint16_t classId) const;

private:
    std::unique_ptr<SimulatedDevice> device_;
};

} // namespace ubxsim
