// SPDX-License-Identifier: MIT
#pragma once

#include "platform/graphics_context.h"

#include <vector>

namespace wallgrid::bench {

/// A document as composition sees it: an output raster, its colours and the thumbnails that lie on it. Made from a
/// fixed seed, so every run measures the same pixels.
struct Document {
    struct Item {
        ImageRef thumbnail;
        PixelPoint point; ///< lower-left corner on the raster
    };

    int width;
    int height;
    ColorRef background;
    ColorRef edge;
    std::vector<Item> items; ///< bottom first
};

/// Screens of all sorts, some without fill, some hanging over the edge, and two stills: a gradient and noise.
Document makeDocument(int width, int height, int screens);

/// Draws the document as the output raster.
void compose(const Document& document, const BitmapRef& raster);

} // namespace wallgrid::bench
