// SPDX-License-Identifier: MIT
#include "app/project_file.h"

#include "archive/keyed_archiver.h"
#include "archive/keyed_unarchiver.h"
#include "items/item_decoding.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace wallgrid {

namespace {

/// A short file can name one item a hundred thousand times, and each time costs what the item covers of the output.
/// This much is painted in a few seconds. The window cannot put an item into the list twice, so what it saves repeats
/// nothing.
constexpr std::int64_t kMostRepeatedPixels = std::int64_t{1} << 32;

bool repeatsTooMuch(const Project& project)
{
    const PixelRect output{0, 0, project.outputWidth, project.outputHeight};
    std::unordered_set<const GXItem*> known;
    std::int64_t repeated = 0;
    for (const ItemRef& item : project.items) {
        const ImageRef picture = item->visible() ? item->picture() : nullptr;
        if (known.insert(item.get()).second || !picture || !picture->firstRepresentation())
            continue;
        const PixelRect shown = intersection(item->frame(), output);
        repeated += std::max<std::int64_t>(shown.width, 0) * std::max<std::int64_t>(shown.height, 0);
        if (repeated > kMostRepeatedPixels)
            return true;
    }
    return false;
}

bool startsWith(const Bytes& bytes, std::string_view magic)
{
    return bytes.size() >= magic.size() && std::equal(magic.begin(), magic.end(), bytes.begin(), [](char a, auto b) {
               return static_cast<unsigned char>(a) == b;
           });
}

/// The first bytes of PNG, JPEG, GIF, TIFF of both orders and PSD files.
bool isPicture(const Bytes& bytes)
{
    constexpr std::string_view kMagics[]{"\x89PNG", "\xFF\xD8\xFF", "GIF8", "II*", "MM", "8BPS"};
    return std::any_of(std::begin(kMagics), std::end(kMagics),
                       [&](std::string_view magic) { return startsWith(bytes, magic); });
}

} // namespace

Expected<Project> readProject(Bytes bytes, const Report& report)
{
    if (bytes.empty())
        return failure("the file is empty");
    if (isPicture(bytes))
        return failure("this is a picture, not a project");
    if (!startsWith(bytes, "bplist"))
        return failure("this is not a project");
    const auto root = KeyedUnarchiver::rootObject(std::move(bytes));
    if (!root)
        return failure("the project is damaged: " + root.error().message);
    const auto elements = root->elements();
    if (!elements || elements->size() != 3)
        return failure("this is not a project, though the same kind of file");

    const auto height = (*elements)[0].intValue();
    const auto width = (*elements)[1].intValue();
    if (!height || !width)
        return failure("this is not a project, though the same kind of file");
    auto items = decodeItems((*elements)[2], report);
    if (!items)
        return tl::unexpected(items.error());
    Project project{*height, *width, std::move(*items)};
    if (repeatsTooMuch(project))
        return failure("items that are named again cover more than 4 billion pixels of the output");
    return project;
}

Bytes writeProject(const Project& project, const NamedValues& beside)
{
    ArchiveArray items(project.items.begin(), project.items.end());
    return KeyedArchiver::archivedDataWithRootObject(
        ArchiveArray{std::int64_t{project.outputHeight}, std::int64_t{project.outputWidth}, std::move(items)}, beside);
}

} // namespace wallgrid
