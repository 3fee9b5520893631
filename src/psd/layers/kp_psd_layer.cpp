// SPDX-License-Identifier: MIT
#include "psd/layers/kp_psd_layer.h"

#include "base/unicode.h"

#include <cmath>
#include <stdexcept>

namespace wallgrid {

std::shared_ptr<KPPSDLayer> KPPSDLayer::init()
{
    return std::make_shared<KPPSDLayer>();
}

std::shared_ptr<KPPSDLayer> KPPSDLayer::initWithNumberOfChannels(std::int64_t numberOfChannels, float opacity,
                                                                 bool shouldFlipLayerData,
                                                                 bool shouldUnpremultiplyLayerData,
                                                                 std::string blendMode)
{
    auto layer = init();
    layer->setNumberOfChannels(numberOfChannels);
    layer->setOpacity(opacity);
    layer->setShouldFlipLayerData(shouldFlipLayerData);
    layer->setShouldUnpremultiplyLayerData(shouldUnpremultiplyLayerData);
    layer->setBlendMode(std::move(blendMode));
    return layer;
}

void KPPSDLayer::setImage(BitmapRef image)
{
    if (image == m_image)
        return;
    m_image = std::move(image);
    setVisibleImageData(nullptr);
}

void KPPSDLayer::setDocumentSize(Size size)
{
    m_documentSize = size;
    setVisibleImageData(nullptr);
}

void KPPSDLayer::setNumberOfChannels(std::int64_t numberOfChannels)
{
    if (numberOfChannels != 3 && numberOfChannels != 4)
        throw std::invalid_argument("KPPSDLayer: a layer has 3 or 4 channels");
    m_numberOfChannels = numberOfChannels;
}

void KPPSDLayer::setVisibleImageData(BitmapRef pixels)
{
    m_visibleImageData = std::move(pixels);
    m_isFlipped = false;
    m_isUnpremultiplied = false;
}

std::uint8_t KPPSDLayer::opacity255() const
{
    const float rounded = std::ceil(m_opacity * 255.0F);
    return std::isfinite(rounded) ? static_cast<std::uint8_t>(std::llround(std::fmod(rounded, 256.0F))) : 0;
}

std::string KPPSDLayer::description() const
{
    const auto numbers = [](const Rect& rect) {
        return "(" + std::to_string(rect.origin.x) + ", " + std::to_string(rect.origin.y) + ", " +
               std::to_string(rect.size.width) + ", " + std::to_string(rect.size.height) + ")";
    };
    return "(super: KPPSDLayer): Layer named '" + toUtf8(textOf(m_name)) + "' (opacity: " + std::to_string(m_opacity) +
           "). Image Crop Region: " + numbers(imageCropRegion()) + ". Image In Document Region " +
           numbers(imageInDocumentRegion());
}

} // namespace wallgrid
