// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace wallgrid {

/// The title of a part of a window.
inline QLabel* makeHeading(const QString& text, QWidget* parent = nullptr)
{
    auto* heading = new QLabel(text, parent);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    return heading;
}

} // namespace wallgrid
