// SPDX-License-Identifier: MIT
#pragma once

#include "base/error.h"
#include "base/url.h"
#include "items/gx_item.h"

#include <memory>
#include <optional>

namespace wallgrid {

class GXStill;
class ImageFiles;
using StillRef = std::shared_ptr<GXStill>;

/// An image file shown at (`xpoint`, `ypoint`) in a size of `panelWidth` × `panelHeight`. Its thumbnail is the loaded
/// image itself: rendering sets the size at which that image is drawn, for every holder of it, and touches no pixel.
/// The properties that only screens use are carried through copies and files unread.
class GXStill final : public GXItem {
public:
    /// A bare still: nothing set, no captions.
    static StillRef init();
    /// A still of the image's own size. An empty image gives a still of size 0 that shows nothing.
    static StillRef initWithimage(ImageRef image);
    /// A still from its archived record. Its image is loaded again and stays at its own size until the first render;
    /// a file that is gone leaves the still without a picture and its record whole.
    static Expected<StillRef> initWithCoder(KeyedDecoder& coder, ImageFiles& images);

    void drawInRect() override;
    /// Another image of the same pixels while one that shares the thumbnail has given it another size.
    ImageRef picture() const override;
    ItemRef copy() const override;

    std::string_view archivedClassName() const override { return "GXStill"; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    const Captions& standardCaptions() const override;

    /// The file that the image came from.
    GX_PROPERTY(UrlRef, ImageURL, ImageURL)

private:
    std::optional<Size> m_renderedSize; ///< empty before the first render
    mutable ImageRef m_picture;         ///< when it is not the thumbnail; kept because it holds the scaled pixels
};

} // namespace wallgrid
