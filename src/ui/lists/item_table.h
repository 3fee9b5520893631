// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/table_view.h"
#include "ui/base/deferred.h"
#include "ui/lists/item_table_model.h"

#include <QStringList>
#include <QTableView>
#include <array>
#include <optional>

namespace wallgrid {

/// A table of items that shares its selection with an array controller, both ways, and lets its delegate serve the
/// drags of its rows; its object name is its identifier. The space bar shows and hides the selected items; a double
/// click or Enter edits a name.
class ItemTable final : public QTableView, public TableView {
    Q_OBJECT

public:
    ItemTable(GXAppDelegate::ItemController& controller, std::vector<ItemTableModel::Column> columns,
              QWidget* parent = nullptr);

    std::string identifier() const override { return objectName().toStdString(); }
    void setDelegate(TableDelegate* delegate) override { m_delegate = delegate; }
    void registerForDraggedType(std::string_view type) override;
    std::optional<std::size_t> selectedRow() override;
    void noteNumberOfRowsChanged() override { m_reload.schedule(); }
    void reloadData() override { m_reload.schedule(); }
    /// Puts a mark on these rows and takes it from all others.
    void setMarked(ItemTableModel::Mark mark, const ItemTableModel::Rows& rows);
    /// Shown in the table while it has no rows.
    void setEmptyHint(QWidget* hint);
    const QStringList& draggedTypes() const { return m_draggedTypes; }

    enum class Direction {
        Up,
        Down,
    };
    /// Edits the name of the row that was selected last.
    void renameSelection();
    // What the mouse does by dragging, for the keyboard. The first of several selected rows moves.
    void moveSelection(Direction direction);
    /// Into the gap above a row of a table.
    void dropSelectionOn(ItemTable& target, std::ptrdiff_t row);

signals:
    /// The selected rows are to be removed.
    void removalWanted();

protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    void startDrag(Qt::DropActions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    using Rows = GXAppDelegate::ItemController::Indexes;

    void synchronize();
    void showSelection();
    Rows selectedRows() const;
    Pasteboard pasteboardOf(const QMimeData& mimeData) const;
    /// Whether the delegate takes a drop at the event's place; the event is answered, and the place shown or not.
    bool validateDrop(QDropEvent& event);
    void acceptDrop(const Pasteboard& dragged, std::ptrdiff_t row);
    /// The row whose upper gap is nearest to a height in the viewport.
    int gapAt(int y) const;
    void markGapAt(std::optional<int> y);
    /// Where the gap above a row is, in the viewport.
    int topOfRow(int row) const;
    void toggleSelectedVisibility();

    GXAppDelegate::ItemController& m_controller;
    ItemTableModel m_model;
    int m_nameColumn = 0;
    std::optional<int> m_markColumn; // hidden while no row has a mark
    QWidget* m_emptyHint = nullptr;
    Deferred m_reload;
    std::array<Registration, 2> m_observations;
    bool m_synchronizing = false;
    QStringList m_draggedTypes;
    TableDelegate* m_delegate = nullptr;
    std::optional<int> m_dropY; ///< where a drag is over the table; the rows may scroll below it
};

} // namespace wallgrid
