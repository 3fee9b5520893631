// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/bitmap.h"
#include "graphics/color.h"
#include "graphics/geometry.h"
#include "graphics/image.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace wallgrid {

/// What the output raster shows: a ground, an edge of one pixel around it, and pictures from the lowest to the highest.
struct RasterScene {
    struct Picture {
        ImageRef image;
        PixelRect frame; ///< shows as much of the image as it holds; may lie anywhere
    };

    std::int32_t width = 0;
    std::int32_t height = 0;
    ColorRef ground; ///< opaque black when empty
    ColorRef edge;   ///< the ground's when empty
    std::vector<Picture> pictures;
};

/// Composes one scene after another on the same raster. What a scene costs is what differs from the one before.
class RasterComposer {
public:
    /// Each pixel is what composing the whole scene on a new raster makes it. A raster that somebody else still holds
    /// stays as it is; he keeps it and the scene gets a new one. Empty when there is no raster of that size.
    BitmapRef compose(const RasterScene& scene);

private:
    struct Ground {
        Pixel fill;
        Pixel edge;
        bool operator==(const Ground&) const = default;
    };
    /// What is remembered of a picture: a bitmap that is the same one, scaled to the same size, shows the same. There
    /// is none of a picture that memory was refused for.
    struct Composed {
        std::weak_ptr<const Bitmap> bitmap;
        Size size;
        PixelRect frame;
        PixelRect shown; ///< the part of the frame that is on the raster
        bool operator==(const Composed& other) const;
    };

    std::vector<PixelRect> differences(const std::vector<Composed>& pictures) const;

    BitmapRef m_raster;
    Ground m_ground;
    std::vector<Composed> m_composed;
};

} // namespace wallgrid
