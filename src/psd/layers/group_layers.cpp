// SPDX-License-Identifier: MIT
#include "psd/layers/group_layers.h"

#include "base/growing_file.h"
#include "psd/fields/append_value.h"
#include "psd/fields/record_fields.h"

namespace wallgrid {

namespace {

// Types of section dividers.
constexpr std::int64_t kOpenFolder = 1;
constexpr std::int64_t kClosedFolder = 2;
constexpr std::int64_t kBoundingDivider = 3;

constexpr std::size_t kEmptyChannel = 2; // its compression code
constexpr std::int64_t kRaw = 0;

} // namespace

void KPPSDGroupLayer::copyGroupInformationFrom(const KPPSDGroupLayer& group)
{
    setName(group.name());
    setOpacity(group.opacity());
    setIsOpened(group.isOpened());
    KPPSDLayerEffects::operator=(group);
}

KPPSDLayer::ChannelLengths KPPSDGroupLayer::writeLayerChannelsOn(GrowingFile& file, PackedRows& /*rows*/) const
{
    ChannelLengths lengths(static_cast<std::size_t>(numberOfChannels()), kEmptyChannel);
    for (const std::uint64_t length : lengths)
        kpAppendValue(file.end(), kRaw, static_cast<std::int32_t>(length));
    return lengths;
}

KPPSDLayer::SizeBounds KPPSDGroupLayer::layerChannelsSize() const
{
    const std::uint64_t size = kEmptyChannel * static_cast<std::uint64_t>(numberOfChannels());
    return {size, size};
}

const std::u16string& KPPSDGroupOpeningLayer::writtenName() const
{
    static const std::u16string name = u"</Layer group>";
    return name;
}

ByteBuffer KPPSDGroupOpeningLayer::extraLayerInformation() const
{
    ByteBuffer extra = startOfExtraLayerInformation();
    appendSignedKey(extra, "lsct");
    kpAppendValue(extra, 4, 4);
    kpAppendValue(extra, kBoundingDivider, 4);
    writeUnicodeNameOn(extra);
    return extra;
}

void KPPSDGroupClosingLayer::writeLayerInformationOn(ByteBuffer& buffer, const ChannelLengths& lengths)
{
    if (m_groupOpeningLayer)
        copyGroupInformationFrom(*m_groupOpeningLayer);
    KPPSDLayer::writeLayerInformationOn(buffer, lengths);
}

ByteBuffer KPPSDGroupClosingLayer::extraLayerInformation() const
{
    ByteBuffer extra = startOfExtraLayerInformation();
    appendSignedKey(extra, "lsct");
    kpAppendValue(extra, 12, 4);
    kpAppendValue(extra, isOpened() ? kOpenFolder : kClosedFolder, 4);
    appendBlendMode(extra, blend_mode::kPassThrough);
    writeEffectsLayerOn(extra);
    writeUnicodeNameOn(extra);
    return extra;
}

} // namespace wallgrid
