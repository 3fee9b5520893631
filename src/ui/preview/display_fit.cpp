// SPDX-License-Identifier: MIT
#include "ui/preview/display_fit.h"

#include <QCoreApplication>
#include <cmath>

namespace wallgrid {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("wallgrid::displayFit", text);
}

QString missing(int columns, int rows)
{
    if (columns > 0 && rows > 0)
        return tr("%1 columns on the right and %2 rows at the bottom are not shown").arg(columns).arg(rows);
    if (columns > 0)
        return tr("%1 columns on the right are not shown").arg(columns);
    return tr("%1 rows at the bottom are not shown").arg(rows);
}

} // namespace

QString displayText(const Display& display)
{
    return tr("%1, %2 × %3").arg(display.name).arg(display.pixels.width()).arg(display.pixels.height());
}

QString displayFit(const Display& display, QSize output)
{
    if (output.isEmpty())
        return tr("%1: no output").arg(display.name);
    const QSize over = output - display.pixels;
    QString text;
    if (over.width() > 0 || over.height() > 0) {
        text = tr("The display %1 is smaller than the output: %2.")
                   .arg(displayText(display), missing(over.width(), over.height()));
    }
    if (display.scale != 1) {
        if (!text.isEmpty())
            text += u' ';
        text += tr("The desktop scales %1 to %2 %; set it to 100 % to be sure of every pixel.")
                    .arg(display.name)
                    .arg(std::lround(100 * display.scale));
    }
    return text.isEmpty() ? tr("Output Preview on %1, pixel for pixel").arg(displayText(display)) : text;
}

} // namespace wallgrid
