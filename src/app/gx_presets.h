// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/table_view.h"
#include "items/gx_item.h"

#include <memory>
#include <utility>

namespace wallgrid {

/// A preset table's controller that keeps its own list and reorders it by drag and drop, without an array controller:
/// nobody is told of a change, only the table is reloaded. Part of the library's interface: the main window's preset
/// table does not need it.
class GXPresets final : public TableDelegate {
public:
    using ItemArrayRef = std::shared_ptr<ItemArray>;

    /// With one default screen in its list.
    static std::shared_ptr<GXPresets> init();

    ItemArrayRef presetScreensArray() const { return m_presetScreensArray; }
    void setPresetScreensArray(ItemArrayRef presets) { m_presetScreensArray = std::move(presets); }
    TableView* table() const { return m_table; }
    /// The table belongs to the interface and must outlive this object or be taken away.
    void setTable(TableView* table) { m_table = table; }

    /// Registers the table for the drag type.
    void awakeFromNib();

    bool tableViewWriteRowsWithIndexes(TableView& table, const std::set<std::size_t>& rows,
                                       Pasteboard& pasteboard) override;
    DragOperations tableViewValidateDrop(TableView&, const Pasteboard&, std::ptrdiff_t, DropOperation) override
    {
        return kDragOperationEvery;
    }
    /// Moves the first dragged row, always one of its own list, wherever the drag began. Rows outside the list move
    /// nothing. Always YES.
    bool tableViewAcceptDrop(TableView& table, const Pasteboard& dragged, std::ptrdiff_t row,
                             DropOperation operation) override;

private:
    ItemArrayRef m_presetScreensArray;
    TableView* m_table = nullptr;
};

} // namespace wallgrid
