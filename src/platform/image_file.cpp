// SPDX-License-Identifier: MIT
#include "platform/image_file.h"

#include "platform/file.h"
#include "platform/toolkit.h"

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

} // namespace wallgrid
