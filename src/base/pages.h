// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace wallgrid {

/// From this size on a block is better mapped than taken from the C library: its pages are huge ones where the kernel
/// has them, and only those that are written take memory. The first touch of 512 MB then takes a fifth of the time.
inline constexpr std::size_t kLargeBlock = std::size_t(1) << 20;
inline constexpr std::size_t kHugePage = std::size_t(2) << 20;

/// Zeroed address space, aligned to huge pages; null when the kernel refuses. `bytes` is a multiple of kHugePage.
std::byte* mapPages(std::size_t bytes);
void unmapPages(std::byte* pages, std::size_t bytes);

/// Bytes of the machine's memory; the largest size where it has more.
std::size_t physicalMemory();

/// `bytes` rounded up to whole huge pages.
constexpr std::size_t wholePages(std::size_t bytes)
{
    return (bytes + kHugePage - 1) / kHugePage * kHugePage;
}

} // namespace wallgrid
