// SPDX-License-Identifier: MIT
#include "ui/theme.h"

#include "ui/theme_style.h"

#include <QApplication>
#include <QPalette>

namespace wallgrid {

void applyTheme(QApplication& application)
{
    constexpr QColor kWindow{0x2d, 0x2d, 0x2d};
    constexpr QColor kSunken{0x23, 0x23, 0x23};
    constexpr QColor kRaised{0x3c, 0x3c, 0x3c};
    constexpr QColor kText{0xe2, 0xe2, 0xe2};
    constexpr QColor kFaintText{0x8a, 0x8a, 0x8a};
    constexpr QColor kAccent{0x3b, 0x6e, 0xa8};

    QPalette palette;
    palette.setColor(QPalette::Window, kWindow);
    palette.setColor(QPalette::WindowText, kText);
    palette.setColor(QPalette::Base, kSunken);
    palette.setColor(QPalette::AlternateBase, QColor(0x28, 0x28, 0x28));
    palette.setColor(QPalette::Text, kText);
    palette.setColor(QPalette::PlaceholderText, kFaintText);
    palette.setColor(QPalette::Button, kRaised);
    palette.setColor(QPalette::ButtonText, kText);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, kRaised);
    palette.setColor(QPalette::ToolTipText, kText);
    palette.setColor(QPalette::Light, QColor(0x50, 0x50, 0x50));
    palette.setColor(QPalette::Midlight, QColor(0x46, 0x46, 0x46));
    palette.setColor(QPalette::Mid, QColor(0x4a, 0x4a, 0x4a));
    palette.setColor(QPalette::Dark, QColor(0x1e, 0x1e, 0x1e));
    palette.setColor(QPalette::Shadow, QColor(0x14, 0x14, 0x14));
    palette.setColor(QPalette::Highlight, kAccent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6a, 0xa5, 0xe0));
    palette.setColor(QPalette::LinkVisited, QColor(0xa5, 0x8c, 0xd0));
    palette.setColor(QPalette::Disabled, QPalette::PlaceholderText, QColor(0x58, 0x58, 0x58));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, QColor(0x70, 0x70, 0x70));
    // The selection of a table that has not the keyboard.
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0x42, 0x4b, 0x56));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x50, 0x50, 0x50));

    application.setStyle(new ThemeStyle);
    application.setPalette(palette);
}

} // namespace wallgrid
