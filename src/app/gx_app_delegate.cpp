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
{
}

Registration GXAppDelegate::connect(const Outlets& outlets)
{
    auto connected = std::make_shared<Views>(Views{outlets});
    m_views = connected;
    return Registration(std::move(connected));
}

GXAppDelegate::Views GXAppDelegate::views() const
{
    const auto connected = m_views.lock();
    return connected ? *connected : Views{};
}

ImageView* GXAppDelegate::pvwImageWell() const
{
    return views().pvwImageWell;
}

void GXAppDelegate::awakeFromNib()
{
    for (TableView* table : {views().ptable, views().table}) {
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
    for (TableView* table : {views().table, views().ptable}) {
        if (table)
            table->setDelegate(this);
    }
    buildPreview();

    const auto handler = [this] { observeValueForKeyPath(); };
    m_observations.push_back(m_arraycontroller.observeArrangedObjects(observedProperties(), handler));
    m_observations.push_back(m_presetarraycontroller.observeArrangedObjects({"thumbnail"}, handler));
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
    const auto views = m_views.lock();
    if (!views || !views->outputWindow)
        return;
    const Size output{static_cast<double>(m_OutputWidth), static_cast<double>(m_OutputHeight)};
    views->pvwImageWell = views->outputWindow->addImageView({{0, -25}, output});
    views->outputWindow->setFrame({{0, 0}, {640, 360}});
    views->pvwImageWell->setFrameSize({640, 360});
    views->pvwImageWell->setFollowsContainer();
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
    if (TableView* table = views().table)
        table->reloadData();
}

} // namespace wallgrid
