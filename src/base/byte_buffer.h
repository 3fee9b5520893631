// SPDX-License-Identifier: MIT
#pragma once

#include "base/pages.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <span>
#include <utility>
#include <vector>

namespace wallgrid {

/// Memory for vectors of plain values. Large blocks are mapped, so that reserving for the worst case costs only the
/// pages that are written. A vector that grows by resize() leaves the new values undefined, because they are
/// overwritten anyway.
template <class T>
class PageAllocator {
public:
    using value_type = T; // NOLINT(readability-identifier-naming): what allocators must call it

    PageAllocator() = default;
    template <class U>
    PageAllocator(const PageAllocator<U>&) // NOLINT(google-explicit-constructor): allocators convert
    {
    }

    T* allocate(std::size_t count)
    {
        if (count > SIZE_MAX / 2 / sizeof(T))
            throw std::bad_alloc();
        const std::size_t bytes = count * sizeof(T);
        if (bytes < kLargeBlock)
            return static_cast<T*>(::operator new(bytes));
        void* const pages = mapPages(wholePages(bytes));
        if (!pages)
            throw std::bad_alloc();
        return static_cast<T*>(pages);
    }

    void deallocate(T* values, std::size_t count)
    {
        const std::size_t bytes = count * sizeof(T);
        if (bytes < kLargeBlock)
            ::operator delete(values);
        else
            unmapPages(reinterpret_cast<std::byte*>(values), wholePages(bytes));
    }

    template <class U>
    void construct(U* value)
    {
        ::new (static_cast<void*>(value)) U;
    }
    template <class U, class... Arguments>
    void construct(U* value, Arguments&&... arguments)
    {
        ::new (static_cast<void*>(value)) U(std::forward<Arguments>(arguments)...);
    }

    bool operator==(const PageAllocator&) const { return true; }
};

using Bytes = std::vector<std::uint8_t>;

/// Bytes of a file that may become hundreds of megabytes, as it is made.
using ByteBuffer = std::vector<std::uint8_t, PageAllocator<std::uint8_t>>;

/// Adds `count` undefined bytes and returns where they begin.
inline std::uint8_t* extend(ByteBuffer& buffer, std::size_t count)
{
    buffer.resize(buffer.size() + count);
    return buffer.data() + buffer.size() - count;
}

inline void append(ByteBuffer& buffer, std::span<const std::uint8_t> bytes)
{
    if (!bytes.empty())
        std::memcpy(extend(buffer, bytes.size()), bytes.data(), bytes.size());
}

} // namespace wallgrid
