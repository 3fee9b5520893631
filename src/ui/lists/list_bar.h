// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

class QAction;
class QWidget;

namespace wallgrid {

/// The row of buttons below a list. Each says what its action's tool tip says, also to screen readers.
QWidget* makeListBar(const QList<QAction*>& actions);

} // namespace wallgrid
