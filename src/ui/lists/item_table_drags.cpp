// SPDX-License-Identifier: MIT
#include "ui/lists/item_table.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPainter>
#include <QUuid>
#include <algorithm>

namespace wallgrid {

namespace {

constexpr int kDropLine = 2;
/// The picture hangs beside the pointer, where it does not hide the gap that is marked.
constexpr QPoint kDragPictureHotSpot(-12, -6);

/// Rows of another running Wallgrid say nothing about the lists of this one, so each run marks its drags as its own.
constexpr auto kRunType = "application/x-wallgrid-run";

QByteArray thisRun()
{
    static const QByteArray run = QUuid::createUuid().toByteArray();
    return run;
}

QMimeData* mimeDataOf(const Pasteboard& pasteboard)
{
    auto* data = new QMimeData;
    data->setData(kRunType, thisRun());
    for (const auto& [type, bytes] : pasteboard.contents()) {
        data->setData(QString::fromStdString(type),
                      QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())));
    }
    return data;
}

} // namespace

void ItemTable::registerForDraggedType(std::string_view type)
{
    const auto name = QString::fromUtf8(type.data(), static_cast<qsizetype>(type.size()));
    if (!m_draggedTypes.contains(name))
        m_draggedTypes.append(name);
    setDragDropMode(DragDrop);
}

Pasteboard ItemTable::pasteboardOf(const QMimeData& mimeData) const
{
    Pasteboard pasteboard;
    if (mimeData.data(kRunType) != thisRun())
        return pasteboard;
    for (const QString& type : m_draggedTypes) {
        if (!mimeData.hasFormat(type))
            continue;
        const QByteArray bytes = mimeData.data(type);
        pasteboard.declareType(type.toStdString());
        pasteboard.setData({bytes.begin(), bytes.end()}, type.toStdString());
        break;
    }
    return pasteboard;
}

void ItemTable::startDrag(Qt::DropActions)
{
    m_reload.finish();
    const Rows rows = selectedRows();
    Pasteboard pasteboard;
    if (rows.empty() || !m_delegate || !m_delegate->tableViewWriteRowsWithIndexes(*this, rows, pasteboard))
        return;
    auto* drag = new QDrag(this); // deletes itself
    drag->setMimeData(mimeDataOf(pasteboard));
    // Only the first row will be dropped, so that one is seen to move.
    const QRect first(0, topOfRow(static_cast<int>(*rows.begin())), viewport()->width(), rowHeight(0));
    if (viewport()->rect().contains(first)) {
        drag->setPixmap(viewport()->grab(first));
        drag->setHotSpot(kDragPictureHotSpot);
    }
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
}

void ItemTable::dropSelectionOn(ItemTable& target, std::ptrdiff_t row)
{
    m_reload.finish();
    Pasteboard pasteboard;
    if (m_delegate && m_delegate->tableViewWriteRowsWithIndexes(*this, selectedRows(), pasteboard))
        target.acceptDrop(pasteboard, row);
}

void ItemTable::acceptDrop(const Pasteboard& dragged, std::ptrdiff_t row)
{
    m_delegate->tableViewAcceptDrop(*this, dragged, row, DropOperation::Above);
    setFocus(); // what was dropped is selected here
}

void ItemTable::moveSelection(Direction direction)
{
    m_reload.finish();
    const Rows rows = selectedRows();
    if (rows.empty())
        return;
    const auto first = static_cast<std::ptrdiff_t>(*rows.begin());
    const std::ptrdiff_t gap = direction == Direction::Up ? first - 1 : first + 2;
    if (gap >= 0 && gap <= m_model.rowCount())
        dropSelectionOn(*this, gap);
}

int ItemTable::topOfRow(int row) const
{
    const int count = m_model.rowCount();
    if (row < count)
        return rowViewportPosition(row);
    return count == 0 ? 0 : rowViewportPosition(count - 1) + rowHeight(count - 1);
}

int ItemTable::gapAt(int y) const
{
    const int row = rowAt(y);
    if (row < 0)
        return m_model.rowCount();
    return y < rowViewportPosition(row) + rowHeight(row) / 2 ? row : row + 1;
}

bool ItemTable::validateDrop(QDropEvent& event)
{
    m_reload.finish();
    const int y = event.position().toPoint().y();
    const Pasteboard dragged = pasteboardOf(*event.mimeData());
    const bool valid = m_delegate && !dragged.contents().empty() &&
                       m_delegate->tableViewValidateDrop(*this, dragged, gapAt(y), DropOperation::Above) != 0;
    if (valid)
        event.setDropAction(event.source() == this ? Qt::MoveAction : Qt::CopyAction);
    event.setAccepted(valid);
    markGapAt(valid ? std::optional(y) : std::nullopt);
    return valid;
}

void ItemTable::markGapAt(std::optional<int> y)
{
    m_dropY = y;
    viewport()->update();
}

void ItemTable::dragEnterEvent(QDragEnterEvent* event)
{
    validateDrop(*event);
}

void ItemTable::dragMoveEvent(QDragMoveEvent* event)
{
    QTableView::dragMoveEvent(event); // scrolls at the edges
    validateDrop(*event);
}

void ItemTable::dragLeaveEvent(QDragLeaveEvent* event)
{
    QTableView::dragLeaveEvent(event);
    markGapAt(std::nullopt);
}

void ItemTable::dropEvent(QDropEvent* event)
{
    if (validateDrop(*event))
        acceptDrop(pasteboardOf(*event->mimeData()), gapAt(*m_dropY));
    QDragLeaveEvent over;
    dragLeaveEvent(&over);
}

void ItemTable::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    if (!m_dropY)
        return;
    const int y =
        std::clamp(topOfRow(gapAt(*m_dropY)) - kDropLine / 2, 0, std::max(0, viewport()->height() - kDropLine));
    QPainter(viewport()).fillRect(0, y, viewport()->width(), kDropLine, palette().text());
}

} // namespace wallgrid
