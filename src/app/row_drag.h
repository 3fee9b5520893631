// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/pasteboard.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string_view>

namespace wallgrid {

/// The pasteboard type of rows dragged inside and between tables. Its data is a keyed archive of the rows' index set.
inline constexpr std::string_view kRowDragType = "BasicTableViewDragAndDropDataType";

void writeDraggedRows(const std::set<std::size_t>& rows, Pasteboard& pasteboard);

/// The one row that a drop moves or copies, whatever other rows were dragged with it. Nothing when the pasteboard
/// carries no rows.
std::optional<std::size_t> firstDraggedRow(const Pasteboard& pasteboard);

} // namespace wallgrid
