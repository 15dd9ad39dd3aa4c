#pragma once

#include "simulator/receiver/Navigator.h"
#include "simulator/receiver/Nmea.h"
#include "simulator/settings/Configuration.h"

namespace ubxsim
{

struct ReceiverSetup
{
    ModelProfile profile;
    Port port = Port::uart1;
    bool quiet = false; // no unsolicited output until told
    Geodetic position;
    GpsTime start;
    bool coldStart = false; // has to find the satellites first
};

/// The receiver without its line: requests in, answers and periodic output out, all in simulated time.
class Receiver
{
public:
    explicit Receiver(ReceiverSetup setup);
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

    Answer handle(const Frame& request);

    /// Lets the time pass; returns what the receiver puts out meanwhile, whole sentences and frames.
    std::vector<Bytes> advanceTo(SimTime now);
    SimTime nextEvent() const;

    /// Bits per second of the port in use; 0 where the port has no line speed.
    std::uint32_t lineSpeed() const;

    /// True once after a reset: what still waited to be sent is lost with it.
    bool takeReset();
    bool isBooting() const { return bootingUntil_.has_value(); }

    /// As if somebody had pulled the supply and put it back; without a battery the battery-backed settings are gone.
    void losePower(bool batteryPresent);
    /// As if the receiver had crashed.
    void restart();

    Port port() const { return setup_.port; }
    void setReception(const Reception& reception);
    /// A sentence that the receiver would put out by itself; empty when such texts are switched off.
    std::optional<Bytes> text(TextKind kind, const std::string& words) const;

    Configuration& configuration() { return configuration_; }
    const Configuration& configuration() const { return configuration_; }
    Navigator& navigator() { return navigator_; }
    const ModelProfile& profile() const { return setup_.profile; }
    /// Has the receiver follow settings that were changed from outside.
    void followSettings();

private:
    Answer handleReset(const Bytes& payload);
    Answer handleConfiguration(const Frame& request);
    void boot(bool cold);
    void finishBoot(std::vector<Bytes>& output);
    void putOutEpoch(std::vector<Bytes>& output);
    SimTime epochInterval() const;
    std::vector<std::uint64_t> gnssSettings() const;
    std::uint16_t mask(Direction direction) const;

    ReceiverSetup setup_;
    Configuration configuration_;
    Navigator navigator_;
    SimTime now_{0};
    SimTime nextEpoch_{0};
    std::uint64_t epochCount_ = 0;
    std::optional<SimTime> bootingUntil_;
    bool coldAfterBoot_ = false;
    bool ephemerisLost_ = false;
    bool wasReset_ = false;
    std::vector<std::uint64_t> knownGnss_;
    std::vector<Bytes> pendingTexts_;
};

} // namespace ubxsim
