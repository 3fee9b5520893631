// SPDX-License-Identifier: MIT
#include "ui/theme/theme.h"

#include "ui/theme/theme_style.h"

#include <QApplication>
#include <QPalette>
#include <array>

namespace wallgrid {

namespace {

struct Shade {
    QPalette::ColorRole role;
    QRgb dark;
    QRgb light;
};

constexpr QRgb kAccent = 0x3b6ea8;

constexpr std::array kShades{
    Shade{QPalette::Window, 0x2d2d2d, 0xededed},      Shade{QPalette::WindowText, 0xe2e2e2, 0x1c1c1c},
    Shade{QPalette::Base, 0x1a1a1a, 0xfcfcfc},        Shade{QPalette::AlternateBase, 0x202020, 0xf4f4f4},
    Shade{QPalette::Text, 0xe2e2e2, 0x1c1c1c},        Shade{QPalette::PlaceholderText, 0x8a8a8a, 0x6c6c6c},
    Shade{QPalette::Button, 0x3c3c3c, 0xe2e2e2},      Shade{QPalette::ButtonText, 0xe2e2e2, 0x1c1c1c},
    Shade{QPalette::BrightText, 0xffffff, 0xffffff},  Shade{QPalette::ToolTipBase, 0x3c3c3c, 0xfcfcfc},
    Shade{QPalette::ToolTipText, 0xe2e2e2, 0x1c1c1c}, Shade{QPalette::Light, 0x505050, 0xffffff},
    Shade{QPalette::Midlight, 0x464646, 0xf2f2f2},    Shade{QPalette::Mid, 0x4a4a4a, 0xa6a6a6},
    Shade{QPalette::Dark, 0x1e1e1e, 0x8c8c8c},        Shade{QPalette::Shadow, 0x141414, 0x5a5a5a},
    Shade{QPalette::Highlight, kAccent, kAccent},     Shade{QPalette::HighlightedText, 0xffffff, 0xffffff},
    Shade{QPalette::Link, 0x6aa5e0, 0x1f5fa6},        Shade{QPalette::LinkVisited, 0xa58cd0, 0x6b4aa0},
};

constexpr std::array kDisabledShades{
    Shade{QPalette::PlaceholderText, 0x585858, 0xb4b4b4},
    Shade{QPalette::WindowText, 0x707070, 0x9a9a9a},
    Shade{QPalette::Text, 0x707070, 0x9a9a9a},
    Shade{QPalette::ButtonText, 0x707070, 0x9a9a9a},
    Shade{QPalette::HighlightedText, 0x707070, 0x9a9a9a},
    Shade{QPalette::Highlight, 0x505050, 0xc8c8c8},
};

// The selection of a table that has not the keyboard.
constexpr std::array kInactiveShades{
    Shade{QPalette::Highlight, 0x424b56, 0xc6d3e2},
    Shade{QPalette::HighlightedText, 0xffffff, 0x1c1c1c},
};

} // namespace

Appearance desktopAppearance()
{
    return QGuiApplication::palette().color(QPalette::Window).lightness() < 128 ? Appearance::Dark : Appearance::Light;
}

void applyTheme(QApplication& application, Appearance appearance)
{
    QPalette palette;
    const auto colorOf = [appearance](const Shade& shade) {
        return QColor::fromRgb(appearance == Appearance::Dark ? shade.dark : shade.light);
    };
    for (const Shade& shade : kShades)
        palette.setColor(shade.role, colorOf(shade));
    for (const Shade& shade : kDisabledShades)
        palette.setColor(QPalette::Disabled, shade.role, colorOf(shade));
    for (const Shade& shade : kInactiveShades)
        palette.setColor(QPalette::Inactive, shade.role, colorOf(shade));

    if (!qobject_cast<ThemeStyle*>(QApplication::style()))
        application.setStyle(new ThemeStyle);
    application.setPalette(palette);
}

} // namespace wallgrid
