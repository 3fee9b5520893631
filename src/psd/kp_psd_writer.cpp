// SPDX-License-Identifier: MIT
#include "psd/kp_psd_writer.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace wallgrid {

namespace {

constexpr float kDefaultResolution = 72;
constexpr double kCentimetresPerInch = 2.54;

} // namespace

std::shared_ptr<KPPSDWriter> KPPSDWriter::init()
{
    return initWithDocumentSize({});
}

std::shared_ptr<KPPSDWriter> KPPSDWriter::initWithDocumentSize(Size size)
{
    return initWithDocumentSize(size, kDefaultResolution, kPixelsPerInch);
}

std::shared_ptr<KPPSDWriter> KPPSDWriter::initWithDocumentSize(Size size, float resolution, std::int32_t unit)
{
    return initWithDocumentSize(size, resolution, unit, true, {});
}

std::shared_ptr<KPPSDWriter> KPPSDWriter::initWithDocumentSize(Size size, bool hasTransparentLayers, Layers layers)
{
    return initWithDocumentSize(size, kDefaultResolution, kPixelsPerInch, hasTransparentLayers, std::move(layers));
}

std::shared_ptr<KPPSDWriter> KPPSDWriter::initWithDocumentSize(Size size, float resolution, std::int32_t unit,
                                                               bool hasTransparentLayers, Layers layers)
{
    auto writer = std::make_shared<KPPSDWriter>();
    writer->setHasTransparentLayers(hasTransparentLayers);
    writer->setLayers(std::move(layers));
    writer->setDocumentSize(size);
    const float perInch =
        unit == kPixelsPerCentimetre ? static_cast<float>(resolution * kCentimetresPerInch) : resolution;
    writer->setDocumentResolution({perInch, perInch});
    writer->setDocumentResolutionUnit(unit);
    return writer;
}

void KPPSDWriter::setDocumentSize(Size size)
{
    if (size == m_documentSize)
        return;
    m_documentSize = size;
    for (const LayerRef& layer : m_layers)
        layer->setDocumentSize(size);
    resetFlattenedContext();
}

void KPPSDWriter::setLayers(Layers layers)
{
    if (std::count(layers.begin(), layers.end(), nullptr) > 0)
        throw std::invalid_argument("KPPSDWriter: a layer is missing");
    m_layers = std::move(layers);
}

KPPSDWriter::Layers KPPSDWriter::visibleLayers() const
{
    Layers visible;
    std::copy_if(m_layers.begin(), m_layers.end(), std::back_inserter(visible),
                 [](const LayerRef& l) { return l->hasValidSize(); });
    return visible;
}

KPPSDWriter::LayerRef KPPSDWriter::addLayerWithCGImage(BitmapRef image, StringRef name, float opacity, Point offset)
{
    const LayerRef layer = KPPSDLayer::init();
    layer->setDocumentSize(m_documentSize);
    layer->setImage(std::move(image));
    layer->setOpacity(opacity);
    layer->setName(std::move(name));
    layer->setOffset(offset);
    layer->setNumberOfChannels(numberOfChannels());
    m_layers.push_back(layer);
    addLayerToFlattenedContext(layer, nullptr);
    return layer;
}

KPPSDWriter::LayerRef KPPSDWriter::addLayerWithCGImage(BitmapRef image, StringRef name)
{
    return addLayerWithCGImage(std::move(image), std::move(name), 1, {});
}

std::shared_ptr<KPPSDGroupOpeningLayer> KPPSDWriter::openGroupLayerWithName(StringRef name, float opacity,
                                                                            bool isOpened)
{
    auto layer = KPPSDGroupOpeningLayer::initWithName(std::move(name), opacity, isOpened);
    layer->setDocumentSize(m_documentSize);
    m_layers.push_back(layer);
    return layer;
}

std::shared_ptr<KPPSDGroupOpeningLayer> KPPSDWriter::openGroupLayerWithName(StringRef name)
{
    return openGroupLayerWithName(std::move(name), 1, false);
}

std::shared_ptr<KPPSDGroupClosingLayer> KPPSDWriter::closeCurrentGroupLayerWithError(KPPSDError* error)
{
    std::size_t depth = 0;
    for (auto layer = m_layers.rbegin(); layer != m_layers.rend(); ++layer) {
        if (std::dynamic_pointer_cast<KPPSDGroupClosingLayer>(*layer)) {
            ++depth;
        } else if (const auto opening = std::dynamic_pointer_cast<KPPSDGroupOpeningLayer>(*layer)) {
            if (depth-- > 0)
                continue;
            auto closing = KPPSDGroupClosingLayer::init();
            closing->setDocumentSize(m_documentSize);
            closing->setGroupOpeningLayer(opening);
            m_layers.push_back(closing);
            return closing;
        }
    }
    if (error)
        *error = {KPPSDError::NoOpenedLayer, "There is no opened layer to close"};
    return nullptr;
}

} // namespace wallgrid
