#pragma once

#include <cstdint>
#include <string>

#include "wire/Bytes.h"

namespace ubxctl
{

inline constexpr std::uint16_t kMonHw = 0x0A09;

/// MON-HW: antenna supervisor and interference monitor.
struct HardwareStatus
{
    int noise;
    int gain;             // of the automatic gain control, 0 to 8191
    int antennaStatus;    // see antennaWord()
    int antennaPower;     // 0 off, 1 on, 2 not known
    int jammingState;     // see jammingWord()
    int jammingIndicator; // continuous wave, 0 none to 255 strong

    std::string antennaWord() const;
    std::string jammingWord() const;
    bool antennaBad() const;
    bool jammed() const;
};

HardwareStatus decodeMonHw(const Bytes& payload);

} // namespace ubxctl
