#include "board/ExpanderLines.h"

#include <array>

#include <I2CDev.h>

#include "board/PowerState.h"

namespace ubx
{

namespace
{

// A PCA9555-type expander: registers come in pairs, port 0 then port 1.
constexpr unsigned char kExpanderAddress = 0x21;
constexpr unsigned char kOutputPair = 2;
constexpr unsigned char kConfigurationPair = 6; // A cleared bit makes the pin an output.

enum class Bit
{
    clear,
    set
};

/// Changes the pin's bit in a pair of registers and leaves all others as read. Results are not looked at: after a
/// failed read the bytes go back as they were before it.
void change(I2CDev& expander, unsigned char pair, const ExpanderPin& pin, Bit bit)
{
    std::array<unsigned char, 2> ports{};
    expander.read(ports.data(), ports.size(), &pair, sizeof pair);

    unsigned char& port = ports[pin.port];
    port = static_cast<unsigned char>(bit == Bit::set ? port | pin.mask : port & ~pin.mask);

    std::array<unsigned char, 3> message{pair, ports[0], ports[1]};
    expander.write(message.data(), message.size());
}

bool opens(I2CDev& expander)
{
    return expander.open(kExpanderAddress) >= 0;
}

} // namespace

int releaseReset(const std::string& bus, const ExpanderLines& lines)
{
    I2CDev expander(bus);
    if (opens(expander)) {
        change(expander, kConfigurationPair, lines.reset, Bit::clear);
        change(expander, kOutputPair, lines.reset, Bit::set);
    }
    return 0;
}

int switchAntenna(const std::string& bus, const ExpanderLines& lines, const std::string& state)
{
    I2CDev expander(bus);
    if (!opens(expander)) return 0; // Success although nothing was written is meant, even for an unknown word.

    // Before the word is looked at, which is meant.
    change(expander, kConfigurationPair, lines.antenna, Bit::clear);

    const PowerState power = powerStateOf(state);
    if (power == PowerState::unknown) return 1;
    change(expander, kOutputPair, lines.antenna, power == PowerState::on ? Bit::set : Bit::clear);
    return 0;
}

} // namespace ubx
