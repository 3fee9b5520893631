// SPDX-License-Identifier: MIT
#include "platform/image.h"

#include "platform/resample.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace wallgrid {

namespace {

std::int64_t pixelsCovered(double points)
{
    constexpr double kFarthest = 1LL << 40; // leaves room for sums; no bitmap reaches that far
    return points > 0 ? static_cast<std::int64_t>(std::ceil(std::min(points, kFarthest))) : 0;
}

} // namespace

void Image::addRepresentation(BitmapRef bitmap)
{
    if (bitmap)
        m_representations.push_back(std::move(bitmap));
}

BitmapRef Image::firstRepresentation() const
{
    return m_representations.empty() ? nullptr : m_representations.front();
}

PixelRect Image::extent() const
{
    return {0, 0, pixelsCovered(m_size.width), pixelsCovered(m_size.height)};
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
    if (!m_scaled.pixels || m_scaled.source != source || m_scaled.size != m_size || m_scaled.part != part) {
        m_scaled = {}; // first, so that its memory can be used again
        m_scaled = {m_size, part, source, resample(*source, m_size, part)};
    }
    return m_scaled.pixels;
}

} // namespace wallgrid
