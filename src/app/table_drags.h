// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/array_controller.h"
#include "desktop/table_view.h"
#include "items/gx_item.h"

#include <cstddef>
#include <cstdint>
#include <set>

namespace wallgrid {

/// Drags of rows inside and between the main list table and the preset table. A drop moves a row inside its table and
/// copies it into the other one, always the first of the dragged rows. A drop without rows of the list that the drag
/// began in changes nothing.
class TableDrags {
public:
    using ItemController = ArrayController<GXItem>;

    /// The lists that the tables show.
    TableDrags(ItemController& layers, ItemController& presets)
        : m_layers(layers)
        , m_presets(presets)
    {
    }

    void start(TableView& table, const std::set<std::size_t>& rows, Pasteboard& pasteboard);
    void drop(TableView& table, const Pasteboard& dragged, std::ptrdiff_t row);
    /// Where the last drag began: 0 none yet, 1 the main list table, 2 the preset table.
    std::int32_t source() const { return m_source; }

private:
    ItemController& m_layers;
    ItemController& m_presets;
    std::int32_t m_source = 0;
};

} // namespace wallgrid
