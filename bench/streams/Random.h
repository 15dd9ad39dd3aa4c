#pragma once

#include <cstdint>

namespace bench
{

/// Numbers that look random and are the same with every compiler and library: a xorshift of 32 bits.
class Random
{
public:
    explicit Random(std::uint32_t seed) : state_(seed * 2654435761U + 1) {}

    std::uint32_t next()
    {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return state_;
    }

    /// 0 to limit - 1.
    std::uint32_t below(std::uint32_t limit)
    {
        const std::uint64_t product = std::uint64_t{next()} * limit;
        return static_cast<std::uint32_t>(product >> 32);
    }

    std::uint8_t byte() { return static_cast<std::uint8_t>(next() >> 24); }

private:
    std::uint32_t state_;
};

} // namespace bench
