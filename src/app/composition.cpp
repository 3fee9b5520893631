// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"
#include "platform/graphics_context.h"

namespace wallgrid {

namespace {

constexpr double kThrottleSeconds = 0.1;

/// Without a colour the one in force stays, which is opaque.
bool isOpaque(const ColorRef& color)
{
    return !color || color->pixel().a == 255;
}

/// In the raster's coordinates, y upwards; 32-bit like every position of an item.
PixelPoint lowerLeftCorner(const GXItem& item, std::int32_t outputHeight)
{
    const auto y = static_cast<std::uint32_t>(outputHeight) - static_cast<std::uint32_t>(item.ypoint()) -
                   static_cast<std::uint32_t>(item.screenSizeHeight());
    return {item.xpoint(), static_cast<std::int32_t>(y)};
}

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
    m_desktop.runLoop.scheduleTimer(kThrottleSeconds, [self = std::weak_ptr(m_self)] {
        if (const auto delegate = self.lock())
            (*delegate)->timerupdate();
    });
}

void GXAppDelegate::openPvw()
{
    if (!m_outlets.windows)
        return;
    m_outputPreview = m_outlets.windows->windowControllerWithNibName("Output Preview");
    m_outputPreview->showWindow();
}

void GXAppDelegate::compose()
{
    // The old raster goes first, so that a large one need not fit into memory twice and its pages serve again.
    m_offscreenRep = nullptr;
    show(nullptr);
    m_offscreenRep = Bitmap::create(m_OutputWidth, m_OutputHeight, Bitmap::Contents::Undefined);
    if (!m_offscreenRep)
        return;
    GraphicsContext context(m_offscreenRep);
    const PixelRect raster{0, 0, m_OutputWidth, m_OutputHeight};
    context.setColor(m_bgColor);
    context.fillRect(raster);
    context.setColor(m_edgeColor);
    context.frameRect(raster, 1);

    // Items never change the raster's alpha, so over an opaque ground "atop" stays "over", which need not read it.
    const auto operation = isOpaque(m_bgColor) && isOpaque(m_edgeColor) ? CompositingOperation::SourceOver
                                                                        : CompositingOperation::SourceAtop;
    // Last to first, so that the first row ends up on top.
    const ItemArray& items = m_arraycontroller.arrangedObjects();
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        const ImageRef thumbnail = (*item)->thumbnail();
        if (!(*item)->visible() || !thumbnail)
            continue;
        context.drawImage(*thumbnail, lowerLeftCorner(**item, m_OutputHeight),
                          {0, 0, (*item)->screenSizeWidth(), (*item)->screenSizeHeight()}, operation);
    }

    auto image = std::make_shared<Image>(Size{static_cast<double>(m_OutputWidth), static_cast<double>(m_OutputHeight)});
    image->addRepresentation(m_offscreenRep);
    show(std::move(image));
}

void GXAppDelegate::show(ImageRef image)
{
    m_img = std::move(image);
    if (m_pvwImageWell)
        m_pvwImageWell->setImage(m_img);
    if (m_outlets.miniPvw)
        m_outlets.miniPvw->setImage(m_img);
}

} // namespace wallgrid
