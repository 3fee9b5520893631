// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QIcon>
#include <array>
#include <vector>

namespace wallgrid {

/// The rows of an array controller. The model shows the list as of the last synchronize(), so that views never meet a
/// list that changes under them; an item may stand in more than one row.
class ItemTableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum class Column {
        Visible,
        Thumbnail,
        Name,
        Mark, ///< which marks the row has
    };
    enum class Mark {
        Overlaps,
        Outside,
    };
    using Rows = GXAppDelegate::ItemController::Indexes;

    ItemTableModel(const GXAppDelegate::ItemController& controller, std::vector<Column> columns,
                   QObject* parent = nullptr);

    /// Takes over the controller's list and the present state of its items.
    void synchronize();
    /// Puts a mark on these rows and takes it from all others.
    void setMarked(Mark mark, Rows rows);
    bool isMarked(Mark mark, int row) const { return m_marked.at(std::size_t(mark)).contains(std::size_t(row)); }
    bool hasMarks() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    static QSize thumbnailSize() { return {48, 27}; }

private:
    struct CachedThumbnail {
        std::weak_ptr<Image> image; // tells another image at the same address
        Size size;                  // a still is resized in place
        QIcon icon;
    };

    Column columnOf(const QModelIndex& index) const { return m_columns[static_cast<std::size_t>(index.column())]; }
    const GXItem& itemOf(const QModelIndex& index) const { return *m_items[static_cast<std::size_t>(index.row())]; }
    QVariant thumbnailData(const GXItem& item, int role) const;
    QVariant nameData(const GXItem& item, int role) const;
    QVariant markData(int row, int role) const;
    QIcon thumbnailOf(const GXItem& item) const;

    const GXAppDelegate::ItemController& m_controller;
    const std::vector<Column> m_columns;
    ItemArray m_items;
    std::array<Rows, 2> m_marked; // by mark
    mutable QCache<const Image*, CachedThumbnail> m_thumbnails;
};

} // namespace wallgrid
