// SPDX-License-Identifier: MIT
//
// Any bytes on the pasteboard as dragged rows: there is a first row or none, and a row that came can be dragged on.
#include "app/row_drag.h"
#include "fuzz/fuzz_target.h"

using namespace wallgrid;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Pasteboard dragged;
    dragged.declareType(kRowDragType);
    dragged.setData(bytesOf(data, size), kRowDragType);
    const auto row = firstDraggedRow(dragged);
    if (!row)
        return 0;
    FUZZ_CHECK(*row < std::size_t{1} << 31);
    Pasteboard onward;
    writeDraggedRows({*row, *row + 1, *row + 3}, onward);
    FUZZ_CHECK(firstDraggedRow(onward) == *row);
    return 0;
}
