// SPDX-License-Identifier: MIT
#include "graphics/image_file.h"

#include "base/file.h"
#include "graphics/toolkit.h"

namespace wallgrid {

Expected<ImageRef> imageWithContentsOfURL(const Url& location)
{
    const auto path = location.filePath();
    if (!path)
        return failure("not the location of a file");
    Toolkit* toolkit = Toolkit::current();
    if (!toolkit)
        return failure("no toolkit can read images");
    const auto bytes = readFile(*path);
    if (!bytes)
        return tl::unexpected(bytes.error());
    return toolkit->decodeImage(*bytes);
}

ImageRef ImageFiles::image(const Url& location)
{
    const auto path = location.filePath();
    const auto identity = path ? fileIdentity(*path) : std::nullopt;
    if (!identity)
        return nullptr;
    const auto [entry, isNew] = m_images.try_emplace(*identity);
    if (isNew) {
        entry->second = imageWithContentsOfURL(location).value_or(nullptr);
        if (entry->second)
            entry->second->isOpaque(); // looked up once for all copies
    }
    return entry->second ? std::make_shared<Image>(*entry->second) : nullptr;
}

} // namespace wallgrid
