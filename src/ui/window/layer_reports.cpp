// SPDX-License-Identifier: MIT
#include "ui/window/layer_reports.h"

#include "app/arrangement.h"
#include "app/overlaps.h"

#include <QCoreApplication>
#include <QStringList>

namespace wallgrid {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("wallgrid::LayerReports", text);
}

} // namespace

ReportedLayers outsideLayers(const GXAppDelegate& delegate)
{
    const PixelRect output{0, 0, delegate.OutputWidth(), delegate.OutputHeight()};
    const ItemArray& layers = delegate.arraycontroller().arrangedObjects();
    ReportedLayers reported;
    int outside = 0;
    for (std::size_t row = 0; row < layers.size(); ++row) {
        const PixelRect place = layers[row]->frame();
        const PixelRect shown = intersection(place, output);
        if (!layers[row]->visible() || place.empty() || shown == place)
            continue;
        outside += shown.empty() ? 1 : 0;
        reported.rows.insert(reported.rows.end(), row);
    }
    const int cut = static_cast<int>(reported.rows.size()) - outside;
    QStringList parts;
    if (outside > 0)
        parts.append(outside == 1 ? tr("1 layer lies outside") : tr("%1 layers lie outside").arg(outside));
    if (cut > 0)
        parts.append(cut == 1 ? tr("1 layer reaches over the edge") : tr("%1 layers reach over the edge").arg(cut));
    reported.text = parts.join(tr(", "));
    return reported;
}

ReportedLayers overlappingLayers(const GXAppDelegate& delegate)
{
    Overlaps overlaps = findOverlaps(delegate.arraycontroller().arrangedObjects());
    QString text;
    if (overlaps.pairs > 0)
        text = overlaps.pairs == 1 ? tr("1 pair overlaps") : tr("%1 pairs overlap").arg(overlaps.pairs);
    return {text, std::move(overlaps.rows)};
}

} // namespace wallgrid
