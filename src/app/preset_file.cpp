// SPDX-License-Identifier: MIT
#include "app/preset_file.h"

#include "archive/keyed_archiver.h"
#include "archive/keyed_unarchiver.h"
#include "items/item_decoding.h"

#include <utility>
#include <vector>

namespace wallgrid {

Expected<ItemArray> readPresets(Bytes bytes)
{
    const auto root = KeyedUnarchiver::rootObject(std::move(bytes));
    if (!root)
        return tl::unexpected(root.error());
    return decodeItems(*root);
}

Bytes writePresets(const ItemArray& presets)
{
    return KeyedArchiver::archivedDataWithRootObject(ArchiveArray(presets.begin(), presets.end()));
}

} // namespace wallgrid
