// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"
#include "png/png_encoder.h"

#include <cstddef>
#include <utility>

namespace wallgrid {

namespace {

/// Of the time that an export takes; the rest is writing the file.
constexpr double kEncodingShare = 0.8;

/// The location with the extension appended, unless it has exactly that one: "wall.MPR" becomes "wall.MPR.mpr".
Url withExtension(const Url& location, std::string_view extension)
{
    return location.pathExtension() == extension ? location : location.appendingPathExtension(extension);
}

} // namespace

Project GXAppDelegate::project() const
{
    return {m_OutputHeight, m_OutputWidth, m_arraycontroller.arrangedObjects()};
}

void GXAppDelegate::saveProject()
{
    const UrlRef chosen = m_desktop.panels.runSavePanel();
    if (!chosen)
        return;
    const auto location = std::make_shared<const Url>(withExtension(*chosen, "mpr"));
    bool written = false;
    m_desktop.progress.run(LongWork::SaveProject, [&](const Report& report) {
        written = m_desktop.files.write(*location, writeProject(project()), report).has_value();
    });
    if (written)
        m_documentFile->location = location;
    m_desktop.recentDocuments.noteNewRecentDocument(location);
}

void GXAppDelegate::loadProject(const Project& project, UrlRef location)
{
    // A pass in between would show new items over the old ones.
    const bool mayUpdate = std::exchange(m_shouldUpdate, false);
    const ItemArray old = m_arraycontroller.arrangedObjects();
    m_documentFile = std::make_shared<DocumentFile>(DocumentFile{std::move(location)});
    setOutputHeight(project.outputHeight);
    setOutputWidth(project.outputWidth);
    std::size_t index = 0;
    for (const ItemRef& item : project.items)
        m_arraycontroller.insertObjectAtArrangedObjectIndex(item, index++);
    m_arraycontroller.removeObjects(old);
    m_arraycontroller.setSelectionIndex(0);
    m_shouldUpdate = mayUpdate;
    update();
}

Expected<Project> GXAppDelegate::readProjectWithProgress(Bytes bytes) const
{
    Expected<Project> project = cancelled();
    m_desktop.progress.run(LongWork::OpenProject,
                           [&](const Report& report) { project = readProject(std::move(bytes), report); });
    return project;
}

void GXAppDelegate::openProject()
{
    if (const UrlRef location = m_desktop.panels.runOpenPanel()) {
        if (auto bytes = m_desktop.files.read(*location)) {
            if (const auto project = readProjectWithProgress(std::move(*bytes))) {
                m_desktop.recentDocuments.noteNewRecentDocument(location);
                loadProject(*project, location);
            } else {
                m_desktop.files.report(*location, project.error());
            }
        }
    }
    m_shouldUpdate = true;
    update();
}

bool GXAppDelegate::applicationOpenFile(std::string_view fileName)
{
    const auto location = Url::fromString(fileName);
    auto bytes = location ? m_desktop.files.read(*location) : Expected<Bytes>(failure("no location"));
    if (!bytes) {
        m_desktop.panels.runAlert("No File Found", "File Not Found");
        return true;
    }
    if (const auto project = readProjectWithProgress(std::move(*bytes)))
        loadProject(*project, std::make_shared<const Url>(*location));
    else
        m_desktop.files.report(*location, project.error());
    return true;
}

Expected<BitmapRef> GXAppDelegate::rasterToExport() const
{
    if (m_offscreenRep)
        return m_offscreenRep;
    return failure("no picture of " + std::to_string(m_OutputWidth) + " x " + std::to_string(m_OutputHeight) +
                   " pixels can be made");
}

void GXAppDelegate::saveAction()
{
    const UrlRef chosen = m_desktop.panels.runSavePanel();
    if (!chosen)
        return;
    const Url location = withExtension(*chosen, "png");
    const auto raster = rasterToExport();
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
