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

QString cutOff(int columns, int rows)
{
    if (columns > 0 && rows > 0)
        return tr("%1 columns and %2 rows").arg(columns).arg(rows);
    return columns > 0 ? tr("%1 columns").arg(columns) : tr("%1 rows").arg(rows);
}

} // namespace

QString displayText(const Display& display)
{
    return tr("%1, %2 × %3").arg(display.name).arg(display.pixels.width()).arg(display.pixels.height());
}

bool showsExactly(const Display& display, QSize output)
{
    return display.scale == 1 && output.boundedTo(display.pixels) == output;
}

QString displayFit(const Display& display, QSize output)
{
    if (output.isEmpty())
        return tr("%1: no output").arg(display.name);
    const QSize over = output - display.pixels;
    QString text;
    if (over.width() > 0 || over.height() > 0) {
        text = tr("%1, is smaller than the output and cuts off %2.")
                   .arg(displayText(display), cutOff(over.width(), over.height()));
    }
    if (display.scale != 1) {
        if (!text.isEmpty())
            text += u' ';
        text += tr("The desktop scales %1 to %2 %: set it to 100 % for exact pixels.")
                    .arg(display.name)
                    .arg(std::lround(100 * display.scale));
    }
    return text.isEmpty() ? tr("Output Preview on %1, pixel for pixel").arg(displayText(display)) : text;
}

} // namespace wallgrid
