// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace wallgrid {

/// As long as it lives the desktop neither starts a screen saver nor lets a display sleep. A desktop that cannot be
/// asked (org.freedesktop.ScreenSaver on the session bus) does as it likes.
class DisplayWake {
public:
    /// What a desktop tells a user who asks what keeps the displays awake.
    explicit DisplayWake(const QString& reason);
    ~DisplayWake();
    DisplayWake(const DisplayWake&) = delete;
    DisplayWake& operator=(const DisplayWake&) = delete;
};

} // namespace wallgrid
