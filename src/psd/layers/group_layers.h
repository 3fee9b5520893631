// SPDX-License-Identifier: MIT
#pragma once

#include "psd/layers/kp_psd_layer.h"

#include <memory>
#include <utility>

namespace wallgrid {

/// The initialisers of a kind of group marker. They hide those of plain layers, which would make no marker.
template <class Marker, class Base>
class GroupInitialisers : public Base {
public:
    static std::shared_ptr<Marker> init() { return std::make_shared<Marker>(); }
    static std::shared_ptr<Marker> initWithName(StringRef name) { return initWithName(std::move(name), 1, false); }
    static std::shared_ptr<Marker> initWithName(StringRef name, float opacity, bool isOpened)
    {
        auto marker = init();
        marker->setName(std::move(name));
        marker->setIsOpened(isOpened);
        marker->setOpacity(opacity);
        return marker;
    }
    /// A marker always has 4 channels.
    static void initWithNumberOfChannels() = delete;
};

/// The two markers between which the layers of a group lie, the opening one below them (Adobe, "Photoshop File
/// Formats", section divider setting). Markers have no pixels and are always written.
class KPPSDGroupLayer : public GroupInitialisers<KPPSDGroupLayer, KPPSDLayer> {
public:
    /// Whether the group is shown expanded.
    bool isOpened() const { return m_isOpened; }
    void setIsOpened(bool isOpened) { m_isOpened = isOpened; }

    /// Takes over name, opacity, open state and the effects, which the two share from then on.
    void copyGroupInformationFrom(const KPPSDGroupLayer& group);

    bool hasValidSize() const override { return true; }
    bool preparePixels() override { return true; }
    using KPPSDLayer::writeLayerChannelsOn;
    ChannelLengths writeLayerChannelsOn(GrowingFile& file, PackedRows& rows) const override;
    SizeBounds layerChannelsSize() const override;

private:
    bool m_isOpened = false;
};

class KPPSDGroupOpeningLayer final : public GroupInitialisers<KPPSDGroupOpeningLayer, KPPSDGroupLayer> {
public:
    ByteBuffer extraLayerInformation() const override;

protected:
    const std::u16string& writtenName() const override;
};

/// Carries the group's name, opacity, open state and effects: those of its opening marker when the record is written.
class KPPSDGroupClosingLayer final : public GroupInitialisers<KPPSDGroupClosingLayer, KPPSDGroupLayer> {
public:
    const std::shared_ptr<KPPSDGroupOpeningLayer>& groupOpeningLayer() const { return m_groupOpeningLayer; }
    void setGroupOpeningLayer(std::shared_ptr<KPPSDGroupOpeningLayer> layer) { m_groupOpeningLayer = std::move(layer); }

    using KPPSDLayer::writeLayerInformationOn;
    void writeLayerInformationOn(ByteBuffer& buffer, const ChannelLengths& lengths) override;
    ByteBuffer extraLayerInformation() const override;

private:
    std::shared_ptr<KPPSDGroupOpeningLayer> m_groupOpeningLayer;
};

} // namespace wallgrid
