// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/bitmap.h"
#include "graphics/color.h"
#include "graphics/geometry.h"
#include "graphics/image.h"

#include <cstdint>
#include <string_view>

namespace wallgrid {

/// How an image meets the pixels below it; S and D are premultiplied, a their alphas (Porter and Duff, "Compositing
/// Digital Images", 1984).
enum class CompositingOperation {
    SourceOver, ///< S + D × (1 − Sa)
    SourceAtop, ///< S × Da + D × (1 − Sa), alpha stays Da
};

/// Draws on a bitmap: all the drawing that the program knows. Coordinates count pixels from the bitmap's top-left
/// corner, y downwards, and lie within ±2⁶⁰; whatever lies outside the bitmap is clipped. A context on no bitmap draws
/// nowhere. Products of samples are rounded to nearest.
class GraphicsContext {
public:
    explicit GraphicsContext(BitmapRef bitmap);

    /// Draws inside this rectangle only from now on: the same pixels there as without it. Tiling goes past it.
    void clipToRect(const PixelRect& rect) { m_clip = intersection(m_clip, rect); }

    /// Makes the colour current for fills, frames and strokes. An empty colour leaves the one in force, which is
    /// opaque black in a fresh context.
    void setColor(const ColorRef& color);

    /// Replaces the pixels with the current colour, alpha included.
    void fillRect(const PixelRect& rect);
    /// Sets the pixels to transparent.
    void clearRect(const PixelRect& rect);
    /// Replaces a strip of `width` pixels along each side, inside the rectangle. 0 or less paints nothing.
    void frameRect(const PixelRect& rect, std::int64_t width);
    /// Repeats the block of blockWidth × blockHeight pixels at the bitmap's lower-left corner, to the right and
    /// upwards, until there are `columns` × `rows` of it. A grid of like panels is one panel drawn and then tiled;
    /// where it does not fit, the uppermost row of panels is cut.
    void tile(std::int64_t blockWidth, std::int64_t blockHeight, std::int64_t columns, std::int64_t rows);

    /// Strokes the circle inscribed in a square with the current colour, blended; the line is centred on the circle.
    /// Each pixel takes the exact area that the ring covers of it. A width of 0 or less is the thinnest line, one
    /// pixel; a square without a positive side draws nothing.
    void strokeCircle(const PixelRect& square, std::int64_t lineWidth);

    /// Blends one line of text in the toolkit's system font over the pixels, the lower-left corner of its line box at
    /// the point. Sizes are in pixels; 0 or less is 13. An empty colour is the current one.
    void drawText(std::string_view text, PixelPoint lowerLeft, double fontSize, const ColorRef& color);

    /// Draws as much of an image as the frame holds where Image::extentIn() lays it, one point a pixel. An image whose
    /// raster has another size than the image is scaled.
    void drawImage(const Image& image, const PixelRect& frame, CompositingOperation operation);

private:
    /// All of the bitmap.
    PixelRect bounds() const;
    /// The pixel must lie in the bounds.
    Pixel* at(std::int64_t x, std::int64_t y);
    void fill(const PixelRect& rect, Pixel color);

    BitmapRef m_bitmap;
    PixelRect m_clip; // inside the bounds
    Pixel m_color{255, 0, 0, 0};
};

} // namespace wallgrid
