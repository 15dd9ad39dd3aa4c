#include "simulator/ReceiverSimulator.h"

#include "simulator/SimulatedDevice.h"

namespace ubxsim
{

namespace
{

constexpr std::uint16_t kCfgPrt = 0x0600;

Fault faultFor(std::uint16_t classId, FaultKind kind, int times)
{
    Fault fault;
    fault.classId = classId;
    fault.kind = kind;
    fault.times = times;
    return fault;
}

Event eventOf(EventKind kind)
{
    Event event;
    event.kind = kind;
    return event;
}

/// Holds the device's mutex and wakes its thread at the end.
class Access
{
public:
    explicit Access(SimulatedDevice& device) : device_(device), lock_(device.runner().mutex()) {}
    ~Access()
    {
        lock_.unlock();
        device_.runner().wake();
    }
    Access(const Access&) = delete;
    Access& operator=(const Access&) = delete;

    SimulatedDevice* operator->() { return &device_; }
    std::unique_lock<std::mutex>& lock() { return lock_; }

private:
    SimulatedDevice& device_;
    std::unique_lock<std::mutex> lock_;
};

} // namespace

ReceiverSimulator::ReceiverSimulator(SimulatorOptions options) : device_(std::make_unique<SimulatedDevice>(options)) {}

ReceiverSimulator::~ReceiverSimulator() = default;

std::string ReceiverSimulator::devicePath() const
{
    return Access(*device_)->runner().devicePath();
}

void ReceiverSimulator::linkAt(const std::string& path)
{
    Access(*device_)->runner().linkAt(path);
}

std::vector<Bytes> ReceiverSimulator::receivedFrames() const
{
    return Access(*device_)->frames();
}

Bytes ReceiverSimulator::received(std::size_t index) const
{
    Access device(*device_);
    return index < device->frames().size() ? device->frames()[index] : Bytes();
}

bool ReceiverSimulator::waitForFrames(std::size_t atLeast, std::chrono::milliseconds limit) const
{
    Access device(*device_);
    return device->arrived().wait_for(device.lock(), limit, [&] { return device->frames().size() >= atLeast; });
}

void ReceiverSimulator::clearReceived()
{
    Access(*device_)->frames().clear();
}

std::size_t ReceiverSimulator::strayBytes() const
{
    return Access(*device_)->scanner().strayBytes();
}

void ReceiverSimulator::ignore(std::uint16_t classId, int times)
{
    play(faultFor(classId, FaultKind::ignore, times));
}

void ReceiverSimulator::refuse(std::uint16_t classId, int times)
{
    play(faultFor(classId, FaultKind::refuse, times));
}

void ReceiverSimulator::keepValue(std::uint16_t classId, int times)
{
    play(faultFor(classId, FaultKind::keepValue, times));
}

void ReceiverSimulator::answerWith(std::uint16_t classId, Bytes payload, int times)
{
    Fault fault = faultFor(classId, FaultKind::answerWith, times);
    fault.bytes = std::move(payload);
    play(std::move(fault));
}

void ReceiverSimulator::answerRaw(std::uint16_t classId, Bytes raw, int times)
{
    Fault fault = faultFor(classId, FaultKind::answerRaw, times);
    fault.bytes = std::move(raw);
    play(std::move(fault));
}

void ReceiverSimulator::answerLate(std::uint16_t classId, std::chrono::milliseconds delay, int times)
{
    Fault fault = faultFor(classId, FaultKind::late, times);
    fault.delay = delay;
    play(std::move(fault));
}

void ReceiverSimulator::answerTwice(std::uint16_t classId, int times)
{
    play(faultFor(classId, FaultKind::twice, times));
}

void ReceiverSimulator::answerInPieces(std::uint16_t classId, std::size_t pieceSize, std::chrono::microseconds gap,
                                       int times)
{
    Fault fault = faultFor(classId, FaultKind::pieces, times);
    fault.size = pieceSize;
    fault.delay = gap;
    play(std::move(fault));
}

void ReceiverSimulator::corruptChecksum(std::uint16_t classId, int times)
{
    play(faultFor(classId, FaultKind::checksum, times));
}

void ReceiverSimulator::precedeWith(std::uint16_t classId, Bytes raw, int times)
{
    Fault fault = faultFor(classId, FaultKind::precede, times);
    fault.bytes = std::move(raw);
    play(std::move(fault));
}

void ReceiverSimulator::play(Fault fault)
{
    Access(*device_)->script().add(std::move(fault));
}

void ReceiverSimulator::clearFaults()
{
    Access(*device_)->script().clear();
}

void ReceiverSimulator::say(Bytes raw)
{
    Event event;
    event.kind = EventKind::say;
    event.bytes = std::move(raw);
    happen(event);
}

void ReceiverSimulator::hangUp()
{
    happen(eventOf(EventKind::hangUp));
}

void ReceiverSimulator::comeBack()
{
    happen(eventOf(EventKind::comeBack));
}

void ReceiverSimulator::stopReading(bool stop)
{
    happen(eventOf(stop ? EventKind::stopReading : EventKind::resumeReading));
}

void ReceiverSimulator::happen(const Event& event)
{
    Access device(*device_);
    device->happen(event);
    device->runner().waitForTurn(device.lock());
}

void ReceiverSimulator::schedule(Action action)
{
    Access(*device_)->schedule(std::move(action));
}

Bytes ReceiverSimulator::legacyPayload(std::uint16_t classId, std::uint8_t index) const
{
    Access device(*device_);
    const Configuration& configuration = device->receiver().configuration();
    const bool currentPort = classId == kCfgPrt && index == 0;
    const auto port = static_cast<std::uint8_t>(device->receiver().port());
    return configuration.read(classId, currentPort ? port : index).value_or(Bytes());
}

std::optional<std::uint64_t> ReceiverSimulator::keyValue(std::uint32_t key) const
{
    return storedValue(Layer::ram, key);
}

std::optional<std::uint64_t> ReceiverSimulator::storedValue(Layer layer, std::uint32_t key) const
{
    return Access(*device_)->receiver().configuration().store().stored(layer, key);
}

bool ReceiverSimulator::setKeyValue(std::uint32_t key, std::uint64_t value)
{
    Access device(*device_);
    SettingsStore& store = device->receiver().configuration().store();
    if (!store.isValid(key, value)) {
        return false;
    }
    store.set(Layer::ram, key, value);
    device->receiver().followSettings();
    device->followReset();
    return true;
}

std::uint64_t ReceiverSimulator::outputRate(std::uint16_t classId) const
{
    return Access(*device_)->receiver().configuration().outputRate(classId);
}

} // namespace ubxsim
