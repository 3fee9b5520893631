// SPDX-License-Identifier: MIT
#include "base/big_endian.h"
#include "base/unicode.h"
#include "psd/fields/append_value.h"
#include "psd/fields/pascal_string.h"
#include "psd/fields/record_fields.h"
#include "psd/layers/kp_psd_layer.h"

#include <algorithm>

namespace wallgrid {

namespace {

constexpr std::int64_t kTransparency = 0xFFFF; // channel -1
/// From the start of a record to its first channel: the rectangle and the number of channels.
constexpr std::size_t kChannelList = 4 * 4 + 2;
constexpr std::size_t kChannelId = 2;
constexpr std::size_t kChannelEntry = kChannelId + 4;

constexpr std::size_t kLongestName = 255;

} // namespace

void KPPSDLayer::writeLayerInformationOn(ByteBuffer& buffer)
{
    ByteBuffer channels;
    writeLayerInformationOn(buffer, writeLayerChannelsOn(channels));
}

void KPPSDLayer::writeLayerInformationOn(ByteBuffer& buffer, const ChannelLengths& lengths)
{
    const std::size_t record = buffer.size();
    kpAppendValue(buffer, 0, 4); // top
    kpAppendValue(buffer, 0, 4); // left
    kpAppendValue(buffer, static_cast<std::int64_t>(m_documentSize.height), 4);
    kpAppendValue(buffer, static_cast<std::int64_t>(m_documentSize.width), 4);
    kpAppendValue(buffer, m_numberOfChannels, 2);
    for (std::int64_t c = 0; c < m_numberOfChannels; ++c) {
        kpAppendValue(buffer, c < 3 ? c : kTransparency, kChannelId);
        kpAppendValue(buffer, 0, 4);
    }
    fillInChannelLengths(buffer, record, lengths);
    appendBlendMode(buffer, m_blendMode);
    kpAppendValue(buffer, opacity255(), 1);
    kpAppendValue(buffer, 0, 1); // clipping: base
    kpAppendValue(buffer, 0, 1); // flags: visible
    kpAppendValue(buffer, 0, 1); // filler
    const ByteBuffer extra = extraLayerInformation();
    kpAppendValue(buffer, static_cast<std::int64_t>(extra.size()), 4);
    append(buffer, extra);
}

void KPPSDLayer::fillInChannelLengths(ByteBuffer& buffer, std::size_t record, const ChannelLengths& lengths)
{
    ByteBuffer field;
    for (std::size_t c = 0; c < lengths.size(); ++c) {
        field.clear();
        kpAppendValue(field, static_cast<std::int64_t>(lengths[c]), 4);
        std::copy(field.begin(), field.end(), buffer.data() + record + kChannelList + c * kChannelEntry + kChannelId);
    }
}

ByteBuffer KPPSDLayer::startOfExtraLayerInformation() const
{
    ByteBuffer extra;
    kpAppendValue(extra, 0, 4); // no mask
    kpAppendValue(extra, 0, 4); // no blending ranges
    writeNameOn(extra, 4);
    return extra;
}

ByteBuffer KPPSDLayer::extraLayerInformation() const
{
    ByteBuffer extra = startOfExtraLayerInformation();
    writeEffectsLayerOn(extra);
    writeUnicodeNameOn(extra);
    return extra;
}

void KPPSDLayer::writeNameOn(ByteBuffer& buffer, std::int32_t padding) const
{
    const std::u16string name(startOfText(writtenName(), kLongestName));
    // The blank stands for the length byte, so that the two together fill a multiple of the padding.
    const std::u16string padded = name + u' ';
    const std::string bytes = kpPascalStringPaddedTo(padded, padding);
    const auto length = static_cast<std::size_t>(kpPascalStringLengthPaddedTo(padded, padding)) - 1;
    kpAppendValue(buffer, static_cast<std::int64_t>(name.size()), 1);
    kpAppendUTF8String(buffer, std::string_view(bytes).substr(0, length), static_cast<std::int32_t>(length));
}

void KPPSDLayer::writeUnicodeNameOn(ByteBuffer& buffer) const
{
    const std::u16string& name = writtenName();
    appendSignedKey(buffer, "luni");
    kpAppendValue(buffer, static_cast<std::int64_t>(4 + 2 * name.size()), 4);
    kpAppendValue(buffer, static_cast<std::int64_t>(name.size()), 4);
    for (const char16_t unit : name)
        appendBigEndian(buffer, unit, 2);
}

} // namespace wallgrid
