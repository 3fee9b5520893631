// SPDX-License-Identifier: MIT
#include "ui/lists/list_box.h"

#include "ui/base/heading.h"

#include <QAction>
#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace wallgrid {

namespace {

QWidget* makeButtons(const QList<QAction*>& actions)
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

} // namespace

QWidget* makeListBox(const QString& title, QWidget* list, const QList<QAction*>& actions)
{
    auto* box = new QWidget;
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(8, 6, 0, 4);
    layout->setSpacing(4);
    QLabel* heading = makeHeading(title, box);
    heading->setBuddy(list);
    layout->addWidget(heading);
    layout->addWidget(list);
    layout->addWidget(makeButtons(actions));
    return box;
}

} // namespace wallgrid
