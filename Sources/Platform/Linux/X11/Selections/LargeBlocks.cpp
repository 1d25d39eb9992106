#include "X11/Selections/LargeBlocks.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <new>

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

namespace tessel {

namespace {

/// Unmapped at once, blocks below this take less than a millisecond or two.
constexpr std::size_t slicedBytes = std::size_t{8} << 20;
constexpr std::size_t sliceBytes = std::size_t{1} << 20;

} // namespace

void keepLargeBlocksApart()
{
    static const int isSet = mallopt(M_MMAP_THRESHOLD, static_cast<int>(largeValueBytes));
    static_cast<void>(isSet);
}

void giveBackPages(const void* block, std::size_t bytes)
{
    if (bytes < slicedBytes)
        return;
    static const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto begin = reinterpret_cast<std::uintptr_t>(block);
    const std::uintptr_t end = (begin + bytes) / page * page;
    for (std::uintptr_t slice = (begin + page - 1) / page * page; slice < end; slice += sliceBytes)
        madvise(reinterpret_cast<void*>(slice), std::min<std::size_t>(sliceBytes, end - slice),
                MADV_DONTNEED);
}

} // namespace tessel

// Both, so that what one of them gives the other may free. AddressSanitizer has its own, and checks with
// them.
#if !defined(__SANITIZE_ADDRESS__)

void* operator new(std::size_t bytes)
{
    while (true) {
        if (void* block = std::malloc(std::max<std::size_t>(bytes, 1)))
            return block;
        const std::new_handler handler = std::get_new_handler();
        if (!handler)
            throw std::bad_alloc();
        handler();
    }
}

void operator delete(void* block) noexcept
{
    tessel::giveBackPages(block, malloc_usable_size(block));
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}

#endif
