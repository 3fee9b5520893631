// SPDX-License-Identifier: MIT
#include "ui/theme/appearance_action.h"

#include "ui/theme/theme.h"

#include <QApplication>
#include <QSettings>

namespace wallgrid {

namespace {

constexpr auto kDarkKey = "dark";

Appearance appearance(bool dark)
{
    return dark ? Appearance::Dark : Appearance::Light;
}

} // namespace

AppearanceAction::AppearanceAction(QApplication& application, QSettings& memory, QObject* parent)
    : QAction(tr("&Dark Appearance"), parent)
{
    setCheckable(true);
    setChecked(memory.value(kDarkKey, desktopAppearance() == Appearance::Dark).toBool());
    applyTheme(application, appearance(isChecked()));
    connect(this, &QAction::triggered, this, [&application, &memory](bool dark) {
        applyTheme(application, appearance(dark));
        memory.setValue(kDarkKey, dark);
    });
}

} // namespace wallgrid
