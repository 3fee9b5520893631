// SPDX-License-Identifier: MIT
#pragma once

#include "base/registration.h"
#include "desktop/table_view.h"
#include "desktop/views.h"
#include "graphics/geometry.h"
#include "graphics/image.h"

#include <memory>

namespace wallgrid {

/// Views that belong to the interface, each may be missing.
struct Outlets {
    Window* outputWindow = nullptr; ///< holds the large preview
    TableView* table = nullptr;     ///< the main list table, "mainTView"
    TableView* ptable = nullptr;    ///< the preset table, "presetTView"
    ImageView* miniPvw = nullptr;   ///< the small preview in the main window
    SheetLoader* sheets = nullptr;  ///< the sheets of the main window
    WindowLoader* windows = nullptr;
};

/// The views that show a document, from when the interface connects them until it lets go of the registration.
class ConnectedViews {
public:
    Registration connect(const Outlets& outlets);
    /// None without an interface.
    Outlets outlets() const { return views(); }
    /// The large preview; null before it is built.
    ImageView* preview() const { return views().preview; }

    /// Both tables take drags of rows.
    void registerTables() const;
    void setTableDelegate(TableDelegate& delegate) const;
    /// Adds the large preview to the output window. The size is that of the output.
    void buildPreview(Size output);
    void reloadTable() const;
    /// In both previews; empty clears them.
    void show(const ImageRef& image) const;

private:
    struct Views : Outlets {
        ImageView* preview = nullptr; ///< owned by the output window
    };
    Views views() const;

    std::weak_ptr<Views> m_views;
};

} // namespace wallgrid
