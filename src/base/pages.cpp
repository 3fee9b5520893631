// SPDX-License-Identifier: MIT
#include "base/pages.h"

#include "base/portable.h"

#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

namespace wallgrid {

std::byte* mapPages(std::size_t bytes)
{
    const std::size_t mapped = bytes + kHugePage;
    if (mapped < bytes)
        return nullptr;
    void* const address =
        mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (address == MAP_FAILED)
        return nullptr;
    std::byte* const start = static_cast<std::byte*>(address);
    const std::size_t head = (kHugePage - reinterpret_cast<std::uintptr_t>(start) % kHugePage) % kHugePage;
    if (head > 0)
        munmap(start, head);
    munmap(start + head + bytes, mapped - bytes - head);
    // Advice only: without huge pages the block is slower to touch first and otherwise the same.
    madvise(start + head, bytes, MADV_HUGEPAGE);
    return start + head;
}

std::size_t physicalMemory()
{
    return sizeOf64(static_cast<std::uint64_t>(sysconf(_SC_PHYS_PAGES)) *
                    static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE)));
}

void unmapPages(std::byte* pages, std::size_t bytes)
{
    munmap(pages, bytes);
}

} // namespace wallgrid
