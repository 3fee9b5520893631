// SPDX-License-Identifier: MIT
#include "ui/window/outside_text.h"

#include "app/gx_app_delegate.h"
#include "graphics/geometry.h"

#include <QCoreApplication>
#include <QStringList>

namespace wallgrid {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("wallgrid::OutsideText", text);
}

} // namespace

QString outsideText(const GXAppDelegate& delegate)
{
    const PixelRect output{0, 0, delegate.OutputWidth(), delegate.OutputHeight()};
    int outside = 0;
    int cut = 0;
    for (const ItemRef& item : delegate.arraycontroller().arrangedObjects()) {
        const PixelRect place{item->xpoint(), item->ypoint(), item->screenSizeWidth(), item->screenSizeHeight()};
        if (!item->visible() || place.empty())
            continue;
        const PixelRect shown = intersection(place, output);
        if (shown.empty())
            ++outside;
        else if (shown.width < place.width || shown.height < place.height)
            ++cut;
    }
    QStringList parts;
    if (outside > 0)
        parts.append(outside == 1 ? tr("1 layer lies outside") : tr("%1 layers lie outside").arg(outside));
    if (cut > 0)
        parts.append(cut == 1 ? tr("1 layer reaches over the edge") : tr("%1 layers reach over the edge").arg(cut));
    return parts.join(tr(", "));
}

} // namespace wallgrid
