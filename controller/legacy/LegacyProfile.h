#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

#include "protocol/payloads/CfgGnss.h"

/// What a model hands to the legacy operations: everything in which the models differ.
namespace ubx
{

/// A constant array of the model's.
template <typename T>
class Table
{
public:
    template <std::size_t N>
    constexpr Table(const T (&rows)[N]) : rows_(rows), count_(N)
    {}
    constexpr Table() = default;

    constexpr const T* begin() const { return rows_; }
    constexpr const T* end() const { return rows_ + count_; }

    template <typename Predicate>
    const T* find(Predicate matches) const
    {
        for (const T& row : *this)
            if (matches(row)) return &row;
        return nullptr;
    }

    bool contains(const T& value) const
    {
        return find([&](const T& row) { return row == value; }) != nullptr;
    }

private:
    const T* rows_ = nullptr;
    std::size_t count_ = 0;
};

/// A text argument and the value that the receiver knows it by.
struct Word
{
    const char* text;
    std::uint8_t value;
};

inline const Word* findWord(const Table<Word>& words, const std::string& text)
{
    return words.find([&](const Word& word) { return text == word.text; });
}

inline const Word* findWord(const Table<Word>& words, unsigned value)
{
    return words.find([&](const Word& word) { return value == word.value; });
}

/// Tracking channels of one satellite system.
struct Channels
{
    std::uint8_t reserved;
    std::uint8_t maximum;
};

/// Tracking channels for one selection of constellations, by gnssId.
struct ChannelRow
{
    unsigned short gnssMask;
    Channels systems[cfgGnss::kSystems];
};

/// The signal flags of one satellite system in CFG-GNSS.
struct SignalFlags
{
    std::uint8_t singleBand;
    std::uint8_t dualBand;
    std::uint8_t flagsTop;
};

inline constexpr std::uint8_t kUtcStandardAutomatic = 0;

struct UtcStandardRow
{
    unsigned short gnssMask;
    std::uint8_t utcStandard;
};

inline std::uint8_t utcStandardFor(signed char gnssMask, const Table<UtcStandardRow>& standards)
{
    const auto mask = static_cast<unsigned char>(gnssMask);
    const UtcStandardRow* const row = standards.find([&](const UtcStandardRow& r) { return r.gnssMask == mask; });
    return row != nullptr ? row->utcStandard : kUtcStandardAutomatic;
}

struct LegacyProfile
{
    Table<Word> antennaTypes;           // to antSetting
    Table<Word> timeReferences;         // to timeRef
    Table<unsigned short> utcGridMasks; // GNSS masks whose time pulse follows UTC; that of the others follows GPS
    Table<ChannelRow> channels;         // by GNSS mask
    ChannelRow channelsOfOtherMasks;
    SignalFlags signals[cfgGnss::kSystems]; // by gnssId
    Table<UtcStandardRow> utcStandards;     // by GNSS mask; automatic for others
};

} // namespace ubx
