// Takes the place of the C library's functions in this program and in the shared libraries that it uses. To be compiled
// such that no loop of it is made a call to what it stands for.

#include "bench/counts/Counters.h"

#include <cstdint>

#define UBX_IN_PLACE_OF_THE_LIBRARYS extern "C" __attribute__((visibility("default")))

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
}

namespace
{

bench::MemoryWork work{};

void* copyUp(void* to, const void* from, std::size_t size)
{
    work.copied += size;
    auto* const target = static_cast<unsigned char*>(to);
    const auto* const source = static_cast<const unsigned char*>(from);
    for (std::size_t i = 0; i < size; ++i)
        target[i] = source[i];
    return to;
}

void* copyDown(void* to, const void* from, std::size_t size)
{
    work.copied += size;
    auto* const target = static_cast<unsigned char*>(to);
    const auto* const source = static_cast<const unsigned char*>(from);
    for (std::size_t i = size; i > 0; --i)
        target[i - 1] = source[i - 1];
    return to;
}

} // namespace

bench::MemoryWork bench::memoryWork()
{
    return work;
}

UBX_IN_PLACE_OF_THE_LIBRARYS void* malloc(std::size_t size)
{
    ++work.allocations;
    return __libc_malloc(size);
}

UBX_IN_PLACE_OF_THE_LIBRARYS void* calloc(std::size_t count, std::size_t size)
{
    ++work.allocations;
    return __libc_calloc(count, size);
}

UBX_IN_PLACE_OF_THE_LIBRARYS void* realloc(void* block, std::size_t size)
{
    ++work.allocations;
    return __libc_realloc(block, size);
}

UBX_IN_PLACE_OF_THE_LIBRARYS void* memcpy(void* to, const void* from, std::size_t size)
{
    return copyUp(to, from, size);
}

UBX_IN_PLACE_OF_THE_LIBRARYS void* __memcpy_chk(void* to, const void* from, std::size_t size, std::size_t)
{
    return copyUp(to, from, size);
}

UBX_IN_PLACE_OF_THE_LIBRARYS void* memmove(void* to, const void* from, std::size_t size)
{
    return reinterpret_cast<std::uintptr_t>(to) < reinterpret_cast<std::uintptr_t>(from) ? copyUp(to, from, size)
                                                                                         : copyDown(to, from, size);
}

UBX_IN_PLACE_OF_THE_LIBRARYS void* __memmove_chk(void* to, const void* from, std::size_t size, std::size_t)
{
    return memmove(to, from, size);
}
