// SPDX-License-Identifier: MIT
#include "graphics/graphics_context.h"

#include "graphics/blend.h"
#include "graphics/pixel_runs.h"
#include "graphics/ring.h"
#include "graphics/toolkit.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>
#include <vector>

namespace wallgrid {

namespace {

constexpr double kDefaultFontSize = 13;
/// Text is rasterised in pieces of at most this many pixels, however large the letters.
constexpr std::int64_t kTextPieceWidth = 1 << 14;
constexpr std::int64_t kTextPieceArea = 1 << 20;
/// Shorter rows than this, in pixels, share too many cache lines for writes past the cache to pay.
constexpr std::int64_t kLeastStreamedRow = 1024;

} // namespace

GraphicsContext::GraphicsContext(BitmapRef bitmap)
    : m_bitmap(std::move(bitmap))
    , m_clip(bounds())
{
}

PixelRect GraphicsContext::bounds() const
{
    return m_bitmap ? PixelRect{0, 0, m_bitmap->width(), m_bitmap->height()} : PixelRect{};
}

Pixel* GraphicsContext::at(std::int64_t x, std::int64_t y)
{
    return m_bitmap->row(static_cast<int>(y)).data() + x;
}

void GraphicsContext::setColor(const ColorRef& color)
{
    if (color)
        m_color = color->pixel();
}

// Fills and frames

void GraphicsContext::fill(const PixelRect& rect, Pixel color)
{
    const PixelRect part = intersection(rect, m_clip);
    if (part.empty())
        return;
    if (part.width == bounds().width) {
        // Whole rows follow one another.
        fillPixels(at(0, part.y), color, static_cast<std::size_t>(part.width * part.height));
        return;
    }
    for (std::int64_t y = part.y; y < part.bottom(); ++y)
        fillPixels(at(part.x, y), color, static_cast<std::size_t>(part.width));
}

void GraphicsContext::fillRect(const PixelRect& rect)
{
    fill(rect, m_color);
}

void GraphicsContext::clearRect(const PixelRect& rect)
{
    fill(rect, {});
}

void GraphicsContext::frameRect(const PixelRect& rect, std::int64_t width)
{
    if (width <= 0 || rect.empty())
        return;
    if (width >= (std::min(rect.width, rect.height) + 1) / 2)
        return fill(rect, m_color);
    const std::int64_t sides = rect.height - 2 * width;
    fill({rect.x, rect.y, rect.width, width}, m_color);
    fill({rect.x, rect.y + width, width, sides}, m_color);
    fill({rect.right() - width, rect.y + width, width, sides}, m_color);
    fill({rect.x, rect.bottom() - width, rect.width, width}, m_color);
}

void GraphicsContext::tile(std::int64_t blockWidth, std::int64_t blockHeight, std::int64_t columns, std::int64_t rows)
{
    if (!m_bitmap || blockWidth <= 0 || blockHeight <= 0 || columns <= 0 || rows <= 0)
        return;
    // Compared by division: the products need not fit.
    const auto tiled = [](std::int64_t block, std::int64_t count, std::int64_t limit) {
        return count > limit / block ? limit : block * count;
    };
    const std::int64_t width = tiled(blockWidth, columns, bounds().width);
    const std::int64_t height = tiled(blockHeight, rows, bounds().height);
    // Rows are counted from the lowest one. The lowest band first: its rows in full, and for each the lowest row that
    // looks like it. A panel has few different rows, so what the rest is copied from stays in the nearest cache.
    const auto rowFromBelow = [&](std::int64_t y) { return at(0, bounds().height - 1 - y); };
    const std::int64_t block = std::min(blockWidth, width);
    const bool more = height > blockHeight;
    std::vector<const Pixel*> rowsOfBand;
    for (std::int64_t y = 0; y < std::min(blockHeight, height); ++y) {
        Pixel* const row = rowFromBelow(y);
        for (std::int64_t done = block; done < width; done *= 2)
            copyPixels(row + done, row, static_cast<std::size_t>(std::min(done, width - done)));
        const bool same =
            more && y > 0 && std::memcmp(row, rowsOfBand.back(), static_cast<std::size_t>(block) * sizeof(Pixel)) == 0;
        rowsOfBand.push_back(same ? rowsOfBand.back() : row);
    }
    const std::size_t bytes = static_cast<std::size_t>(width * height) * sizeof(Pixel);
    const bool stream = bytes >= kBeyondCache && width >= kLeastStreamedRow;
    for (std::int64_t y = height - 1; y >= blockHeight; --y)
        (stream ? streamPixels : copyPixels)(rowFromBelow(y), rowsOfBand[static_cast<std::size_t>(y % blockHeight)],
                                             static_cast<std::size_t>(width));
    if (stream)
        finishStreaming();
}

// Strokes

void GraphicsContext::strokeCircle(const PixelRect& square, std::int64_t lineWidth)
{
    if (square.width <= 0 || m_clip.empty())
        return;
    const double radius = static_cast<double>(square.width) / 2;
    const double halfLine = static_cast<double>(std::max<std::int64_t>(lineWidth, 1)) / 2;
    const Ring ring{static_cast<double>(square.x) + radius, static_cast<double>(square.y) + radius, radius + halfLine,
                    radius - halfLine};
    const auto clamped = [&](double y) {
        return std::clamp(y, static_cast<double>(m_clip.y), static_cast<double>(m_clip.bottom()));
    };
    const auto top = static_cast<std::int64_t>(clamped(ring.centerY - ring.outerRadius));
    const auto bottom = static_cast<std::int64_t>(std::ceil(clamped(ring.centerY + ring.outerRadius)));
    for (std::int64_t y = top; y < bottom; ++y) {
        const RingRow row(ring, y);
        Pixel* const pixels = at(0, y);
        const std::int64_t end = std::min(row.touched().end, m_clip.right());
        for (std::int64_t x = std::max(row.touched().begin, m_clip.x); x < end;) {
            const bool left = row.solidLeft().contains(x);
            if (row.hole().contains(x)) {
                x = row.hole().end;
            } else if (left || row.solidRight().contains(x)) {
                const std::int64_t runEnd = std::min(end, left ? row.solidLeft().end : row.solidRight().end);
                blendColor(pixels + x, m_color, static_cast<std::size_t>(runEnd - x));
                x = runEnd;
            } else {
                const auto coverage = static_cast<std::uint8_t>(std::clamp(row.coverage(x), 0.0, 1.0) * 255 + 0.5);
                blendCoverage(pixels + x, m_color, &coverage, 1);
                ++x;
            }
        }
    }
}

// Texts

void GraphicsContext::drawText(std::string_view text, PixelPoint lowerLeft, double fontSize, const ColorRef& color)
{
    Toolkit* const toolkit = Toolkit::current();
    if (!m_bitmap || !toolkit)
        return;
    const auto line = toolkit->layOutText(text, fontSize > 0 ? fontSize : kDefaultFontSize);
    if (!line)
        return;
    const PixelRect part = intersection(line->inkBounds().movedBy(lowerLeft), m_clip);
    if (part.empty())
        return;

    const Pixel pixel = color ? color->pixel() : m_color;
    const std::int64_t pieceWidth = std::min(part.width, kTextPieceWidth);
    const std::int64_t pieceHeight = std::min(part.height, kTextPieceArea / pieceWidth);
    std::vector<std::uint8_t> coverage(static_cast<std::size_t>(pieceWidth * pieceHeight));
    // From the lower edge up. Rounding in huge letters may depend on where a piece begins, and no pixel may change.
    for (std::int64_t bottom = part.bottom(); bottom > part.y; bottom -= pieceHeight) {
        for (std::int64_t x = part.x; x < part.right(); x += pieceWidth) {
            const PixelRect piece = intersection(part, {x, bottom - pieceHeight, pieceWidth, pieceHeight});
            const auto width = static_cast<std::size_t>(piece.width);
            const auto height = static_cast<std::size_t>(piece.height);
            line->rasterize(piece.movedBy(-lowerLeft), std::span(coverage).first(width * height));
            for (std::size_t row = 0; row < height; ++row)
                blendCoverage(at(x, piece.y + static_cast<std::int64_t>(row)), pixel, coverage.data() + row * width,
                              width);
        }
    }
}

// Images

void GraphicsContext::drawImage(const Image& image, const PixelRect& frame, CompositingOperation operation)
{
    const PixelRect laid = image.extentIn(frame);
    const PixelRect onBitmap = intersection(intersection(frame, laid), bounds());
    const PixelRect part = intersection(onBitmap, m_clip);
    if (part.empty())
        return;
    BitmapRef raster = image.unscaled();
    PixelPoint origin = laid.origin(); // of the raster
    if (!raster) {
        // All that the bitmap can show, whatever the clip: the image keeps it for the next piece.
        raster = image.scaledPart(onBitmap.movedBy(-laid.origin()));
        origin = onBitmap.origin();
    }
    if (!raster)
        return;
    const bool replaces = operation == CompositingOperation::SourceOver && image.isOpaque();
    const auto blend = replaces ? copyPixels : operation == CompositingOperation::SourceOver ? blendOver : blendAtop;
    for (std::int64_t y = part.y; y < part.bottom(); ++y) {
        const auto pixels = std::as_const(*raster).row(static_cast<int>(y - origin.y));
        blend(at(part.x, y), pixels.data() + (part.x - origin.x), static_cast<std::size_t>(part.width));
    }
}

} // namespace wallgrid
