#pragma once

#include "simulator/settings/ConfigurationInterface.h"
#include "simulator/settings/Ports.h"

namespace ubxsim
{

/// The configuration messages (class 06), all but CFG-RST, over one store of settings.
class Configuration
{
public:
    Configuration(const ModelProfile& profile, Port port, bool quiet);

    SettingsStore& store() { return store_; }
    const SettingsStore& store() const { return store_; }

    Answer handle(const Frame& request);

    /// True when the frame asks for a value rather than sets one.
    static bool isPoll(const Frame& request);

    /// The present settings as a reply's payload; empty for a message that this receiver does not answer.
    std::optional<Bytes> read(std::uint16_t classId, std::uint8_t index) const;

    /// The rate of a periodic message on the port in use.
    std::uint64_t outputRate(std::uint16_t classId) const;

    /// Has the next save stop half way, as when the supply fails.
    void losePowerInNextSave() { losePowerInSave_ = true; }
    /// True once after such a save.
    bool takePowerLoss();

    /// RAM as after a start.
    void loadAll();
    /// What is only battery-backed is gone.
    void forgetBatteryBacked();

private:
    std::optional<Bytes> readMessageRates(std::uint16_t classId) const;
    Answer poll(const Frame& request) const;
    Answer pollMessageRate(const Bytes& payload) const;
    Answer setMessageRate(const Bytes& payload);
    Answer setInformation(const Bytes& payload);
    Answer saveLoadClear(const Bytes& payload);
    std::optional<Changes> changesOf(const Frame& request) const;
    void save(std::uint32_t sections, std::uint8_t devices);

    const ModelProfile& profile_;
    Port port_;
    SettingsStore store_;
    ConfigurationInterface interface_;
    bool losePowerInSave_ = false;
    bool powerLost_ = false;
};

} // namespace ubxsim
