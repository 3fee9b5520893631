// SPDX-License-Identifier: MIT
#include "app/table_drags.h"

#include "app/row_drag.h"

#include <string_view>

namespace wallgrid {

namespace {

using ItemController = TableDrags::ItemController;

constexpr std::string_view kMainTable = "mainTView";
constexpr std::string_view kPresetTable = "presetTView";
constexpr std::int32_t kFromMainTable = 1;
constexpr std::int32_t kFromPresetTable = 2;

void put(ItemController& target, const ItemController& source, std::size_t from, std::size_t to)
{
    if (from >= source.arrangedObjects().size() || to > target.arrangedObjects().size())
        return;
    const ItemRef item = source.arrangedObjects()[from];
    if (&source == &target) {
        target.insertObjectAtArrangedObjectIndex(item, to);
        target.removeObjectAtArrangedObjectIndex(from < to ? from : from + 1);
    } else {
        target.insertObjectAtArrangedObjectIndex(item->copy(), to);
    }
}

} // namespace

void TableDrags::start(TableView& table, const std::set<std::size_t>& rows, Pasteboard& pasteboard)
{
    writeDraggedRows(rows, pasteboard);
    if (table.identifier() == kMainTable)
        m_source = kFromMainTable;
    else if (table.identifier() == kPresetTable)
        m_source = kFromPresetTable;
}

void TableDrags::drop(TableView& table, const Pasteboard& dragged, std::ptrdiff_t row)
{
    const auto first = firstDraggedRow(dragged);
    if (!first || row < 0)
        return;
    const auto to = static_cast<std::size_t>(row);
    if (table.identifier() == kMainTable)
        put(m_layers, m_source == kFromMainTable ? m_layers : m_presets, *first, to);
    else if (table.identifier() == kPresetTable)
        put(m_presets, m_source == kFromPresetTable ? m_presets : m_layers, *first, to);
}

} // namespace wallgrid
