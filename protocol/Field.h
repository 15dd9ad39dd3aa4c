#pragma once

#include <cstddef>

namespace ubx
{

/// Place and width of one little-endian field of a payload.
template <typename T>
struct Field
{
    using Value = T;

    std::size_t offset;

    static constexpr std::size_t width = sizeof(T);

    constexpr std::size_t end() const { return offset + width; }

    /// The same field of a block that begins at this offset.
    constexpr Field in(std::size_t blockOffset) const { return Field{blockOffset + offset}; }
};

} // namespace ubx
