#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// The calls that the library makes to the system, seen and changed from this program.
///
/// They reach the system as they are unless told otherwise.
namespace calls
{

/// Counts reads, writes and the like of the near ends of pseudo terminals from now on, from 0.
void watch();

unsigned long reads();
unsigned long bytesRead();

/// What was done to them in its order: "write 14", "fsync", "tcsetattr now".
std::vector<std::string> log();
void clearLog();

/// Which opens of "/dev/tty_gps", writes to and closes of near ends there were, and whether signals were held
/// meanwhile: "open held", "write open to signals".
std::vector<std::string> signalLog();

/// The next opens of "/dev/tty_gps", or reads of near ends, end as if a signal had come.
void interruptOpens(unsigned long times);
void interruptReads(unsigned long times);

/// How a call to one of them is to end: with this errno. 0: as it does.
struct Refusals
{
    int tcgetattr = 0;
    int tcsetattr = 0;
    int write = 0;
    int fsync = 0;
    std::optional<std::size_t> writeAtMost; ///< a write takes no more than so many bytes
};

void refuse(const Refusals& refusals);

/// What gettimeofday() gives for the part of a second from now on; empty: the machine's.
void setMicroseconds(std::optional<long> microseconds);

/// Back to the machine as it is.
void reset();

} // namespace calls
