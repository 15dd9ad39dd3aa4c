#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The kernel as the linux platform sees it: in this program open(), ioctl(), write() and close() of paths below
/// /dev/i2c- and /sys/class/gpio, and of /dev/ itself, reach these answers, and everything else reaches the real
/// kernel.
namespace kernel
{

/// Forgets all calls and answers. Without answers every open succeeds, transfers and writes are done in full, and a
/// read brings zero bytes.
void reset();

/// The next opens, transfers or writes fail with this error; 0 lets them succeed again.
void failOpens(int error);
void failTransfers(int error);
void failWrites(int error);

/// The next transfers, so many, end as if a signal had come.
void interruptTransfers(int times);

/// The next transfers stop after so many messages.
void stopTransfersAfter(int messages);

/// What the next read messages bring.
void bring(const std::vector<std::uint8_t>& bytes);

/// How many bytes the next writes take.
void takeAtMost(std::size_t bytes);

/// The calls so far, one line each, for example
///
///   open /dev/i2c-13 for reading and writing, not inherited = 1000
///   transfer 1000: write 21: 06; read 21: 2
///   write 1000 "1"
///   close 1000
std::vector<std::string> calls();

} // namespace kernel
