// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstddef>
#include <set>

namespace wallgrid {

class GXAppDelegate;

/// Visible layers that may be a mistake: what is to be said of them, and their rows. No text without such layers.
struct ReportedLayers {
    QString text;
    std::set<std::size_t> rows;
};
using LayerReport = ReportedLayers (*)(const GXAppDelegate& delegate);

/// Layers that the output does not show, or not whole.
ReportedLayers outsideLayers(const GXAppDelegate& delegate);
/// Layers that cover pixels of each other.
ReportedLayers overlappingLayers(const GXAppDelegate& delegate);

} // namespace wallgrid
