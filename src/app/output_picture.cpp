// SPDX-License-Identifier: MIT
#include "app/output_picture.h"

#include "graphics/bitmap_memory.h"

#include <memory>
#include <utility>

namespace wallgrid {

namespace {

RasterScene sceneOf(const Output& output, const ItemArray& items)
{
    RasterScene scene{output.width, output.height, output.ground, output.edge, {}};
    // Last to first, so that the first row ends up on top.
    scene.pictures.reserve(items.size());
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        if (ImageRef picture = (*item)->picture(); picture && (*item)->visible())
            scene.pictures.push_back({std::move(picture), (*item)->frame()});
    }
    return scene;
}

} // namespace

OutputPicture::OutputPicture(Log& log)
    : m_log(log)
    , m_refusedBitmaps(BitmapMemory::refused())
{
}

void OutputPicture::compose(const Output& output, const ItemArray& items)
{
    const RasterScene scene = sceneOf(output, items);
    m_raster = nullptr;
    if (m_image)
        m_image->removeRepresentations();
    m_raster = m_composer.compose(scene);
    reportRefusedBitmaps();
    m_image = nullptr;
    if (!m_raster)
        return;
    m_image = std::make_shared<Image>(Size{static_cast<double>(output.width), static_cast<double>(output.height)});
    m_image->addRepresentation(m_raster);
}

void OutputPicture::reportRefusedBitmaps()
{
    const std::size_t before = std::exchange(m_refusedBitmaps, BitmapMemory::refused());
    if (m_refusedBitmaps != before && m_raster) // without a raster nothing is shown
        m_log.log("there is not enough memory for all pictures; some are not shown");
}

} // namespace wallgrid
