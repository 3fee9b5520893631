// SPDX-License-Identifier: MIT
#pragma once

#include "ui/lists/item_table_model.h"

#include <QStyledItemDelegate>

namespace wallgrid {

/// Draws the marks of a row at its right end, in the colour of its text: two squares for a layer that overlaps another,
/// a block across a line for one that does not lie in the output.
class MarkDelegate final : public QStyledItemDelegate {
public:
    /// From one mark to the next, in points.
    static constexpr int kPitch = 15;

    MarkDelegate(const ItemTableModel& model, QObject* parent)
        : QStyledItemDelegate(parent)
        , m_model(model)
    {
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    const ItemTableModel& m_model;
};

} // namespace wallgrid
