// SPDX-License-Identifier: MIT
#pragma once

#include "app/project_file.h"
#include "base/error.h"
#include "base/url.h"
#include "desktop/desktop.h"
#include "graphics/bitmap.h"
#include "items/gx_item.h"

#include <optional>
#include <string_view>

namespace wallgrid {

/// Reads and writes the files of a document, with panels and progress. Failures go to the log.
class DocumentFiles {
public:
    explicit DocumentFiles(const Desktop& desktop)
        : m_desktop(desktop)
    {
    }

    /// The location chosen for a new file, the extension appended unless it is there; empty when none was chosen.
    UrlRef chooseNew(std::string_view extension) const;

    /// Whether the file was written.
    bool writeProject(const Url& location, const Project& project) const;
    /// The project that the bytes of a file are.
    std::optional<Project> readProject(const Url& location, Bytes bytes) const;

    void writePresets(const Url& location, const ItemArray& presets) const;
    std::optional<ItemArray> readPresets(const Url& location) const;

    /// The raster, or why there is none.
    void writePNG(const Url& location, const Expected<BitmapRef>& raster) const;

private:
    Desktop m_desktop;
};

} // namespace wallgrid
