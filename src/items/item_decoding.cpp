// SPDX-License-Identifier: MIT
#include "items/item_decoding.h"

#include "graphics/image_file.h"
#include "items/gx_screen.h"
#include "items/gx_still.h"

#include <string_view>
#include <unordered_map>

namespace wallgrid {

namespace {

Expected<ItemRef> decodeItem(const ArchivedObject& record, ImageFiles& images)
{
    const std::string_view kind = record.classAmong({"GXScreen", "GXStill"});
    KeyedDecoder coder(record);
    if (kind == "GXScreen")
        return GXScreen::initWithCoder(coder);
    if (kind == "GXStill")
        return GXStill::initWithCoder(coder, images);
    return failure("the file holds something that is neither a screen nor a still");
}

} // namespace

Expected<ItemArray> decodeItems(const ArchivedObject& array, const Report& report)
{
    const auto records = array.elements();
    if (!records)
        return tl::unexpected(records.error());

    ItemArray items;
    items.reserve(records->size());
    ImageFiles images;
    std::unordered_map<std::uint32_t, ItemRef> known;
    for (const ArchivedObject& record : *records) {
        if (!goesOn(report, static_cast<double>(items.size()) / static_cast<double>(records->size())))
            return cancelled();
        ItemRef& item = known[record.id()];
        if (!item) {
            auto decoded = decodeItem(record, images);
            if (!decoded)
                return tl::unexpected(decoded.error());
            item = std::move(*decoded);
        }
        items.push_back(item);
    }
    return items;
}

} // namespace wallgrid
