// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"

#include "app/new_items.h"
#include "app/row_drag.h"
#include "graphics/bitmap_memory.h"

#include <string>
#include <vector>

namespace wallgrid {

namespace {

std::vector<std::string> observedProperties()
{
    std::vector<std::string> keys;
    for (const GXItem::Field& field : GXItem::fields()) {
        if (field.observed)
            keys.emplace_back(field.property);
    }
    return keys;
}

} // namespace

GXAppDelegate::GXAppDelegate(const Desktop& desktop)
    : m_desktop(desktop)
    , m_documentFile(std::make_shared<DocumentFile>())
    , m_refusedBitmaps(BitmapMemory::refused())
    , m_self(std::make_shared<GXAppDelegate*>(this))
{
}

void GXAppDelegate::awakeFromNib()
{
    for (TableView* table : {m_outlets.ptable, m_outlets.table}) {
        if (table)
            table->registerForDraggedType(kRowDragType);
    }
}

void GXAppDelegate::applicationDidFinishLaunching()
{
    // The counter itself is not advanced: the first screen that is added becomes Layer 1.
    Project project = makeLaunchProject(m_screenNumber);
    auto presets = makePresets();
    setOutputHeight(project.outputHeight);
    setOutputWidth(project.outputWidth);
    m_shouldUpdate = true;
    setAllScreensArray(std::make_shared<ItemArray>(std::move(project.items)));
    setPresetScreensArray(std::make_shared<ItemArray>(std::move(presets)));
    for (TableView* table : {m_outlets.table, m_outlets.ptable}) {
        if (table)
            table->setDelegate(this);
    }
    buildPreview();

    m_arraycontroller.addObserverForArrangedObjects(observedProperties(), [this] { observeValueForKeyPath(); });
    m_presetarraycontroller.addObserverForArrangedObjects({"thumbnail"}, [this] { observeValueForKeyPath(); });
    update();
}

void GXAppDelegate::setAllScreensArray(ItemArrayRef items)
{
    m_allScreensArray = items;
    m_arraycontroller.setContent(std::move(items));
}

void GXAppDelegate::setPresetScreensArray(ItemArrayRef presets)
{
    m_presetScreensArray = presets;
    m_presetarraycontroller.setContent(std::move(presets));
}

void GXAppDelegate::buildPreview()
{
    if (!m_outlets.outputWindow)
        return;
    const Size output{static_cast<double>(m_OutputWidth), static_cast<double>(m_OutputHeight)};
    m_pvwImageWell = m_outlets.outputWindow->addImageView({{0, -25}, output});
    m_outlets.outputWindow->setFrame({{0, 0}, {640, 360}});
    m_pvwImageWell->setFrameSize({640, 360});
    m_pvwImageWell->setFollowsContainer();
}

void GXAppDelegate::observeValueForKeyPath()
{
    if (const ItemRef item = m_arraycontroller.selectedObject())
        item->drawInRect();
    reloadTable();
    update();
}

void GXAppDelegate::reloadTable()
{
    if (m_outlets.table)
        m_outlets.table->reloadData();
}

} // namespace wallgrid
