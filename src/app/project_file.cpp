// SPDX-License-Identifier: MIT
#include "app/project_file.h"

#include "items/item_decoding.h"
#include "platform/keyed_archiver.h"
#include "platform/keyed_unarchiver.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace wallgrid {

namespace {

/// A short file can name one item a hundred thousand times, and each time costs what the item covers of the output.
/// This much is painted in a few seconds; 500 layers of eight megapixels are below it.
constexpr std::int64_t kMostPaintedPixels = std::int64_t{1} << 32;

bool paintsTooMuch(const Project& project)
{
    const PixelRect output{0, 0, project.outputWidth, project.outputHeight};
    std::int64_t painted = 0;
    for (const ItemRef& item : project.items) {
        const ImageRef picture = item->visible() ? item->thumbnail() : nullptr;
        if (!picture || !picture->firstRepresentation())
            continue;
        // From the top: only the area counts.
        const PixelRect shown =
            intersection({item->xpoint(), item->ypoint(), item->screenSizeWidth(), item->screenSizeHeight()}, output);
        painted += std::max<std::int64_t>(shown.width, 0) * std::max<std::int64_t>(shown.height, 0);
        if (painted > kMostPaintedPixels)
            return true;
    }
    return false;
}

} // namespace

Expected<Project> readProject(Bytes bytes, const Report& report)
{
    const auto root = KeyedUnarchiver::rootObject(std::move(bytes));
    if (!root)
        return tl::unexpected(root.error());
    const auto elements = root->elements();
    if (!elements || elements->size() != 3)
        return failure("not a project file");

    const auto height = (*elements)[0].intValue();
    const auto width = (*elements)[1].intValue();
    if (!height || !width)
        return failure("not a project file");
    auto items = decodeItems((*elements)[2], report);
    if (!items)
        return tl::unexpected(items.error());
    Project project{*height, *width, std::move(*items)};
    if (paintsTooMuch(project))
        return failure("the items cover more than 4 billion pixels of the output");
    return project;
}

Bytes writeProject(const Project& project, const NamedValues& beside)
{
    ArchiveArray items(project.items.begin(), project.items.end());
    return KeyedArchiver::archivedDataWithRootObject(
        ArchiveArray{std::int64_t{project.outputHeight}, std::int64_t{project.outputWidth}, std::move(items)}, beside);
}

} // namespace wallgrid
