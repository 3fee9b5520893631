// SPDX-License-Identifier: MIT
#include "app/document_files.h"

#include "app/preset_file.h"
#include "png/png_encoder.h"

#include <memory>
#include <utility>

namespace wallgrid {

namespace {

/// A share of the time that an export takes. The rest is writing the file.
constexpr double kEncodingShare = 0.8;

} // namespace

UrlRef DocumentFiles::chooseNew(std::string_view extension) const
{
    UrlRef chosen = m_desktop.panels.runSavePanel();
    // Exactly that one: "wall.MPR" becomes "wall.MPR.mpr".
    if (!chosen || chosen->pathExtension() == extension)
        return chosen;
    return std::make_shared<const Url>(chosen->appendingPathExtension(extension));
}

bool DocumentFiles::writeProject(const Url& location, const Project& project) const
{
    bool written = false;
    m_desktop.progress.run(LongWork::SaveProject, [&](const Report& report) {
        written = m_desktop.files.write(location, wallgrid::writeProject(project), report).has_value();
    });
    return written;
}

std::optional<Project> DocumentFiles::readProject(const Url& location, Bytes bytes) const
{
    Expected<Project> project = cancelled();
    m_desktop.progress.run(LongWork::OpenProject,
                           [&](const Report& report) { project = wallgrid::readProject(std::move(bytes), report); });
    if (project)
        return std::move(*project);
    m_desktop.files.report(location, project.error());
    return std::nullopt;
}

void DocumentFiles::writePresets(const Url& location, const ItemArray& presets) const
{
    m_desktop.files.write(location, wallgrid::writePresets(presets));
}

std::optional<ItemArray> DocumentFiles::readPresets(const Url& location) const
{
    auto bytes = m_desktop.files.read(location);
    if (!bytes)
        return std::nullopt;
    auto presets = wallgrid::readPresets(std::move(*bytes));
    if (presets)
        return std::move(*presets);
    m_desktop.files.report(location, presets.error());
    return std::nullopt;
}

void DocumentFiles::writePNG(const Url& location, const Expected<BitmapRef>& raster) const
{
    if (!raster)
        return m_desktop.files.report(location, raster.error());
    m_desktop.progress.run(LongWork::ExportPNG, [&](const Report& report) {
        if (const auto png = encodePng(**raster, partOf(report, 0, kEncodingShare)))
            m_desktop.files.write(location, *png, partOf(report, kEncodingShare, 1));
        else
            m_desktop.files.report(location, png.error());
    });
}

} // namespace wallgrid
