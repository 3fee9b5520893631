// SPDX-License-Identifier: MIT
#include "ui/lists/item_table.h"

#include "ui/lists/mark_delegate.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <utility>

namespace wallgrid {

namespace {

constexpr int kRowPadding = 6;

int widthOf(ItemTableModel::Column column)
{
    switch (column) {
    case ItemTableModel::Column::Visible:
        return 28;
    case ItemTableModel::Column::Mark:
        return 2 * MarkDelegate::kPitch + 2;
    default:
        return ItemTableModel::thumbnailSize().width() + 8;
    }
}

class NameDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
        editor->setAccessibleName(ItemTable::tr("Name"));
        return editor;
    }

    /// A list that is shown anew leaves alone what is being typed or is selected for it.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override
    {
        const auto* field = qobject_cast<QLineEdit*>(editor);
        if (!field || (!field->isModified() && field->text() != index.data(Qt::EditRole).toString()))
            QStyledItemDelegate::setEditorData(editor, index);
    }
};

QItemSelection selectionOfRows(const QAbstractItemModel& model, const GXAppDelegate::ItemController::Indexes& rows)
{
    QItemSelection selection;
    const int lastColumn = model.columnCount() - 1;
    for (auto row = rows.begin(); row != rows.end();) {
        const auto first = static_cast<int>(*row);
        int last = first;
        while (++row != rows.end() && static_cast<int>(*row) == last + 1)
            ++last;
        selection.append(QItemSelectionRange(model.index(first, 0), model.index(last, lastColumn)));
    }
    return selection;
}

} // namespace

ItemTable::ItemTable(GXAppDelegate::ItemController& controller, std::vector<ItemTableModel::Column> columns,
                     QWidget* parent)
    : QTableView(parent)
    , m_controller(controller)
    , m_model(controller, columns)
    , m_reload([this] { synchronize(); })
{
    setModel(&m_model);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked);
    setItemDelegate(new NameDelegate(this));
    setIconSize(ItemTableModel::thumbnailSize());
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    horizontalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(1);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(ItemTableModel::thumbnailSize().height() + kRowPadding);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int section = static_cast<int>(i);
        const bool name = columns[i] == ItemTableModel::Column::Name;
        if (name)
            m_nameColumn = section;
        if (columns[i] == ItemTableModel::Column::Mark) {
            m_markColumn = section;
            setItemDelegateForColumn(section, new MarkDelegate(m_model, this));
            setColumnHidden(section, true);
        }
        horizontalHeader()->setSectionResizeMode(section, name ? QHeaderView::Stretch : QHeaderView::Fixed);
        if (!name)
            setColumnWidth(section, widthOf(columns[i]));
    }

    // A name is no part of any picture, so nobody else reloads the table for it.
    m_observations = {m_controller.observeArrangedObjects({"label"}, [this] { reloadData(); }),
                      m_controller.observeSelection([this] { reloadData(); })};
    reloadData();
}

void ItemTable::synchronize()
{
    const QScopedValueRollback guard(m_synchronizing, true);
    const int scrolled = verticalScrollBar()->value();
    m_model.synchronize();
    verticalScrollBar()->setValue(scrolled);
    if (m_emptyHint)
        m_emptyHint->setVisible(m_model.rowCount() == 0);
    showSelection();
}

void ItemTable::setMarked(ItemTableModel::Mark mark, const ItemTableModel::Rows& rows)
{
    m_model.setMarked(mark, rows);
    if (m_markColumn)
        setColumnHidden(*m_markColumn, !m_model.hasMarks());
}

void ItemTable::setEmptyHint(QWidget* hint)
{
    m_emptyHint = hint;
    (new QVBoxLayout(viewport()))->addWidget(hint);
    hint->setVisible(m_model.rowCount() == 0);
}

void ItemTable::showSelection()
{
    const QItemSelection wanted = selectionOfRows(m_model, m_controller.selectionIndexes());
    if (wanted == selectionModel()->selection())
        return;
    selectionModel()->select(wanted, QItemSelectionModel::ClearAndSelect);
    if (const auto first = m_controller.selectionIndex())
        selectionModel()->setCurrentIndex(m_model.index(static_cast<int>(*first), 0), QItemSelectionModel::NoUpdate);
}

void ItemTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTableView::selectionChanged(selected, deselected);
    if (m_synchronizing || m_reload.isPending())
        return;
    // The delegate knows of one row only; the controller is to have them all.
    if (m_delegate)
        m_delegate->tableViewSelectionDidChange();
    m_controller.setSelectionIndexes(selectedRows());
}

ItemTable::Rows ItemTable::selectedRows() const
{
    Rows rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.insert(static_cast<std::size_t>(row));
    }
    return rows;
}

std::optional<std::size_t> ItemTable::selectedRow()
{
    m_reload.finish();
    const Rows rows = selectedRows();
    if (rows.empty())
        return std::nullopt;
    const int current = currentIndex().row();
    return current >= 0 && rows.contains(static_cast<std::size_t>(current)) ? static_cast<std::size_t>(current)
                                                                            : *rows.begin();
}

void ItemTable::initViewItemOption(QStyleOptionViewItem* option) const
{
    QTableView::initViewItemOption(option);
    if (!hasFocus())
        option->state &= ~QStyle::State_Active;
}

bool ItemTable::viewportEvent(QEvent* event)
{
    // What is clicked must be what is there.
    if (event->type() == QEvent::MouseButtonPress)
        m_reload.finish();
    return QTableView::viewportEvent(event);
}

void ItemTable::keyPressEvent(QKeyEvent* event)
{
    m_reload.finish();
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Space && plain)
        toggleSelectedVisibility();
    else if (enter && plain && state() != EditingState) // the key that ends an edit comes here, too
        renameSelection();
    else
        QTableView::keyPressEvent(event);
}

void ItemTable::renameSelection()
{
    const auto row = selectedRow();
    if (!row || state() == EditingState)
        return;
    const QModelIndex name = m_model.index(static_cast<int>(*row), m_nameColumn);
    if (m_model.flags(name) & Qt::ItemIsEditable) {
        scrollTo(name);
        edit(name);
    }
}

void ItemTable::toggleSelectedVisibility()
{
    if (const ItemRef first = m_controller.selectedObject()) {
        const bool visible = !first->visible();
        const auto rows = m_controller.selectionIndexes();
        for (const std::size_t row : rows)
            m_controller.arrangedObjects()[row]->setVisible(visible);
    }
}

} // namespace wallgrid
