// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "app/undo_history.h"
#include "graphics/geometry.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace wallgrid {

/// Adds layers for someone who builds a stage: a screen gets the panel size that a screen was given last in this run of
/// the program, and a new layer lies where nothing lies yet, as long as the output has such a place. One step of the
/// history each. The window owns it.
class NewLayers {
public:
    NewLayers(GXAppDelegate& delegate, UndoHistory& history);

    void addScreen();
    /// The image file that is chosen in a panel.
    void addImage();
    /// An image file, named, with its middle at a point of the output as far as it then fits into the output; at a free
    /// place when there is no point.
    void addImageAt(const UrlRef& location, StringRef name, std::optional<PixelPoint> middle);

private:
    struct PanelSize {
        std::int32_t width = 0;
        std::int32_t height = 0;
    };

    /// Runs a command that may insert a layer, and finishes that layer before anything is composed.
    void add(const std::function<void()>& command, const std::function<void(GXItem&)>& finish);
    void placeFreely(GXItem& layer);
    void noteLastStep();

    GXAppDelegate& m_delegate;
    UndoHistory& m_history;
    std::optional<PanelSize> m_lastPanel;
    Registration m_observation;
};

} // namespace wallgrid
