// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QMenu;
class QMenuBar;
class QTreeWidget;
class QTreeWidgetItem;

namespace wallgrid {

/// The keys of all commands of a menu bar, as they are when the list is opened. What is typed searches commands, tool
/// tips and keys; Esc closes the list, which deletes itself.
class KeyList final : public QDialog {
    Q_OBJECT

public:
    explicit KeyList(const QMenuBar& menus);

private:
    void addKeysOf(const QMenu& menu, QTreeWidgetItem& group);
    static void addLine(const QAction& action, QTreeWidgetItem& group);
    void search(const QString& text);

    QTreeWidget* m_list;
};

} // namespace wallgrid
