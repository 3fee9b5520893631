// SPDX-License-Identifier: MIT
#include "app/project_file.h"

#include "items/item_decoding.h"
#include "platform/keyed_archiver.h"
#include "platform/keyed_unarchiver.h"

#include <utility>
#include <vector>

namespace wallgrid {

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
    return Project{*height, *width, std::move(*items)};
}

Bytes writeProject(const Project& project)
{
    std::vector<ArchiveValue> items(project.items.begin(), project.items.end());
    return KeyedArchiver::archivedDataWithRootObject(std::vector<ArchiveValue>{
        std::int64_t{project.outputHeight}, std::int64_t{project.outputWidth}, std::move(items)});
}

} // namespace wallgrid
