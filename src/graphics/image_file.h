// SPDX-License-Identifier: MIT
#pragma once

#include "base/error.h"
#include "base/url.h"
#include "graphics/image.h"

#include <cstdint>
#include <map>
#include <utility>

namespace wallgrid {

/// The picture in a file, read by the installed toolkit. Only regular files behind `file:` locations are opened.
Expected<ImageRef> imageWithContentsOfURL(const Url& location);

/// The image files of one document while it is read. Each file is decoded once, whatever its location is called and
/// however many items show it: the images are their own, the pixels are shared.
class ImageFiles {
public:
    /// Empty when there is no readable image.
    ImageRef image(const Url& location);

private:
    std::map<std::pair<std::uint64_t, std::uint64_t>, ImageRef> m_images; ///< by device and inode
};

} // namespace wallgrid
