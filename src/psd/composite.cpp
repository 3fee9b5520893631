// SPDX-License-Identifier: MIT
#include "platform/graphics_context.h"
#include "platform/pixel_runs.h"
#include "psd/kp_psd_writer.h"

#include <algorithm>
#include <cmath>

namespace wallgrid {

namespace {

/// The opacity that a reader of the file sees.
std::uint8_t alphaOf(const KPPSDLayer& layer)
{
    if (layer.opacity() >= 1)
        return 255;
    return layer.opacity() > 0 ? layer.opacity255() : 0;
}

/// Empty when the size is none that a PSD can have.
BitmapRef makeCanvas(Size size)
{
    const auto usable = [](double side) { return side >= 1 && side <= KPPSDLayer::kLongestSide; };
    if (!usable(size.width) || !usable(size.height))
        return nullptr;
    return Bitmap::create(static_cast<std::int64_t>(size.width), static_cast<std::int64_t>(size.height));
}

BitmapRef copyOf(const Bitmap& bitmap)
{
    const BitmapRef copy = Bitmap::create(bitmap.width(), bitmap.height(), Bitmap::Contents::Undefined);
    for (int y = 0; copy && y < bitmap.height(); ++y)
        copyPixels(copy->row(y).data(), bitmap.row(y).data(), static_cast<std::size_t>(bitmap.width()));
    return copy;
}

} // namespace

void KPPSDWriter::resetFlattenedContext()
{
    m_flattenedContext = nullptr; // first, so that its memory can be used again
    m_flattenedContext = makeCanvas(m_documentSize);
    if (!m_flattenedContext)
        return;
    if (!m_hasTransparentLayers) {
        GraphicsContext context(m_flattenedContext);
        context.setColor(Color::deviceRGB(1, 1, 1));
        context.fillRect({0, 0, m_flattenedContext->width(), m_flattenedContext->height()});
    }
    for (const LayerRef& layer : visibleLayers())
        addLayerToFlattenedContext(layer, nullptr);
}

bool KPPSDWriter::addLayerToFlattenedContext(const LayerRef& layer, KPPSDError* error)
{
    if (m_documentSize.width <= 0 || m_documentSize.height <= 0) {
        if (error) {
            *error = {KPPSDError::ZeroDocumentSize, "You must specify a non-zero documentSize before adding a layer"};
        }
        return false;
    }
    const KPPSDLayer::BitmapPart part = layer ? layer->croppedPart() : KPPSDLayer::BitmapPart();
    if (!m_flattenedContext || !part.bitmap)
        return true;
    if (m_flattenedContext == m_flattenedData)
        m_flattenedContext = copyOf(*m_flattenedContext);
    const int width = part.bitmap->width();
    const int height = part.bitmap->height();
    Image image({static_cast<double>(width), static_cast<double>(height)});
    image.addRepresentation(part.bitmap);
    const Point origin = layer->imageInDocumentRegion().origin;
    // Both turned into coordinates from the bottom.
    const std::int64_t y =
        static_cast<std::int64_t>(m_documentSize.height) - (static_cast<std::int64_t>(origin.y) + part.height);
    GraphicsContext(m_flattenedContext)
        .drawImage(image, {static_cast<std::int64_t>(origin.x), y},
                   {part.x, height - part.y - part.height, part.width, part.height}, CompositingOperation::SourceOver,
                   alphaOf(*layer));
    return true;
}

int KPPSDWriter::openGroups() const
{
    int open = 0;
    for (const LayerRef& layer : m_layers) {
        if (std::dynamic_pointer_cast<KPPSDGroupOpeningLayer>(layer))
            ++open;
        else if (std::dynamic_pointer_cast<KPPSDGroupClosingLayer>(layer))
            --open;
    }
    return std::max(open, 0);
}

bool KPPSDWriter::preprocess()
{
    if (m_flattenedContext)
        m_flattenedData = m_flattenedContext;
    const bool prepared = std::ranges::all_of(m_layers, [](const LayerRef& layer) { return layer->preparePixels(); });
    for (int open = openGroups(); open > 0; --open)
        closeCurrentGroupLayer();
    return prepared;
}

} // namespace wallgrid
