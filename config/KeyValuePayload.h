#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "config/Key.h"
#include "protocol/Payload.h"

namespace ubx
{

/// What callers provide for a payload. Every payload built here stays below it, which the compiler checks.
inline constexpr std::size_t kConfigBufferSize = 300;

/// What the payloads of UBX-CFG-VALSET and UBX-CFG-VALGET begin with.
namespace cfgVal
{
inline constexpr Field<std::uint8_t> version{0};
inline constexpr Field<std::uint8_t> layers{1};    // a mask to set, a number to poll
inline constexpr Field<std::uint16_t> position{2}; // of the first item to poll; reserved in a setting
inline constexpr std::size_t headerSize = 4;
inline constexpr std::uint8_t kSetRam = 0x01;
inline constexpr std::uint8_t kPollRam = 0;
static_assert(position.end() == headerSize);
} // namespace cfgVal

/// A key and the value that it is to get. Braces refuse a value that does not fit the key.
template <typename Value>
struct Setting
{
    Key<Value> key;
    Value value;
};

template <typename Value, typename Given>
Setting(Key<Value>, Given) -> Setting<Value>;

inline constexpr std::size_t kKeyIdSize = sizeof(std::uint32_t);

/// Bytes that settings take in a payload.
template <typename Settings>
struct WireSize;

template <typename Value>
struct WireSize<Setting<Value>>
{
    static constexpr std::size_t value = kKeyIdSize + sizeof(Value);
};

template <typename Value, std::size_t count>
struct WireSize<std::array<Setting<Value>, count>>
{
    static constexpr std::size_t value = count * WireSize<Setting<Value>>::value;
};
static_assert(WireSize<Setting<bool>>::value == 5 && WireSize<Setting<std::int32_t>>::value == 8);
static_assert(WireSize<std::array<Setting<bool>, 3>>::value == 15);

/// Writes a number, lowest byte first, and moves the position behind it.
template <typename Number>
void append(unsigned char* buffer, unsigned short& position, Number number)
{
    const Field<Number> field{position};
    store(buffer, field, number);
    position = static_cast<unsigned short>(field.end());
}

template <typename Value>
void append(unsigned char* buffer, unsigned short& position, const Setting<Value>& setting)
{
    append(buffer, position, setting.key.id());
    append(buffer, position, setting.value);
}

template <typename Value, std::size_t count>
void append(unsigned char* buffer, unsigned short& position, const std::array<Setting<Value>, count>& settings)
{
    for (const Setting<Value>& setting : settings)
        append(buffer, position, setting);
}

/// Writes the first bytes of a payload and returns the position behind them.
inline unsigned short writeHeader(unsigned char* buffer, std::uint8_t layers)
{
    store(buffer, cfgVal::version, 0);
    store(buffer, cfgVal::layers, layers);
    store(buffer, cfgVal::position, 0);
    return cfgVal::headerSize;
}

/// Payload of a UBX-CFG-VALSET: settings and arrays of settings in the order given. Returns its length.
template <typename... Settings>
unsigned int setPayload(unsigned char* buffer, const Settings&... settings)
{
    static_assert((cfgVal::headerSize + ... + WireSize<Settings>::value) < kConfigBufferSize,
                  "the payload does not fit the buffers that callers provide");
    unsigned short position = writeHeader(buffer, cfgVal::kSetRam);
    (append(buffer, position, settings), ...);
    return position;
}

/// Payload of a UBX-CFG-VALGET: keys in the order given. Returns its length.
template <typename... Values>
unsigned int pollPayload(unsigned char* buffer, const Key<Values>&... keys)
{
    static_assert(cfgVal::headerSize + sizeof...(keys) * kKeyIdSize < kConfigBufferSize,
                  "the payload does not fit the buffers that callers provide");
    unsigned short position = writeHeader(buffer, cfgVal::kPollRam);
    (append(buffer, position, keys.id()), ...);
    return position;
}

} // namespace ubx
