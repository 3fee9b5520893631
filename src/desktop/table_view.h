// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/pasteboard.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace wallgrid {

class TableView;

/// Where a drop would go: on a row, or into the gap above it. A row equal to the number of rows is the gap below all.
enum class DropOperation {
    On,
    Above,
};

/// What a drop may do, a bit for each operation.
using DragOperations = std::uint64_t;
inline constexpr DragOperations kDragOperationEvery = ~DragOperations{0};

/// Serves a table's drags and is told of its selection.
class TableDelegate {
public:
    virtual ~TableDelegate() = default;
    /// Starts a drag: puts what stands for the rows on the pasteboard. Whether the drag may go ahead.
    virtual bool tableViewWriteRowsWithIndexes(TableView& table, const std::set<std::size_t>& rows,
                                               Pasteboard& pasteboard) = 0;
    virtual DragOperations tableViewValidateDrop(TableView& table, const Pasteboard& dragged, std::ptrdiff_t row,
                                                 DropOperation operation) = 0;
    /// Performs a drop; whether it was taken.
    virtual bool tableViewAcceptDrop(TableView& table, const Pasteboard& dragged, std::ptrdiff_t row,
                                     DropOperation operation) = 0;
    virtual void tableViewSelectionDidChange() {}
};

class TableView {
public:
    virtual ~TableView() = default;
    /// Tells the tables of one delegate apart.
    virtual std::string identifier() const = 0;
    /// The delegate must outlive the table.
    virtual void setDelegate(TableDelegate* delegate) = 0;
    /// The table takes drops that carry this pasteboard type. Registering again changes nothing.
    virtual void registerForDraggedType(std::string_view type) = 0;
    /// The row that was selected last, while it is; otherwise the first selected one, if any.
    virtual std::optional<std::size_t> selectedRow() = 0;
    virtual void noteNumberOfRowsChanged() = 0;
    /// The rows show their objects' present state when they are next painted.
    virtual void reloadData() = 0;
};

} // namespace wallgrid
