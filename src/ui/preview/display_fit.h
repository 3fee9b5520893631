// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>

namespace wallgrid {

/// A display that the output is shown on, pixel for pixel.
struct Display {
    QString name;
    QSize pixels;     ///< of the display itself
    double scale = 1; ///< of the desktop on it
};

/// "HDMI-1, 1920 × 1080"
QString displayText(const Display& display);

/// Whether the display shows all of an output of this size, pixel for pixel.
bool showsExactly(const Display& display, QSize output);

/// In words, what the display shows of an output of this size: all of it, or what is missing and why.
QString displayFit(const Display& display, QSize output);

} // namespace wallgrid
