// SPDX-License-Identifier: MIT
#include "app/preset_file.h"

#include "items/item_decoding.h"
#include "platform/keyed_archiver.h"
#include "platform/keyed_unarchiver.h"

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
