// SPDX-License-Identifier: MIT
#include "ui/base/empty_hint.h"

#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace wallgrid {

QWidget* makeEmptyHint(const QString& sentence, QAction* action)
{
    auto* hint = new QWidget;
    auto* text = new QLabel(sentence);
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    auto* button = new QToolButton;
    button->setDefaultAction(action);
    auto* layout = new QVBoxLayout(hint);
    layout->addStretch();
    layout->addWidget(text);
    layout->addWidget(button, 0, Qt::AlignHCenter);
    layout->addStretch();
    return hint;
}

} // namespace wallgrid
