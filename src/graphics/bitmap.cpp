// SPDX-License-Identifier: MIT
#include "graphics/bitmap.h"

#include "base/portable.h"

#include <limits>
#include <utility>

namespace wallgrid {

BitmapRef Bitmap::create(std::int64_t width, std::int64_t height, Contents contents)
{
    constexpr std::int64_t kMaximumSide = std::numeric_limits<int>::max();
    if (width <= 0 || height <= 0 || width > kMaximumSide || height > kMaximumSide)
        return nullptr;
    // Below 2^64, because both sides are below 2^31.
    const std::uint64_t bytes = static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height) * sizeof(Pixel);
    BitmapMemory memory = BitmapMemory::allocate(sizeOf64(bytes), contents == Contents::Cleared);
    if (!memory)
        return nullptr;
    return std::make_shared<Bitmap>(static_cast<int>(width), static_cast<int>(height), std::move(memory));
}

Bitmap::Bitmap(int width, int height, BitmapMemory memory)
    : m_width(width)
    , m_height(height)
    , m_memory(std::move(memory))
{
}

} // namespace wallgrid
