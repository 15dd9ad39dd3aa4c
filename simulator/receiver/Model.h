#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ubxsim
{

enum class Model
{
    neoM8t,
    zedF9t
};

/// Receivers that share a set of settings. A bit each, so that a table row can name several.
using Generations = std::uint8_t;
inline constexpr Generations kNeoM8t = 1;
inline constexpr Generations kF9tTim20 = 2; // ZED-F9T before TIM 2.20
inline constexpr Generations kF9tTim22 = 4; // ZED-F9T from TIM 2.20
inline constexpr Generations kF9tL5 = 8;    // the signals of an L5 unit, with TIM 2.20 or later
inline constexpr Generations kF9t = kF9tTim20 | kF9tTim22;
inline constexpr Generations kAll = kNeoM8t | kF9t;

/// Everything in which one receiver differs from another, as data.
struct ModelProfile
{
    Model model = Model::neoM8t;
    std::string firmware;              // "TIM 2.20"
    Generations generations = kNeoM8t; // the rows of the tables that count
    bool strictLegacy = false;         // answers only the legacy messages that were seen answered

    std::string swVersion;
    std::string hwVersion;
    std::vector<std::string> extensions; // of MON-VER, in order
    std::string uniqueId;

    bool configurationInterface = false; // knows CFG-VALSET, CFG-VALGET and CFG-VALDEL
    bool anyCfgCfgBitMeansAll = false;
    bool tellsGnssReset = false;            // "Resetting GNSS" before the ACK of a constellation change
    std::uint8_t majorGnssAtOnce = 4;       // GPS, Galileo, BeiDou and GLONASS together
    bool limitsChannels = false;            // CFG-GNSS channel numbers bound what is tracked
    bool nmeaSignalIds = false;             // NMEA 4.10 and later: system and signal ids
    std::vector<std::uint16_t> outputOrder; // periodic messages within an epoch
};

/// Throws std::invalid_argument, with the known names, for a firmware that the model does not have.
ModelProfile profileOf(Model model, const std::string& firmware, bool strictLegacy, bool l5Signals);

} // namespace ubxsim
