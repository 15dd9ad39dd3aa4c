#pragma once

#include "simulator/ReceiverSimulator.h"
#include "simulator/faults/Action.h"
#include "simulator/faults/Delivery.h"
#include "simulator/receiver/Receiver.h"
#include "simulator/replay/Trace.h"
#include "simulator/wire/LineRunner.h"

#include <map>

namespace ubxsim
{

/// The receiver at its line: cuts requests out of what comes in, plays the faults, sends answers and periodic output.
/// Everything but the constructor needs the runner's mutex.
class SimulatedDevice final : public LineClient
{
public:
    explicit SimulatedDevice(const SimulatorOptions& options);
    ~SimulatedDevice() { runner_.stop(); }

    void onBytes(const std::uint8_t* data, std::size_t size, WallTime now) override;
    WallTime onTime(WallTime now) override;

    LineRunner& runner() { return runner_; }
    Receiver& receiver() { return receiver_; }
    Script& script() { return script_; }
    FrameScanner& scanner() { return scanner_; }
    std::vector<Bytes>& frames() { return frames_; }
    std::condition_variable& arrived() { return arrived_; }

    void schedule(Action action);
    void happen(const Event& event);
    /// To be called after anything that may have reset the receiver or changed its line speed.
    void followReset();

private:
    struct Held
    {
        WallTime until;
        std::vector<Transmission> transmissions;
    };

    void runActions(SimTime now);
    void say(Bytes raw, WallTime now);
    void trace(TraceDirection direction, const Bytes& bytes);
    SimTime simTimeOf(WallTime time) const;
    WallTime wallTimeOf(SimTime time) const;
    void handle(const Frame& request, WallTime now);
    Answer scripted(const Fault& fault, const Frame& request);
    void deliver(Delivery delivery, WallTime now);
    void releaseHeldBack(WallTime now);
    void enqueue(std::vector<Transmission> transmissions, WallTime now);
    void enqueuePeriodic(std::vector<Bytes> output, WallTime now);

    const SimulatorOptions options_;
    const double scale_; // receiver time per wall time
    const WallTime start_ = WallClock::now();
    Receiver receiver_;
    FrameScanner scanner_;
    WallTime lastByte_ = start_;
    Script script_;
    std::vector<Bytes> frames_;
    std::condition_variable arrived_;
    std::multimap<WallTime, std::vector<Transmission>> later_;
    std::vector<Held> heldBack_; // answers that the next one overtakes
    std::multimap<SimTime, std::variant<Fault, Event>> actions_;
    std::optional<TraceWriter> trace_;
    bool overflowTold_ = false;
    LineRunner runner_;
};

} // namespace ubxsim
