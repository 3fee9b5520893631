// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QAction;
class QWidget;

namespace wallgrid {

/// What stands where there is nothing yet: a sentence, and the button of an action that changes that.
QWidget* makeEmptyHint(const QString& sentence, QAction* action);

} // namespace wallgrid
