#pragma once

#include <cstddef>
#include <string>

#include <sys/types.h>

#include "Operations.h"

namespace soak
{

/// What an operation came to, and what the process that did it holds afterwards.
struct Done
{
    int status = 0;
    std::string shown;
    long blocksInUse = 0;       ///< on the heap, from operator new
    std::size_t bytesInUse = 0; ///< on the heap, in malloc's own rounding
    std::size_t residentPages = 0;
    std::size_t descriptors = 0;
};

/// The library in a process of its own, so that nothing but its own memory and descriptors is counted.
///
/// The process is made by the constructor, which must be called while there is one thread.
class Library
{
public:
    Library();
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    /// @param clockSpeed  how much faster than the machine's the library's clock runs.
    /// @throws std::runtime_error when the process has ended.
    Done run(Drive drive, std::size_t operation, Arguments arguments, double clockSpeed);

private:
    int connection_ = -1;
    pid_t process_ = -1;
};

} // namespace soak
