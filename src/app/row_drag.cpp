// SPDX-License-Identifier: MIT
#include "app/row_drag.h"

#include "archive/archived_index_set.h"

namespace wallgrid {

void writeDraggedRows(const std::set<std::size_t>& rows, Pasteboard& pasteboard)
{
    pasteboard.declareType(kRowDragType);
    pasteboard.setData(archivedIndexSet(rows), kRowDragType);
}

std::optional<std::size_t> firstDraggedRow(const Pasteboard& pasteboard)
{
    const Bytes* data = pasteboard.dataForType(kRowDragType);
    if (!data)
        return std::nullopt;
    const auto first = firstIndexOfArchivedSet(*data);
    return first ? std::optional(*first) : std::nullopt;
}

} // namespace wallgrid
