#pragma once

#include "simulator/receiver/Model.h"
#include "simulator/receiver/SimTime.h"
#include "simulator/settings/SettingsStore.h"

#include <vector>

namespace ubxsim
{

/// What spoils reception.
enum class AntennaState
{
    ok,
    shorted,
    open
};

struct Reception
{
    bool jammed = false;
    bool noSatellites = false;
    AntennaState antenna = AntennaState::ok;

    bool isDeaf() const { return noSatellites || antenna != AntennaState::ok; }
};

/// One signal of a satellite as received.
struct Signal
{
    std::uint8_t sigId = 0;
    std::uint8_t nmeaId = 0;
    std::uint8_t cno = 0; // dBHz
};

/// A satellite that the receiver looks at.
struct Satellite
{
    std::uint8_t gnssId = 0;
    std::uint8_t svId = 0;
    std::int8_t elevation = 0; // degrees
    std::int16_t azimuth = 0;  // degrees
    std::uint8_t cno = 0;      // of the best signal, dBHz
    std::int16_t residual = 0; // 0.1 m
    bool used = false;
    std::vector<Signal> signals;

    bool tracked() const { return cno != 0; }
};

/// What is in view at a time, after the settings: constellations, signals, channels, elevation and C/N0 limits.
std::vector<Satellite> satellitesInView(const ModelProfile& profile, const SettingsStore& store,
                                        const Reception& reception, SimTime time);

} // namespace ubxsim
