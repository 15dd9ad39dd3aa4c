#pragma once

#include <cstddef>

namespace bench
{

/// What this program and the libraries in it did on the heap and with memory since it began.
struct MemoryWork
{
    std::size_t allocations; ///< malloc() and its kin, and operator new, which ends there.
    std::size_t copied;      ///< Bytes by memcpy() and memmove(); compilers copy a few bytes without them.
};

MemoryWork memoryWork();

} // namespace bench
