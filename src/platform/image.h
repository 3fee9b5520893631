// SPDX-License-Identifier: MIT
#pragma once

#include "platform/bitmap.h"
#include "platform/geometry.h"

#include <memory>
#include <vector>

namespace wallgrid {

class Image;
using ImageRef = std::shared_ptr<Image>;

/// A size in points and the rasters that show it. Drawing an image scales its first representation to its size, so a
/// size set anew resizes the picture for every holder of the image and touches no pixel of it.
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
    const std::vector<BitmapRef>& representations() const { return m_representations; }
    /// Empty when there is none.
    BitmapRef firstRepresentation() const;

private:
    Size m_size;
    std::vector<BitmapRef> m_representations;
};

} // namespace wallgrid
