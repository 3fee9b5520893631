// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"

#include "app/new_items.h"

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
    , m_picture(desktop.log)
    , m_throttle(desktop.runLoop)
    , m_drags(m_arraycontroller, m_presetarraycontroller)
    , m_files(desktop)
    , m_PSDExport(desktop)
{
}

void GXAppDelegate::applicationDidFinishLaunching()
{
    // The counter itself is not advanced: the first screen that is added becomes Layer 1.
    Project project = makeLaunchProject(m_screenNumber);
    auto presets = makePresets();
    setOutputHeight(project.outputHeight);
    setOutputWidth(project.outputWidth);
    m_throttle.setOpen(true);
    setAllScreensArray(std::make_shared<ItemArray>(std::move(project.items)));
    setPresetScreensArray(std::make_shared<ItemArray>(std::move(presets)));
    m_views.setTableDelegate(*this);
    m_views.buildPreview({static_cast<double>(m_OutputWidth), static_cast<double>(m_OutputHeight)});

    const auto handler = [this] { observeValueForKeyPath(); };
    m_observations = {m_arraycontroller.observeArrangedObjects(observedProperties(), handler),
                      m_presetarraycontroller.observeArrangedObjects({"thumbnail"}, handler)};
    update();
}

void GXAppDelegate::observeValueForKeyPath()
{
    if (const ItemRef item = m_arraycontroller.selectedObject())
        item->drawInRect();
    m_views.reloadTable();
    update();
}

void GXAppDelegate::update()
{
    if (m_throttle.pass()) {
        // The first row is rendered by the change handler only.
        if (m_arraycontroller.selectionIndex().value_or(0) != 0)
            m_arraycontroller.selectedObject()->drawInRect();
        m_views.reloadTable();
        m_picture.compose({m_OutputWidth, m_OutputHeight, m_bgColor, m_edgeColor}, m_arraycontroller.arrangedObjects());
        m_views.show(m_picture.image());
    }
    m_throttle.openLater();
}

void GXAppDelegate::openPvw()
{
    WindowLoader* windows = m_views.outlets().windows;
    if (!windows)
        return;
    m_outputPreview = windows->windowControllerWithNibName("Output Preview");
    m_outputPreview->showWindow();
}

} // namespace wallgrid
