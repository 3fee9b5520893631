// SPDX-License-Identifier: MIT
#pragma once

class QApplication;

namespace wallgrid {

enum class Appearance {
    Light,
    Dark,
};

/// What the desktop's own colours are like, as long as no theme is applied.
Appearance desktopAppearance();

/// Neutral greys, so that the colours of the pictures are judged in front of something without a colour of its own.
/// May be applied again.
void applyTheme(QApplication& application, Appearance appearance);

} // namespace wallgrid
