// SPDX-License-Identifier: MIT
#include "ui/help/key_list.h"

#include "ui/base/first_size.h"

#include <QLineEdit>
#include <QMenuBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace wallgrid {

namespace {

constexpr QSize kSize(460, 640);
constexpr int kCommandWidth = 270;

QString shownName(QString menuText)
{
    return menuText.remove(u'&').remove(u'…');
}

} // namespace

KeyList::KeyList(const QMenuBar& menus)
    : QDialog(menus.window())
    , m_list(new QTreeWidget(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Keys"));
    auto* field = new QLineEdit(this);
    field->setPlaceholderText(tr("Search"));
    field->setAccessibleName(tr("Search"));
    field->setClearButtonEnabled(true);
    connect(field, &QLineEdit::textChanged, this, &KeyList::search);

    m_list->setAccessibleName(tr("Keys"));
    m_list->setHeaderLabels({tr("Command"), tr("Keys")});
    m_list->setColumnWidth(0, kCommandWidth);
    for (const QAction* action : menus.actions()) {
        auto* group = new QTreeWidgetItem(m_list, {shownName(action->text())});
        addKeysOf(*action->menu(), *group);
    }
    m_list->expandAll();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(field);
    layout->addWidget(m_list);
    resize(firstSize(*this, kSize));
    search({});
    field->setFocus();
}

void KeyList::addLine(const QAction& action, QTreeWidgetItem& group)
{
    const QString keys = QKeySequence::listToString(action.shortcuts(), QKeySequence::NativeText);
    auto* line = new QTreeWidgetItem(&group, {shownName(action.text()), QString(keys).replace("; ", tr(" or "))});
    line->setToolTip(0, action.toolTip());
}

void KeyList::addKeysOf(const QMenu& menu, QTreeWidgetItem& group)
{
    for (const QAction* action : menu.actions()) {
        if (action->menu())
            addKeysOf(*action->menu(), group);
        else if (!action->shortcut().isEmpty())
            addLine(*action, group);
    }
}

void KeyList::search(const QString& text)
{
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem* group = m_list->topLevelItem(i);
        int found = 0;
        for (int j = 0; j < group->childCount(); ++j) {
            QTreeWidgetItem* line = group->child(j);
            const QStringList words{line->text(0), line->text(1), line->toolTip(0)};
            const bool matches = !words.filter(text, Qt::CaseInsensitive).isEmpty();
            line->setHidden(!matches);
            found += matches ? 1 : 0;
        }
        group->setHidden(found == 0);
    }
}

} // namespace wallgrid
