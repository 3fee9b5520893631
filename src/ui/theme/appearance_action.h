// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>

class QApplication;
class QSettings;

namespace wallgrid {

/// The menu's switch between the dark and the light theme. Starts as the user left it, at first like the desktop.
class AppearanceAction final : public QAction {
    Q_OBJECT

public:
    /// Applies the theme. The settings remember the choice.
    AppearanceAction(QApplication& application, QSettings& memory, QObject* parent = nullptr);
};

} // namespace wallgrid
