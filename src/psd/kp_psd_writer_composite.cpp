// SPDX-License-Identifier: MIT
#include "psd/kp_psd_writer.h"

#include <algorithm>

namespace wallgrid {

namespace {

/// The opacity that a reader of the file sees.
std::uint8_t alphaOf(const KPPSDLayer& layer)
{
    if (layer.opacity() >= 1)
        return 255;
    return layer.opacity() > 0 ? layer.opacity255() : 0;
}

/// No image when the size is none that a PSD can have.
MergedImage canvas(Size size, Pixel ground)
{
    const auto usable = [](double side) { return side >= 1 && side <= KPPSDLayer::kLongestSide; };
    if (!usable(size.width) || !usable(size.height))
        return {};
    return {static_cast<int>(size.width), static_cast<int>(size.height), ground};
}

} // namespace

void KPPSDWriter::resetFlattenedContext()
{
    const Pixel white{255, 255, 255, 255};
    m_flattenedContext = canvas(m_documentSize, m_hasTransparentLayers ? Pixel{} : white);
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
    KPPSDLayer::BitmapPart part = layer ? layer->croppedPart() : KPPSDLayer::BitmapPart();
    const bool isShown = !part.rect.empty();
    if (isShown && !part.bitmap) {
        m_flattenedContext.setIncomplete();
    } else if (m_flattenedContext && isShown) {
        const Point origin = layer->imageInDocumentRegion().origin;
        m_flattenedContext.draw({std::move(part),
                                 {static_cast<std::int64_t>(origin.x), static_cast<std::int64_t>(origin.y)},
                                 alphaOf(*layer)});
    }
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
        m_flattenedData = m_flattenedContext.snapshot();
    const bool prepared =
        std::all_of(m_layers.begin(), m_layers.end(), [](const LayerRef& layer) { return layer->preparePixels(); });
    for (int open = openGroups(); open > 0; --open)
        closeCurrentGroupLayer();
    return prepared;
}

} // namespace wallgrid
