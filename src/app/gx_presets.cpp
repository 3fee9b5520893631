// SPDX-License-Identifier: MIT
#include "app/gx_presets.h"

#include "app/row_drag.h"
#include "items/gx_screen.h"

#include <algorithm>

namespace wallgrid {

std::shared_ptr<GXPresets> GXPresets::init()
{
    auto presets = std::make_shared<GXPresets>();
    presets->setPresetScreensArray(std::make_shared<ItemArray>(ItemArray{GXScreen::init()}));
    return presets;
}

void GXPresets::awakeFromNib()
{
    if (m_table)
        m_table->registerForDraggedType(kRowDragType);
}

bool GXPresets::tableViewWriteRowsWithIndexes(TableView&, const std::set<std::size_t>& rows, Pasteboard& pasteboard)
{
    writeDraggedRows(rows, pasteboard);
    return true;
}

bool GXPresets::tableViewAcceptDrop(TableView&, const Pasteboard& dragged, std::ptrdiff_t row, DropOperation)
{
    const auto first = firstDraggedRow(dragged);
    const auto count = m_presetScreensArray ? std::ssize(*m_presetScreensArray) : 0;
    if (!first || *first >= static_cast<std::size_t>(count) || row < 0 || row > count)
        return true;
    const auto from = static_cast<std::ptrdiff_t>(*first);
    const auto begin = m_presetScreensArray->begin();
    if (from >= row) // up: it ends at the drop row
        std::rotate(begin + row, begin + from, begin + from + 1);
    else // down: its own place above the drop row closes
        std::rotate(begin + from, begin + from + 1, begin + row);
    if (m_table) {
        m_table->noteNumberOfRowsChanged();
        m_table->reloadData();
    }
    return true;
}

} // namespace wallgrid
