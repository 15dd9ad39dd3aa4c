#pragma once

#include "simulator/receiver/Model.h"
#include "simulator/settings/Key.h"

#include <vector>

namespace ubxsim
{

/// Where one setting stands in the payload of a legacy message.
struct LegacyField
{
    std::uint8_t offset; // of the first byte
    std::uint8_t width;  // bytes
    std::uint8_t shift;  // bits within them
    std::uint8_t bits;
    Key key;
    std::uint32_t unitsPerField = 1; // the setting counts in finer units than the message
    std::int8_t maskBit = -1;        // the bit that has this field applied, where the message has a mask
    Key whenKey = 0;                 // the field means this setting only when that one ...
    std::uint8_t whenValue = 0;      // ... has this value
};

/// A byte run of a reply that is always the same.
struct LegacyConstant
{
    std::uint8_t offset;
    std::uint8_t width;
    std::uint64_t value;
    bool required = false; // a set with another value is refused
};

enum class LegacyRule
{
    wholeMessage,
    maskAtOffset0, // 16 bits that choose the fields to apply
    maskAtOffset2,
    modeOnlyWhenOff, // mode 0 in the first field leaves all others as they are
};

/// A legacy message as a view of the settings.
struct LegacyMessage
{
    std::uint16_t classId;
    std::uint8_t index; // CFG-TP5: the time pulse; else 0
    std::uint8_t size;
    std::uint8_t otherSize; // an older version that is still accepted; 0 for none
    LegacyRule rule;
    Generations generations;
    Generations strict; // who still answers with the strict setting
    std::vector<LegacyField> fields;
    std::vector<LegacyConstant> constants;
};

const std::vector<LegacyMessage>& legacyTable();

} // namespace ubxsim
