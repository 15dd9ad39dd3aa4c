#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

namespace ubxctl
{

using Bytes = std::vector<std::uint8_t>;

/// The little-endian number at an offset; bytes that are not there count as 0.
template <typename Number>
Number numberAt(const Bytes& bytes, std::size_t offset)
{
    static_assert(std::is_integral_v<Number>);
    std::uint64_t value = 0;
    for (std::size_t i = sizeof(Number); i-- > 0;)
        value = (value << 8) | (offset + i < bytes.size() ? bytes[offset + i] : 0U);
    return static_cast<Number>(static_cast<std::make_unsigned_t<Number>>(value));
}

} // namespace ubxctl
