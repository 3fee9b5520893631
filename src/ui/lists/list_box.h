// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

class QAction;
class QString;
class QWidget;

namespace wallgrid {

/// A list between its title, which has its mnemonic, and a row of buttons. Each button says what its action's tool tip
/// says, also to screen readers.
QWidget* makeListBox(const QString& title, QWidget* list, const QList<QAction*>& actions);

} // namespace wallgrid
