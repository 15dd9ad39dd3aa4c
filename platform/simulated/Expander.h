#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace ubxplatform
{

/// A 16-bit I/O expander of the PCA9555 type.
///
/// Eight registers in four pairs, port 0 then port 1: input (0, 1), output (2, 3), polarity inversion (4, 5) and
/// configuration (6, 7, where a set bit makes the pin an input). The first byte of a write is the register index; what
/// follows, and what is read, goes to and fro between the two registers of that pair.
class Expander
{
public:
    static constexpr std::size_t kRegisters = 8;

    void write(const std::vector<std::uint8_t>& bytes);
    std::vector<std::uint8_t> read(const std::vector<std::uint8_t>& index, std::size_t count);

    std::uint8_t get(std::size_t number) const;
    void set(std::size_t number, std::uint8_t value) { registers_.at(number) = value; }

private:
    void point(std::uint8_t index);
    void next() { pointer_ ^= 1U; }

    // As after power-on: all pins are inputs, pulled up.
    std::array<std::uint8_t, kRegisters> registers_{0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0xFF, 0xFF};
    std::size_t pointer_ = 0;
};

} // namespace ubxplatform
