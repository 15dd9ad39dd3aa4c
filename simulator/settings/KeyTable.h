#pragma once

#include "simulator/receiver/Model.h"
#include "simulator/settings/Key.h"

#include <vector>

namespace ubxsim
{

/// One setting: its key, who has it, and its value as delivered.
struct KeyRow
{
    Key key;
    const char* name;
    Generations generations;
    std::uint64_t neoM8t;
    std::uint64_t f9tTim20;
    std::uint64_t f9tTim22;
    /// One bit per value that is allowed; 0 allows every value.
    std::uint64_t validValues;

    std::uint64_t defaultFor(Generations who) const
    {
        return (who & kNeoM8t) != 0 ? neoM8t : (who & kF9tTim20) != 0 ? f9tTim20 : f9tTim22;
    }
};

/// All settings but the message rates.
const std::vector<KeyRow>& keyTable();

/// A message that can be put out periodically. The five rates (I2C, UART1, UART2, USB, SPI) have consecutive keys.
struct RateRow
{
    std::uint16_t classId;
    Key firstKey;
    const char* name;
    Generations generations;
    Generations onByDefault; // the models that put it out as delivered
};

inline constexpr std::size_t kPorts = 5;

const std::vector<RateRow>& rateTable();

} // namespace ubxsim
