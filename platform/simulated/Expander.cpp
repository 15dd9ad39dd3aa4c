#include "Expander.h"

#include <stdexcept>

namespace ubxplatform
{

namespace
{

constexpr std::size_t kInput = 0;
constexpr std::size_t kOutput = 2;
constexpr std::size_t kPolarity = 4;
constexpr std::size_t kConfiguration = 6;

bool isInput(std::size_t number)
{
    return number < kOutput;
}

} // namespace

void Expander::write(const std::vector<std::uint8_t>& bytes)
{
    if (bytes.empty()) return;
    point(bytes.front());
    for (std::size_t i = 1; i < bytes.size(); ++i) {
        if (!isInput(pointer_)) registers_[pointer_] = bytes[i]; // The chip takes no notice of a write to an input.
        next();
    }
}

std::vector<std::uint8_t> Expander::read(const std::vector<std::uint8_t>& index, std::size_t count)
{
    write(index);
    std::vector<std::uint8_t> bytes;
    for (; bytes.size() < count; next())
        bytes.push_back(get(pointer_));
    return bytes;
}

std::uint8_t Expander::get(std::size_t number) const
{
    if (number >= kRegisters) throw std::out_of_range("the expander has registers 0 to 7");
    if (!isInput(number)) return registers_[number];

    // An input register shows the pins: the outside's level, or the expander's own where it drives the pin.
    const std::size_t port = number - kInput;
    const unsigned int inputs = registers_[kConfiguration + port];
    const unsigned int pins = (registers_[number] & inputs) | (registers_[kOutput + port] & ~inputs);
    return static_cast<std::uint8_t>(pins ^ registers_[kPolarity + port]);
}

void Expander::point(std::uint8_t index)
{
    pointer_ = index % kRegisters;
}

} // namespace ubxplatform
