// SPDX-License-Identifier: MIT
#pragma once

#include "base/error.h"
#include "graphics/geometry.h"
#include "graphics/image.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace wallgrid {

/// One line of text, laid out and ready to be rasterised. Coordinates are pixels relative to the lower-left corner of
/// its line box, y downwards; the baseline lies above the corner by the font's descent.
class TextLine {
public:
    virtual ~TextLine() = default;
    /// Every pixel that ink may touch.
    virtual PixelRect inkBounds() const = 0;
    /// Writes the coverage (0 to 255) of each pixel of `area`, top row first, area.width bytes a row.
    virtual void rasterize(const PixelRect& area, std::span<std::uint8_t> coverage) const = 0;
};

/// What a desktop toolkit does better than we would: fonts and image files. One toolkit is installed when the program
/// starts (qt/ has ours); without one, texts draw nothing and no image file can be read.
class Toolkit {
public:
    virtual ~Toolkit() = default;

    /// The system font at a size in pixels, greater than 0.
    virtual std::unique_ptr<TextLine> layOutText(std::string_view text, double fontSize) = 0;
    /// The picture in the bytes of an image file, its size in points taken from the resolution the file records.
    virtual Expected<ImageRef> decodeImage(std::span<const std::uint8_t> bytes) = 0;

    /// The installed toolkit, or null.
    static Toolkit* current();
    /// The caller keeps ownership and installs null before the toolkit ends.
    static void install(Toolkit* toolkit);
};

} // namespace wallgrid
