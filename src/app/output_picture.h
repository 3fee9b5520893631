// SPDX-License-Identifier: MIT
#pragma once

#include "app/raster_composer.h"
#include "base/log.h"
#include "graphics/bitmap.h"
#include "graphics/image.h"
#include "items/gx_item.h"

#include <cstddef>
#include <cstdint>

namespace wallgrid {

/// The size and the colours of the output.
struct Output {
    std::int32_t width = 0;
    std::int32_t height = 0;
    ColorRef ground; ///< opaque black when empty
    ColorRef edge;   ///< the ground's when empty
};

/// The picture of a document: the raster that its visible items are composed on, and the image of it.
class OutputPicture {
public:
    explicit OutputPicture(Log& log);

    /// Composes the items as they were last rendered, the first one on top. Whoever shows the image before keeps it
    /// without its raster, which serves again unless somebody holds the raster itself.
    void compose(const Output& output, const ItemArray& items);

    /// Both are empty before the first composition, and when the output size gives no raster.
    const BitmapRef& raster() const { return m_raster; }
    const ImageRef& image() const { return m_image; }

private:
    void reportRefusedBitmaps();

    Log& m_log;
    RasterComposer m_composer;
    BitmapRef m_raster;
    ImageRef m_image;
    std::size_t m_refusedBitmaps; ///< as last reported
};

} // namespace wallgrid
