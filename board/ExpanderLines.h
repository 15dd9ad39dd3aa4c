#pragma once

#include <cstdint>
#include <string>

namespace ubx
{

/// One pin of the I/O expander.
struct ExpanderPin
{
    std::uint8_t port; ///< 0 or 1.
    std::uint8_t mask; ///< The one bit of the port.
};

/// How a board family wires the receiver to its expander.
struct ExpanderLines
{
    ExpanderPin reset;
    ExpanderPin antenna;
};

/// Makes the reset pin an output and drives it high.
/// @return 0, also when the bus can't be opened.
int releaseReset(const std::string& bus, const ExpanderLines& lines);

/// Makes the antenna pin an output, then drives it as the word says.
/// @return 0, also when the bus can't be opened; 1 for an unknown word.
int switchAntenna(const std::string& bus, const ExpanderLines& lines, const std::string& state);

} // namespace ubx
