// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"

#include "app/new_items.h"
#include "app/row_drag.h"
#include "graphics/image_file.h"
#include "items/gx_still.h"

#include <algorithm>

namespace wallgrid {

namespace {

constexpr std::string_view kMainTable = "mainTView";
constexpr std::string_view kPresetTable = "presetTView";
constexpr std::int32_t kDraggedMainTable = 1;
constexpr std::int32_t kDraggedPresetTable = 2;

/// New items go below this row. It is not the table's selection and never changes.
constexpr std::size_t kSelectedRow = 0;

void drop(GXAppDelegate::ItemController& target, const GXAppDelegate::ItemController& source, std::size_t from,
          std::size_t to)
{
    if (from >= source.arrangedObjects().size() || to > target.arrangedObjects().size())
        return;
    const ItemRef item = source.arrangedObjects()[from];
    if (&source == &target) {
        target.insertObjectAtArrangedObjectIndex(item, to);
        target.removeObjectAtArrangedObjectIndex(from < to ? from : from + 1);
    } else {
        target.insertObjectAtArrangedObjectIndex(item->copy(), to);
    }
}

} // namespace

void GXAppDelegate::add()
{
    SheetLoader* sheets = views().sheets;
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

bool GXAppDelegate::mayRemoveFrom(const ItemController& list)
{
    if (list.arrangedObjects().size() >= 2)
        return true;
    m_desktop.panels.runAlert("List Cannot be empty, Function was cancelled", "");
    return false;
}

void GXAppDelegate::remove()
{
    if (mayRemoveFrom(m_arraycontroller))
        m_arraycontroller.removeObjectsAtArrangedObjectIndexes(m_arraycontroller.selectionIndexes());
}

void GXAppDelegate::openAbout()
{
    SheetLoader* sheets = views().sheets;
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
    writeDraggedRows(rows, pasteboard);
    if (table.identifier() == kMainTable)
        m_draggedTV = kDraggedMainTable;
    else if (table.identifier() == kPresetTable)
        m_draggedTV = kDraggedPresetTable;
    return true;
}

bool GXAppDelegate::tableViewAcceptDrop(TableView& table, const Pasteboard& dragged, std::ptrdiff_t row, DropOperation)
{
    const auto first = firstDraggedRow(dragged);
    if (!first || row < 0)
        return true;
    const auto to = static_cast<std::size_t>(row);
    if (table.identifier() == kMainTable)
        drop(m_arraycontroller, m_draggedTV == kDraggedMainTable ? m_arraycontroller : m_presetarraycontroller, *first,
             to);
    else if (table.identifier() == kPresetTable)
        drop(m_presetarraycontroller, m_draggedTV == kDraggedPresetTable ? m_presetarraycontroller : m_arraycontroller,
             *first, to);
    return true;
}

void GXAppDelegate::tableViewSelectionDidChange()
{
    TableView* table = views().table;
    if (!table)
        return;
    if (const auto row = table->selectedRow())
        m_arraycontroller.setSelectionIndex(*row);
}

} // namespace wallgrid
