#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace fuzz
{

using Bytes = std::vector<std::uint8_t>;

/// What the library finds at its fixed paths, without a device: a serial port that is read and written in memory, the
/// chip-info file, error logs that swallow what they get, and a clock that does not wait.
///
/// The C library's functions that lead there are wrapped when a fuzz target is linked.
struct Machine
{
    /// What becomes of bytes that were written to the port. To answer, it calls `receive`.
    std::function<void(const Bytes& written)> onWrite;

    /// How much a read gives at once, at most.
    std::size_t bytesPerRead = 1024;

    /// What time() says. A read that finds nothing puts it ahead by a minute, so that no time limit costs anything.
    std::time_t now = 1700000000;

    std::string chipInfo;
    bool chipInfoIsThere = false;

    /// Bytes arrive at the port.
    void receive(const Bytes& bytes) { incoming.insert(incoming.end(), bytes.begin(), bytes.end()); }

    /// As it was at the beginning of the program. What is still open stays so.
    void reset();

    std::deque<std::uint8_t> incoming;
    std::size_t openDescriptors = 0;
};

Machine& machine();

/// Ends the program, as a sanitizer does, when something that must always hold does not.
void require(bool holds, const std::string& what);

} // namespace fuzz
