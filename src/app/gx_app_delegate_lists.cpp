// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"

#include "app/new_items.h"
#include "graphics/image_file.h"
#include "items/gx_still.h"

#include <algorithm>

namespace wallgrid {

namespace {

/// New items go below this row. It is not the table's selection and never changes.
constexpr std::size_t kSelectedRow = 0;

} // namespace

void GXAppDelegate::add()
{
    SheetLoader* sheets = m_views.outlets().sheets;
    if (!sheets)
        return;
    m_AddWindow = sheets->loadNibNamed("AddWindow");
    awakeFromNib();
    m_AddWindow->begin();
}

void GXAppDelegate::endAddSheet()
{
    if (m_AddWindow)
        m_AddWindow->end();
}

void GXAppDelegate::CancelAddWindow()
{
    endAddSheet();
}

void GXAppDelegate::insertNewItem(ItemRef item)
{
    const std::size_t count = m_arraycontroller.arrangedObjects().size();
    m_arraycontroller.insertObjectAtArrangedObjectIndex(std::move(item), std::min(kSelectedRow + 1, count));
}

void GXAppDelegate::AddScreen()
{
    ++m_screenNumber;
    insertNewItem(makeDefaultScreen(numberedName(u"Layer ", m_screenNumber)));
    endAddSheet();
}

void GXAppDelegate::AddImage()
{
    if (const UrlRef location = m_desktop.panels.runOpenPanel())
        addImageAt(location);
}

void GXAppDelegate::addImageAt(const UrlRef& location)
{
    const auto image = imageWithContentsOfURL(*location);
    if (!image)
        m_desktop.files.report(*location, image.error());
    const StillRef still = GXStill::initWithimage(image.value_or(nullptr));
    insertNewItem(still);
    endAddSheet();
    still->setImageURL(location);
}

void GXAppDelegate::removeSelected(ItemController& list)
{
    if (list.arrangedObjects().size() >= 2)
        list.removeObjectsAtArrangedObjectIndexes(list.selectionIndexes());
    else
        m_desktop.panels.runAlert("List Cannot be empty, Function was cancelled", "");
}

void GXAppDelegate::remove()
{
    removeSelected(m_arraycontroller);
}

void GXAppDelegate::removePreset()
{
    removeSelected(m_presetarraycontroller);
}

void GXAppDelegate::openAbout()
{
    SheetLoader* sheets = m_views.outlets().sheets;
    if (!sheets)
        return;
    m_aboutWindow = sheets->loadNibNamed("About");
    awakeFromNib();
    m_aboutWindow->begin();
}

void GXAppDelegate::closeAbout()
{
    if (m_aboutWindow)
        m_aboutWindow->end();
}

bool GXAppDelegate::tableViewWriteRowsWithIndexes(TableView& table, const std::set<std::size_t>& rows,
                                                  Pasteboard& pasteboard)
{
    m_drags.start(table, rows, pasteboard);
    return true;
}

bool GXAppDelegate::tableViewAcceptDrop(TableView& table, const Pasteboard& dragged, std::ptrdiff_t row, DropOperation)
{
    m_drags.drop(table, dragged, row);
    return true;
}

void GXAppDelegate::tableViewSelectionDidChange()
{
    TableView* table = m_views.outlets().table;
    if (!table)
        return;
    if (const auto row = table->selectedRow())
        m_arraycontroller.setSelectionIndex(*row);
}

void GXAppDelegate::savePresets()
{
    if (const UrlRef location = m_desktop.panels.runSavePanel())
        m_files.writePresets(*location, m_presetarraycontroller.arrangedObjects());
}

void GXAppDelegate::openPresets()
{
    const UrlRef location = m_desktop.panels.runOpenPanel();
    if (!location)
        return;
    if (const auto presets = m_files.readPresets(*location))
        loadPresets(*presets);
}

void GXAppDelegate::loadPresets(const ItemArray& presets)
{
    const ItemArray old = m_presetarraycontroller.arrangedObjects();
    m_presetarraycontroller.removeObjects(old);
    m_presetarraycontroller.addObjects(presets);
    m_presetarraycontroller.setSelectionIndex(0);
}

} // namespace wallgrid
