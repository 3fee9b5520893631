// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"

#include "graphics/bitmap_memory.h"

#include <utility>

namespace wallgrid {

namespace {

constexpr double kThrottleSeconds = 0.1;

} // namespace

void GXAppDelegate::update()
{
    if (m_shouldUpdate) {
        m_shouldUpdate = false;
        m_hasSkippedUpdate = false;
        // The first row is rendered by the change handler only.
        if (m_arraycontroller.selectionIndex().value_or(0) != 0)
            m_arraycontroller.selectedObject()->drawInRect();
        reloadTable();
        compose();
    } else {
        m_hasSkippedUpdate = true;
    }
    m_throttles.push(m_desktop.runLoop.scheduleTimer(kThrottleSeconds, [this] {
        m_throttles.pop();
        timerupdate();
    }));
}

void GXAppDelegate::openPvw()
{
    WindowLoader* windows = views().windows;
    if (!windows)
        return;
    m_outputPreview = windows->windowControllerWithNibName("Output Preview");
    m_outputPreview->showWindow();
}

void GXAppDelegate::compose()
{
    RasterScene scene{m_OutputWidth, m_OutputHeight, m_bgColor, m_edgeColor, {}};
    // Last to first, so that the first row ends up on top.
    const ItemArray& items = m_arraycontroller.arrangedObjects();
    scene.pictures.reserve(items.size());
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        if (ImageRef picture = (*item)->picture(); picture && (*item)->visible())
            scene.pictures.push_back({std::move(picture), (*item)->frame()});
    }

    // The previews keep the last image until they get the next one. Its raster is taken out of it and serves again.
    m_offscreenRep = nullptr;
    if (m_img)
        m_img->removeRepresentations();
    m_offscreenRep = m_rasterComposer.compose(scene);
    reportRefusedBitmaps();
    if (!m_offscreenRep)
        return show(nullptr);
    auto image = std::make_shared<Image>(Size{static_cast<double>(m_OutputWidth), static_cast<double>(m_OutputHeight)});
    image->addRepresentation(m_offscreenRep);
    show(std::move(image));
}

void GXAppDelegate::reportRefusedBitmaps()
{
    const std::size_t before = std::exchange(m_refusedBitmaps, BitmapMemory::refused());
    if (m_refusedBitmaps != before && m_offscreenRep) // without a raster nothing is shown
        m_desktop.log.log("there is not enough memory for all pictures; some are not shown");
}

void GXAppDelegate::show(ImageRef image)
{
    m_img = std::move(image);
    for (ImageView* view : {views().pvwImageWell, views().miniPvw}) {
        if (view)
            view->setImage(m_img);
    }
}

} // namespace wallgrid
