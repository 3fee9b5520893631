// SPDX-License-Identifier: MIT
#include "graphics/pixel_runs.h"
#include "graphics/resample.h"
#include "psd/layers/kp_psd_layer.h"

#include <algorithm>
#include <cmath>

namespace wallgrid {

namespace {

/// A sample divided by its alpha, in single precision. Where alpha is 0 the quotient is infinite or not a number, and
/// both end at 255: fmin and fmax pass over what is not a number.
std::uint8_t dividedByAlpha(std::uint8_t sample, std::uint8_t alpha)
{
    const float quotient = static_cast<float>(sample) / (static_cast<float>(alpha) / 255.0F);
    return static_cast<std::uint8_t>(std::fmax(std::fmin(quotient, 255.0F), 0.0F));
}

Pixel unpremultiplied(Pixel p)
{
    return {p.a, dividedByAlpha(p.r, p.a), dividedByAlpha(p.g, p.a), dividedByAlpha(p.b, p.a)};
}

bool isWhole(double value)
{
    return value == std::trunc(value);
}

int whole(double value)
{
    return static_cast<int>(value);
}

/// For as many pixels.
BitmapRef newBitmap(const KPPSDLayer::BitmapPart& part)
{
    return part.bitmap ? Bitmap::create(part.rect.width, part.rect.height, Bitmap::Contents::Undefined) : nullptr;
}

BitmapRef copyOf(const KPPSDLayer::BitmapPart& part)
{
    const BitmapRef copy = newBitmap(part);
    for (int y = 0; copy && y < copy->height(); ++y)
        copyPixels(copy->row(y).data(), part.row(y).data(), static_cast<std::size_t>(copy->width()));
    return copy;
}

/// The start and the length of what is left of `image` pixels at `offset` along a canvas of `document` pixels.
std::pair<double, double> cropped(double image, double offset, double document)
{
    double start = 0;
    double length = image;
    if (offset < 0) {
        length = image + offset;
        start = std::fabs(std::trunc(offset));
    }
    if (image + offset > document)
        length = document - std::max(offset, 0.0);
    return {start, length};
}

} // namespace

std::span<const Pixel> KPPSDLayer::BitmapPart::row(std::int64_t r) const
{
    if (!bitmap)
        return {};
    const auto pixels = std::as_const(*bitmap).row(static_cast<int>(rect.y + r));
    return pixels.subspan(static_cast<std::size_t>(rect.x), static_cast<std::size_t>(rect.width));
}

Rect KPPSDLayer::imageCropRegion() const
{
    if (!std::isfinite(m_offset.x) || !std::isfinite(m_offset.y))
        return {};
    const auto [x, width] = cropped(m_image ? m_image->width() : 0, m_offset.x, m_documentSize.width);
    const auto [y, height] = cropped(m_image ? m_image->height() : 0, m_offset.y, m_documentSize.height);
    return {{x, y}, {width, height}};
}

Rect KPPSDLayer::imageInDocumentRegion() const
{
    return {{std::min(std::max(m_offset.x, 0.0), m_documentSize.width),
             std::min(std::max(m_offset.y, 0.0), m_documentSize.height)},
            imageCropRegion().size};
}

bool KPPSDLayer::hasValidSize() const
{
    const Size size = imageCropRegion().size;
    return size.width > 0 && size.height > 0;
}

BitmapRef KPPSDLayer::croppedImage() const
{
    if (!KPPSDLayer::hasValidSize())
        return nullptr;
    const Rect crop = imageCropRegion();
    const int x = whole(crop.origin.x);
    const int y = whole(crop.origin.y);
    const int right = std::min(whole(std::ceil(crop.origin.x + crop.size.width)), m_image->width());
    const int bottom = std::min(whole(std::ceil(crop.origin.y + crop.size.height)), m_image->height());
    return copyOf({m_image, {x, y, right - x, bottom - y}});
}

KPPSDLayer::BitmapPart KPPSDLayer::croppedPart() const
{
    if (!KPPSDLayer::hasValidSize())
        return {};
    const auto [origin, size] = imageCropRegion();
    const int width = whole(size.width);
    const int height = whole(size.height);
    if (isWhole(size.width) && isWhole(size.height))
        return {m_image, {whole(origin.x), whole(origin.y), width, height}};
    BitmapPart part{nullptr, {0, 0, width, height}};
    if (part.rect.empty())
        return part;
    // The picture of the broken size is put against the right edge and as far above the lower edge.
    const Point hidden{size.width - width, size.height - height};
    if (const BitmapRef image = croppedImage())
        part.bitmap = resample(*image, size, {0, whole(std::ceil(size.height)) - height, width, height}, hidden);
    return part;
}

KPPSDLayer::BitmapPart KPPSDLayer::visiblePart() const
{
    if (m_visibleImageData)
        return {m_visibleImageData, {0, 0, m_visibleImageData->width(), m_visibleImageData->height()}};
    return croppedPart();
}

BitmapRef KPPSDLayer::visibleImageData()
{
    if (!m_visibleImageData)
        m_visibleImageData = copyOf(croppedPart());
    return m_visibleImageData;
}

BitmapRef KPPSDLayer::correctedPixels(bool flips, bool unpremultiplies) const
{
    const BitmapPart part = visiblePart();
    const BitmapRef corrected = newBitmap(part);
    for (int y = 0; corrected && y < corrected->height(); ++y) {
        const auto from = part.row(flips ? part.rect.height - 1 - y : y);
        if (unpremultiplies)
            std::transform(from.begin(), from.end(), corrected->row(y).begin(), unpremultiplied);
        else
            copyPixels(corrected->row(y).data(), from.data(), from.size());
    }
    return corrected;
}

bool KPPSDLayer::preparePixels()
{
    const Size size = imageCropRegion().size;
    if (!(size.width >= 1 && size.height >= 1))
        return true; // there is no whole pixel
    const bool flips = m_shouldFlipLayerData && !m_isFlipped;
    const bool unpremultiplies = m_shouldUnpremultiplyLayerData && !m_isUnpremultiplied;
    if (flips || unpremultiplies) {
        BitmapRef corrected = correctedPixels(flips, unpremultiplies);
        if (!corrected)
            return false;
        m_visibleImageData = std::move(corrected);
        m_isFlipped |= flips;
        m_isUnpremultiplied |= unpremultiplies;
    }
    const BitmapPart part = visiblePart();
    return part.bitmap && part.rect.width == whole(size.width) && part.rect.height == whole(size.height);
}

} // namespace wallgrid
