#include "HeapBlocks.h"

#include <atomic>
#include <cstdlib>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define UBX_SANITIZER_KEEPS_BOOKS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define UBX_SANITIZER_KEEPS_BOOKS
#endif
#endif

namespace
{

std::atomic<long> blocks{0};

} // namespace

long testsupport::heapBlocks()
{
    return blocks;
}

#if !defined(UBX_SANITIZER_KEEPS_BOOKS)

// Take the place of the runtime's in this program and in the shared libraries that it uses. The forms for arrays and
// those with a size end here too.
void* operator new(std::size_t size)
{
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    ++blocks;
    return block;
}

void operator delete(void* block) noexcept
{
    if (block == nullptr) return;
    --blocks;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}

#endif
