// SPDX-License-Identifier: MIT
#pragma once

#include "platform/views.h"
#include "ui/deferred.h"
#include "ui/item_table_model.h"

#include <QStringList>
#include <QTableView>

namespace wallgrid {

/// A table of items that shares its selection with an array controller, both ways. The space bar shows and hides the
/// selected items.
class ItemTable final : public QTableView, public TableView {
    Q_OBJECT

public:
    /// The controller must outlive the table and tell it nothing once the table has ended.
    ItemTable(GXAppDelegate::ItemController& controller, std::vector<ItemTableModel::Column> columns,
              QWidget* parent = nullptr);

    void reloadData() override { m_reload.schedule(); }
    void registerForDraggedType(std::string_view type) override;
    const QStringList& draggedTypes() const { return m_draggedTypes; }

protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void synchronize();
    void showSelection();
    void toggleSelectedVisibility();

    GXAppDelegate::ItemController& m_controller;
    ItemTableModel m_model;
    Deferred m_reload;
    bool m_synchronizing = false;
    QStringList m_draggedTypes;
};

} // namespace wallgrid
