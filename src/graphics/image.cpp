// SPDX-License-Identifier: MIT
#include "graphics/image.h"

#include "graphics/resample.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace wallgrid {

namespace {

/// Points as they are drawn: to a length that no bitmap reaches and that leaves room for sums. What is too short for
/// its quotients is nothing.
double drawn(double points)
{
    return points > 0x1p-40 ? std::min(points, 0x1p40) : 0;
}

bool opaque(const Bitmap& bitmap)
{
    for (int y = 0; y < bitmap.height(); ++y) {
        // Without a branch, so that the compiler looks at many pixels at a time.
        std::uint8_t alphas = 255;
        for (const Pixel pixel : bitmap.row(y))
            alphas &= pixel.a;
        if (alphas != 255)
            return false;
    }
    return true;
}

} // namespace

void Image::addRepresentation(BitmapRef bitmap)
{
    if (bitmap)
        m_representations.push_back(std::move(bitmap));
}

void Image::removeRepresentations()
{
    m_representations.clear();
    m_scaled = {};
    *m_lastScaled = {};
    m_isOpaque.reset();
}

const BitmapRef& Image::firstRepresentation() const
{
    static const BitmapRef none;
    return m_representations.empty() ? none : m_representations.front();
}

bool Image::isOpaque() const
{
    if (!m_isOpaque) {
        const BitmapRef raster = firstRepresentation();
        m_isOpaque = raster && opaque(std::as_const(*raster));
    }
    return *m_isOpaque;
}

PixelRect Image::extent() const
{
    return {0, 0, static_cast<std::int64_t>(std::ceil(drawn(m_size.width))),
            static_cast<std::int64_t>(std::ceil(drawn(m_size.height)))};
}

PixelRect Image::extentIn(const PixelRect& frame) const
{
    const PixelRect all = extent();
    return {frame.x, frame.bottom() - all.height, all.width, all.height};
}

BitmapRef Image::unscaled() const
{
    BitmapRef raster = firstRepresentation();
    return raster && m_size == Size{double(raster->width()), double(raster->height())} ? raster : nullptr;
}

BitmapRef Image::scaledPart(const PixelRect& part) const
{
    const BitmapRef source = firstRepresentation();
    if (!source || part.empty() || intersection(part, extent()) != part)
        return nullptr;
    if (m_scaled.pixels && m_scaled.shows(m_size, part, source))
        return m_scaled.pixels;
    m_scaled = {}; // first, so that its memory can be used again
    BitmapRef pixels = m_lastScaled->shows(m_size, part, source) ? m_lastScaled->pixels.lock() : nullptr;
    if (!pixels)
        pixels = resample(*source, {drawn(m_size.width), drawn(m_size.height)}, part);
    *m_lastScaled = {m_size, part, source, pixels};
    m_scaled = {m_size, part, source, std::move(pixels)};
    return m_scaled.pixels;
}

} // namespace wallgrid
