// SPDX-License-Identifier: MIT
#include "ui/lists/list_bar.h"

#include <QAction>
#include <QHBoxLayout>
#include <QToolButton>

namespace wallgrid {

QWidget* makeListBar(const QList<QAction*>& actions)
{
    auto* bar = new QWidget;
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins({});
    layout->setSpacing(4);
    for (QAction* action : actions) {
        auto* button = new QToolButton;
        button->setDefaultAction(action);
        button->setAccessibleName(action->toolTip());
        if (!action->shortcut().isEmpty())
            button->setToolTip(QStringLiteral("%1 (%2)").arg(action->toolTip(),
                                                             action->shortcut().toString(QKeySequence::NativeText)));
        layout->addWidget(button);
    }
    layout->addStretch();
    return bar;
}

} // namespace wallgrid
