// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"
#include "platform/png_encoder.h"

#include <cstddef>

namespace wallgrid {

namespace {

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
    m_desktop.files.write(*location, writeProject(project()));
    m_desktop.recentDocuments.noteNewRecentDocument(location);
}

void GXAppDelegate::loadProject(const Project& project)
{
    const ItemArray old = m_arraycontroller.arrangedObjects();
    setOutputHeight(project.outputHeight);
    setOutputWidth(project.outputWidth);
    std::size_t index = 0;
    for (const ItemRef& item : project.items)
        m_arraycontroller.insertObjectAtArrangedObjectIndex(item, index++);
    m_arraycontroller.removeObjects(old);
    m_arraycontroller.setSelectionIndex(0);
}

void GXAppDelegate::openProject()
{
    if (const UrlRef location = m_desktop.panels.runOpenPanel()) {
        if (auto bytes = m_desktop.files.read(*location)) {
            if (const auto project = readProject(std::move(*bytes))) {
                m_desktop.recentDocuments.noteNewRecentDocument(location);
                loadProject(*project);
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
    if (const auto project = readProject(std::move(*bytes)))
        loadProject(*project);
    else
        m_desktop.files.report(*location, project.error());
    return true;
}

void GXAppDelegate::saveAction()
{
    const UrlRef chosen = m_desktop.panels.runSavePanel();
    if (!chosen || !m_offscreenRep)
        return;
    const Url location = withExtension(*chosen, "png");
    if (const auto png = encodePng(*m_offscreenRep))
        m_desktop.files.write(location, *png);
    else
        m_desktop.files.report(location, png.error());
}

} // namespace wallgrid
