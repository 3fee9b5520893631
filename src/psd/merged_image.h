// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/bitmap.h"
#include "graphics/color.h"
#include "graphics/geometry.h"
#include "psd/layers/kp_psd_layer.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace wallgrid {

/// The merged image of a document: a list of what is drawn. It takes no memory for pixels until somebody asks for its
/// bitmap; a file gets it row by row. Positions count pixels from the top-left corner, y downwards.
class MergedImage {
public:
    /// No image.
    MergedImage() = default;
    MergedImage(int width, int height, Pixel ground);
    /// Goes on drawing on the caller's bitmap. No image when there is none.
    explicit MergedImage(BitmapRef bitmap);
    /// The image as it is now. What is drawn on this one later does not show there.
    MergedImage snapshot();

    explicit operator bool() const { return m_width > 0; }
    int width() const { return m_width; }
    int height() const { return m_height; }

    /// A picture, where its top-left pixel stands, and how much it hides of what is below.
    struct Drawing {
        KPPSDLayer::BitmapPart picture;
        PixelPoint place;
        std::uint8_t alpha = 255;
    };
    void draw(Drawing drawing);
    /// Whether nothing is missing that there was no memory for when it was to be drawn.
    bool isComplete() const { return m_isComplete; }
    void setIncomplete() { m_isComplete = false; }

    /// All of it as a bitmap, which is kept and drawn on from then on. Empty when there is no image or no memory.
    BitmapRef bitmap();

private:
    friend class MergedRows;
    /// Composes as many rows as the bitmap has, from row `top` of the image on.
    void compose(Bitmap& rows, int top) const;

    int m_width = 0;
    int m_height = 0;
    Pixel m_ground;
    BitmapRef m_bitmap; ///< in the place of the ground
    bool m_isComplete = true;
    bool m_isShared = false;         ///< the bitmap, by a snapshot
    std::vector<Drawing> m_drawings; ///< over these, the lowest first
};

/// The rows of a merged image, which must not change meanwhile. They are composed a few at a time, in memory that stays
/// in the processor's cache.
class MergedRows {
public:
    explicit MergedRows(const MergedImage& image);

    /// False when there is no memory. Then there are no rows.
    explicit operator bool() const { return m_isBitmap || (m_bands[0] && m_bands[1]); }
    /// The next row, from the top on. It stays until the second call after this one.
    std::span<const Pixel> next();

private:
    const MergedImage& m_image;
    bool m_isBitmap;                  ///< the image is one, and nothing more
    std::array<BitmapRef, 2> m_bands; ///< used in turn
    int m_y = 0;
};

} // namespace wallgrid
