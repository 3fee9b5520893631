// SPDX-License-Identifier: MIT
#include "ui/lists/item_table_model.h"

#include "ui/base/image_file_name.h"
#include "ui/base/picture_icon.h"
#include "ui/base/scaled_picture.h"
#include "ui/base/shown_text.h"

#include <QApplication>
#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <algorithm>
#include <utility>

namespace wallgrid {

namespace {

constexpr int kCachedThumbnails = 1000;
constexpr int kCheckerSquare = 4;

QIcon renderThumbnail(const Image& image)
{
    const qreal ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap((ItemTableModel::thumbnailSize().toSizeF() * ratio).toSize());
    pixmap.fill(Qt::transparent);
    QRect target({}, fittedSize(image.size(), pixmap.size()));
    if (target.isEmpty() || !image.firstRepresentation())
        return {};
    target.moveCenter(pixmap.rect().center());
    QPainter painter(&pixmap);
    paintCheckerboard(painter, target, static_cast<int>(kCheckerSquare * ratio));
    painter.drawImage(target, scaledPicture(*image.firstRepresentation(), target.size(), Coverage::Strongest));
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return pictureIcon(pixmap);
}

QIcon missingIcon()
{
    const QIcon sign = QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    const qreal ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap((ItemTableModel::thumbnailSize().toSizeF() * ratio).toSize());
    pixmap.fill(Qt::transparent);
    const int height = pixmap.height() * 3 / 4;
    QRect place(0, 0, height, height);
    place.moveCenter(pixmap.rect().center());
    QPainter painter(&pixmap);
    sign.paint(&painter, place);
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return pictureIcon(pixmap);
}

QString missingText(const QString& file, int role)
{
    const QString text = ItemTableModel::tr("Image file missing or unreadable: %1").arg(file);
    return role == Qt::ToolTipRole ? plainToolTip(text) : text;
}

/// A name that was looked at and left as it was is not written back.
void rename(GXItem& item, const QString& name)
{
    if (viewOf(item.label()) != name)
        item.setLabel(makeString(name.toStdU16String()));
}

} // namespace

ItemTableModel::ItemTableModel(const GXAppDelegate::ItemController& controller, std::vector<Column> columns,
                               QObject* parent)
    : QAbstractTableModel(parent)
    , m_controller(controller)
    , m_columns(std::move(columns))
    , m_items(controller.arrangedObjects())
    , m_thumbnails(kCachedThumbnails)
{
}

void ItemTableModel::synchronize()
{
    if (m_items != m_controller.arrangedObjects()) {
        beginResetModel();
        m_items = m_controller.arrangedObjects();
        endResetModel();
    } else if (!m_items.empty()) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
}

void ItemTableModel::setMarked(Mark mark, Rows rows)
{
    Rows& marked = m_marked.at(std::size_t(mark));
    if (marked == rows)
        return;
    marked = std::move(rows);
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

bool ItemTableModel::hasMarks() const
{
    return std::any_of(m_marked.begin(), m_marked.end(), [](const Rows& rows) { return !rows.empty(); });
}

int ItemTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

int ItemTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant ItemTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= columnCount())
        return {};
    switch (m_columns[static_cast<std::size_t>(section)]) {
    case Column::Visible:
        return tr("Visible");
    case Column::Thumbnail:
        return tr("Picture");
    case Column::Name:
        return tr("Name");
    case Column::Mark:
        return tr("Remarks");
    }
    return {};
}

Qt::ItemFlags ItemTableModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return {};
    const Qt::ItemFlags flags =
        Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    switch (columnOf(index)) {
    case Column::Visible:
        return flags | Qt::ItemIsUserCheckable;
    case Column::Thumbnail:
    case Column::Mark:
        return flags;
    case Column::Name:
        return viewOf(itemOf(index).label()).size() <= kLongestEditableName ? flags | Qt::ItemIsEditable : flags;
    }
    return flags;
}

QVariant ItemTableModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const GXItem& item = itemOf(index);
    switch (columnOf(index)) {
    case Column::Visible:
        if (role == Qt::CheckStateRole)
            return item.visible() ? Qt::Checked : Qt::Unchecked;
        if (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole)
            return item.visible() ? tr("Shown in the output") : tr("Not shown in the output");
        return {};
    case Column::Thumbnail:
        return thumbnailData(item, role);
    case Column::Name:
        return nameData(item, role);
    case Column::Mark:
        return markData(index.row(), role);
    }
    return {};
}

QVariant ItemTableModel::thumbnailData(const GXItem& item, int role) const
{
    const auto missing = missingImageFile(item);
    if (role == Qt::DecorationRole)
        return missing ? missingIcon() : thumbnailOf(item);
    if (missing && (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole))
        return missingText(*missing, role);
    return {};
}

QVariant ItemTableModel::nameData(const GXItem& item, int role) const
{
    const bool unnamed = textOf(item.label()).empty();
    const auto missing = missingImageFile(item);
    switch (role) {
    case Qt::DisplayRole:
        return unnamed ? tr("(no name)") : shownText(item.label());
    case Qt::FontRole: {
        QFont font;
        font.setItalic(missing.has_value());
        return missing ? QVariant(font) : QVariant();
    }
    case Qt::ForegroundRole:
        return unnamed || missing || !item.visible() ? QVariant(QGuiApplication::palette().placeholderText())
                                                     : QVariant();
    case Qt::EditRole:
        return viewOf(item.label()).toString();
    case Qt::ToolTipRole:
        return missing ? QVariant(missingText(*missing, role)) : QVariant();
    default:
        return {};
    }
}

QVariant ItemTableModel::markData(int row, int role) const
{
    if (role != Qt::ToolTipRole && role != Qt::AccessibleTextRole)
        return {};
    QStringList texts;
    if (isMarked(Mark::Overlaps, row))
        texts.append(tr("Overlaps another layer."));
    if (isMarked(Mark::Outside, row))
        texts.append(tr("Lies outside the output, or reaches over its edge."));
    return texts.isEmpty() ? QVariant() : texts.join(u' ');
}

QIcon ItemTableModel::thumbnailOf(const GXItem& item) const
{
    const ImageRef image = item.picture();
    if (!image)
        return {};
    const CachedThumbnail* cached = m_thumbnails.object(image.get());
    if (cached && cached->image.lock() == image && cached->size == image->size())
        return cached->icon;
    const QIcon icon = renderThumbnail(*image);
    // Each edit of an item makes a new image; what shows one that is gone would only fill the cache.
    for (const Image* key : m_thumbnails.keys()) {
        if (m_thumbnails.object(key)->image.expired())
            m_thumbnails.remove(key);
    }
    m_thumbnails.insert(image.get(), new CachedThumbnail{image, image->size(), icon});
    return icon;
}

bool ItemTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    const ItemRef item = m_items[static_cast<std::size_t>(index.row())];
    const bool visibility = columnOf(index) == Column::Visible && role == Qt::CheckStateRole;
    const bool name = columnOf(index) == Column::Name && role == Qt::EditRole;
    if (!visibility && !name)
        return false;
    if (visibility)
        item->setVisible(value.toInt() == Qt::Checked);
    else
        rename(*item, value.toString());
    emit dataChanged(index, index.siblingAtColumn(columnCount() - 1));
    return true;
}

} // namespace wallgrid
