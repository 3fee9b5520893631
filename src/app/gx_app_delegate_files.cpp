// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"

#include "app/layer_names.h"
#include "app/new_items.h"

#include <string>

namespace wallgrid {

Project GXAppDelegate::project() const
{
    return {m_OutputHeight, m_OutputWidth, m_arraycontroller.arrangedObjects()};
}

void GXAppDelegate::saveProject()
{
    const UrlRef location = m_files.chooseNew("mpr");
    if (!location)
        return;
    if (m_files.writeProject(*location, project()))
        m_documentFile->location = location;
    m_desktop.recentDocuments.noteNewRecentDocument(location);
}

void GXAppDelegate::loadProject(const Project& project, UrlRef location)
{
    // A pass in between would show new items over the old ones.
    const bool mayUpdate = m_throttle.isOpen();
    m_throttle.setOpen(false);
    const ItemArray old = m_arraycontroller.arrangedObjects();
    m_documentFile = std::make_shared<DocumentFile>(DocumentFile{std::move(location)});
    setOutputHeight(project.outputHeight);
    setOutputWidth(project.outputWidth);
    std::size_t index = 0;
    for (const ItemRef& item : project.items)
        m_arraycontroller.insertObjectAtArrangedObjectIndex(item, index++);
    m_arraycontroller.removeObjects(old);
    m_arraycontroller.setSelectionIndex(0);
    m_throttle.setOpen(mayUpdate);
    update();
}

void GXAppDelegate::openProject()
{
    if (const UrlRef location = m_desktop.panels.runOpenPanel()) {
        auto bytes = m_desktop.files.read(*location);
        const auto project = bytes ? m_files.readProject(*location, std::move(*bytes)) : std::nullopt;
        if (project) {
            m_desktop.recentDocuments.noteNewRecentDocument(location);
            loadProject(*project, location);
        }
    }
    m_throttle.setOpen(true);
    update();
}

bool GXAppDelegate::applicationOpenFile(std::string_view fileName)
{
    const auto location = Url::fromString(fileName);
    auto bytes = location ? m_desktop.files.read(*location) : Expected<Bytes>(failure("no location"));
    if (!bytes)
        m_desktop.panels.runAlert("No File Found", "File Not Found");
    else if (const auto project = m_files.readProject(*location, std::move(*bytes)))
        loadProject(*project, std::make_shared<const Url>(*location));
    return true;
}

Expected<BitmapRef> GXAppDelegate::rasterToExport() const
{
    if (m_picture.raster())
        return m_picture.raster();
    return failure("no picture of " + std::to_string(m_OutputWidth) + " x " + std::to_string(m_OutputHeight) +
                   " pixels can be made");
}

void GXAppDelegate::saveAction()
{
    if (const UrlRef location = m_files.chooseNew("png"))
        m_files.writePNG(*location, rasterToExport());
}

bool GXAppDelegate::hasEqualLayerNames() const
{
    return haveEqualNames(m_arraycontroller.arrangedObjects());
}

void GXAppDelegate::nameUnnamedItems()
{
    // A copy of the list, because setting a label tells observers. From the last row to the first.
    const ItemArray items = m_arraycontroller.arrangedObjects();
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        ++m_screenNumber;
        if (textOf((*item)->label()).empty())
            (*item)->setLabel(numberedName(u"Untitled ", m_screenNumber));
    }
}

PSDExport::Source GXAppDelegate::namedSource()
{
    nameUnnamedItems();
    return {m_arraycontroller.arrangedObjects(), m_OutputWidth, m_OutputHeight};
}

ByteBuffer GXAppDelegate::createPSDData(KPPSDError* error)
{
    return m_PSDExport.createData(namedSource(), error);
}

KPPSDError GXAppDelegate::writePSDOn(ByteSink& sink)
{
    return m_PSDExport.writeOn(sink, namedSource());
}

void GXAppDelegate::savePSD()
{
    if (const UrlRef location = m_PSDExport.chooseLocation())
        m_PSDExport.write(*location, namedSource());
    else
        nameUnnamedItems();
}

} // namespace wallgrid
