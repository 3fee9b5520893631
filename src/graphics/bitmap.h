// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/bitmap_memory.h"
#include "graphics/color.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace wallgrid {

class Bitmap;
using BitmapRef = std::shared_ptr<Bitmap>;

/// A raster of 8-bit samples in memory order A, R, G, B, colour premultiplied by alpha, device RGB, rows stored top
/// row first without padding. Every picture of the program is one of these: item renders, stills, the output raster.
class Bitmap {
public:
    enum class Contents {
        Cleared,   ///< all samples 0
        Undefined, ///< for a caller that writes every pixel
    };

    /// No bitmap when a side is 0 or less, or when BitmapMemory refuses the bytes.
    static BitmapRef create(std::int64_t width, std::int64_t height, Contents contents = Contents::Cleared);

    int width() const { return m_width; }
    int height() const { return m_height; }
    std::size_t bytesPerRow() const { return static_cast<std::size_t>(m_width) * sizeof(Pixel); }

    /// y counts from the top.
    std::span<Pixel> row(int y) { return {pixels() + offset(y), static_cast<std::size_t>(m_width)}; }
    std::span<const Pixel> row(int y) const { return {pixels() + offset(y), static_cast<std::size_t>(m_width)}; }
    Pixel at(int x, int y) const { return row(y)[static_cast<std::size_t>(x)]; }

    Pixel* pixels() { return reinterpret_cast<Pixel*>(m_memory.data()); }
    const Pixel* pixels() const { return reinterpret_cast<const Pixel*>(m_memory.data()); }

    Bitmap(int width, int height, BitmapMemory memory);

private:
    std::size_t offset(int y) const { return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width); }

    int m_width;
    int m_height;
    BitmapMemory m_memory;
};

} // namespace wallgrid
