// SPDX-License-Identifier: MIT
#include "ui/lists/mark_delegate.h"

#include <QPainter>

namespace wallgrid {

namespace {

constexpr int kSide = 11;

} // namespace

void MarkDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setPen(
        option.palette.color(option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive,
                             selected ? QPalette::HighlightedText : QPalette::Text));
    painter->translate(QPoint(option.rect.right() + 1 - kPitch, option.rect.center().y() - kSide / 2));
    if (m_model.isMarked(ItemTableModel::Mark::Outside, index.row())) {
        painter->drawLine(5, 0, 5, kSide);
        painter->fillRect(1, 3, 9, 5, painter->pen().color());
        painter->translate(-kPitch, 0);
    }
    if (m_model.isMarked(ItemTableModel::Mark::Overlaps, index.row())) {
        painter->drawRect(0, 0, 6, 6);
        painter->drawRect(4, 4, 6, 6);
    }
    painter->restore();
}

} // namespace wallgrid
