#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// A serial line of which this program is the other end, without a system call: what the library opens, reads and
/// writes at
/// "/dev/tty_gps" ends here, and the clock goes on with its looks. So the same run takes the same instructions.
namespace scriptedline
{

using Bytes = std::vector<std::uint8_t>;

/// What one look at the line brings; a look beyond the last one brings nothing.
void bring(std::vector<Bytes> looks);

/// The same over and over.
void bringOverAndOver(std::vector<Bytes> looks);

/// What looks bring from then on whenever a frame has been written.
void answerEveryFrame(std::vector<Bytes> looks);

/// time() goes on by a second with every so many looks. At first it stands still.
void secondEvery(std::size_t looks);

std::size_t looks();

} // namespace scriptedline
