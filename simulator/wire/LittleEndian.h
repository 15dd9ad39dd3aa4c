#pragma once

#include "simulator/wire/Frame.h"

#include <type_traits>

namespace ubxsim
{

/// Writes the lowest `width` bytes of `value`; the payload must be long enough.
inline void putBytes(Bytes& payload, std::size_t offset, std::uint64_t value, std::size_t width)
{
    for (std::size_t i = 0; i < width; ++i) {
        payload.at(offset + i) = static_cast<std::uint8_t>(value >> (8 * i));
    }
}

/// Reads `width` bytes; a byte beyond the end counts as 0.
inline std::uint64_t getBytes(const Bytes& payload, std::size_t offset, std::size_t width)
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < width && offset + i < payload.size(); ++i) {
        value |= static_cast<std::uint64_t>(payload[offset + i]) << (8 * i);
    }
    return value;
}

template <typename Integer>
void put(Bytes& payload, std::size_t offset, Integer value)
{
    static_assert(std::is_integral_v<Integer>);
    putBytes(payload, offset, static_cast<std::uint64_t>(value), sizeof(Integer));
}

template <typename Integer>
Integer get(const Bytes& payload, std::size_t offset)
{
    static_assert(std::is_integral_v<Integer>);
    return static_cast<Integer>(getBytes(payload, offset, sizeof(Integer)));
}

/// Appends a number; payloads are written field by field from their beginning.
template <typename Integer>
void append(Bytes& payload, Integer value)
{
    payload.resize(payload.size() + sizeof(Integer));
    put(payload, payload.size() - sizeof(Integer), value);
}

inline void appendZeros(Bytes& payload, std::size_t count)
{
    payload.resize(payload.size() + count);
}

} // namespace ubxsim
