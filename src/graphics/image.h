// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/bitmap.h"
#include "graphics/geometry.h"

#include <memory>
#include <optional>
#include <vector>

namespace wallgrid {

class Image;
using ImageRef = std::shared_ptr<Image>;

/// A size in points and the rasters that show it. Drawing an image scales its first representation to its size, so a
/// size set anew resizes the picture for every holder of the image and touches no pixel of it. A bitmap that was added
/// is not drawn on until it is removed.
class Image {
public:
    explicit Image(Size size)
        : m_size(size)
    {
    }

    Size size() const { return m_size; }
    void setSize(Size size) { m_size = size; }

    /// An empty bitmap is not added: such an image draws nothing.
    void addRepresentation(BitmapRef bitmap);
    /// The image draws nothing then, and whoever made its bitmaps may draw on them again.
    void removeRepresentations();
    const std::vector<BitmapRef>& representations() const { return m_representations; }
    /// Empty when there is none.
    const BitmapRef& firstRepresentation() const;
    /// Whether the first representation hides all that lies below it. Looked up in its pixels once.
    bool isOpaque() const;

    /// The pixels that the image covers when a point is a pixel, from the origin; one that it covers in part, at the
    /// right and at the top, counts.
    PixelRect extent() const;
    /// The same where the image lies in a frame: in its lower-left corner, whether it fills the frame or not.
    PixelRect extentIn(const PixelRect& frame) const;
    /// The first representation, when it has exactly the pixels of extent(); else empty.
    BitmapRef unscaled() const;
    /// A part of extent() as pixels. The last part asked for is kept, so that drawing an unchanged image again need not
    /// scale it again. Copies of the image share it while they show the same. Empty when there is nothing to show or no
    /// memory.
    BitmapRef scaledPart(const PixelRect& part) const;

private:
    template <class Pixels>
    struct Scaled {
        Size size;
        PixelRect part;
        BitmapRef source;
        Pixels pixels;

        bool shows(const Size& otherSize, const PixelRect& otherPart, const BitmapRef& otherSource) const
        {
            return size == otherSize && part == otherPart && source == otherSource;
        }
    };

    Size m_size;
    std::vector<BitmapRef> m_representations;
    mutable Scaled<BitmapRef> m_scaled{};
    /// The last part that this image or one of its copies asked for. The copy that shows the part keeps it alive.
    std::shared_ptr<Scaled<std::weak_ptr<Bitmap>>> m_lastScaled = std::make_shared<Scaled<std::weak_ptr<Bitmap>>>();
    mutable std::optional<bool> m_isOpaque;
};

} // namespace wallgrid
