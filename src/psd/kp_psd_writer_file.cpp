// SPDX-License-Identifier: MIT
#include "base/growing_file.h"
#include "graphics/bitmap_memory.h"
#include "psd/fields/append_value.h"
#include "psd/fields/record_fields.h"
#include "psd/icc_profile.h"
#include "psd/kp_psd_writer.h"
#include "psd/packbits/packed_bits.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <numeric>
#include <string_view>
#include <utility>

namespace wallgrid {

namespace {

/// What a 4-byte length can say.
constexpr std::uint64_t kLongestSection = std::numeric_limits<std::uint32_t>::max();
/// What a 2-byte count can say; with its sign it would mean something else.
constexpr std::size_t kMostLayers = std::numeric_limits<std::int16_t>::max();
constexpr std::size_t kHeaderAndResources = 1024;

constexpr std::int64_t kResolutionInformation = 1005;
constexpr std::int64_t kLayerState = 1024;
constexpr std::int64_t kIccProfile = 1039;
constexpr std::int64_t kInches = 1;
constexpr std::int64_t kPackBits = 1;

KPPSDError tooLarge()
{
    return {KPPSDError::TooLarge, "The document is too large for a PSD file"};
}

KPPSDError cancelledByReport()
{
    return {KPPSDError::Cancelled, "The document was not written, because that was cancelled"};
}

KPPSDError noMemory()
{
    return {KPPSDError::NotPrepared, "There is not enough memory to write the document"};
}

/// Reports only what went wrong.
bool report(KPPSDError found, KPPSDError* error)
{
    const bool failed = static_cast<bool>(found);
    if (failed && error)
        *error = std::move(found);
    return failed;
}

void appendResource(ByteBuffer& buffer, std::int64_t identifier, std::span<const std::uint8_t> data)
{
    kpAppendUTF8String(buffer, "8BIM", 4);
    kpAppendValue(buffer, identifier, 2);
    kpAppendValue(buffer, 0, 2); // no name
    kpAppendValue(buffer, static_cast<std::int64_t>(data.size()), 4);
    append(buffer, data);
}

/// 16.16 fixed point, held within what that can say; 0 for what is no number.
std::int64_t fixedPoint(float value)
{
    const double bounded = std::isnan(value) ? 0 : std::clamp<double>(value, -0x8000, 0xFFFF);
    return static_cast<std::int64_t>(bounded * 65536 + 0.5);
}

std::span<const std::uint8_t> profileBytes(std::int32_t colorProfile)
{
    switch (colorProfile) {
    case 1:
        return iccProfile("GenericRGB");
    case 2:
        return iccProfile("sRGB");
    case 3:
        return iccProfile("AdobeRGB1998");
    default:
        return {};
    }
}

bool isBroken(Size size)
{
    return size.width != std::trunc(size.width) || size.height != std::trunc(size.height);
}

double pixelsOf(const KPPSDLayer& layer)
{
    const Size size = layer.imageCropRegion().size;
    return std::max(size.width, 0.0) * std::max(size.height, 0.0);
}

/// Puts a length in front of what was written from behind its place up to `end`.
void fillInLength(ByteBuffer& buffer, std::size_t place, std::uint64_t end)
{
    ByteBuffer length;
    kpAppendValue(length, static_cast<std::int64_t>(end - place - 4), 4);
    std::copy(length.begin(), length.end(), buffer.data() + place);
}

KPPSDError errorOf(const GrowingFile& file)
{
    const auto& written = file.written();
    return written ? KPPSDError() : KPPSDError{KPPSDError::NotWritten, written.error().message};
}

} // namespace

ByteBuffer KPPSDWriter::createPSDDataWithError(KPPSDError* error)
{
    GrowingFile file;
    if (report(writeFileOn(file), error))
        return {};
    return std::move(file.end());
}

void KPPSDWriter::writePSDOn(ByteSink& sink, KPPSDError* error)
{
    GrowingFile file(sink);
    report(writeFileOn(file), error);
}

KPPSDError KPPSDWriter::writeFileOn(GrowingFile& file)
{
    if (visibleLayers().empty())
        return {KPPSDError::NoVisibleLayers, "No visible layers in the document"};
    if (isTooLarge())
        return tooLarge();
    const Layers layers = visibleLayers();
    if (isBroken(m_documentSize) || std::any_of(layers.begin(), layers.end(),
                                                [](const LayerRef& layer) { return isBroken(layer->documentSize()); }))
        return {KPPSDError::BrokenDocumentSize, "The document's size is not a whole number of pixels"};
    try {
        if (auto error = prepare())
            return error;
        const std::uint64_t most = file.isHeld() ? largestFileSize() : 0;
        if (most > file.end().max_size())
            return noMemory();
        file.end().reserve(static_cast<std::size_t>(most));
        writeFileHeaderSectionOn(file.end());
        writeColorModeDataSectionOn(file.end());
        writeImageResourceSectionOn(file.end());
        PackedRows rows;
        if (auto error = writeLayerAndMaskInformationSectionOn(file, rows))
            return error;
        if (auto error = writeImageDataSectionOn(file, rows))
            return error;
        file.finish();
    } catch (const std::bad_alloc&) {
        return noMemory();
    }
    return errorOf(file);
}

KPPSDError KPPSDWriter::prepare()
{
    const std::size_t refusedBefore = BitmapMemory::refused();
    const bool hasPixels = preprocess();
    if (!m_flattenedData.isComplete())
        return noMemory();
    if (!hasPixels) {
        if (BitmapMemory::refused() != refusedBefore)
            return noMemory();
        return {KPPSDError::NotPrepared, "The pixels of a layer are more or fewer than it shows"};
    }
    if (m_flattenedData.width() != static_cast<int>(m_documentSize.width) ||
        m_flattenedData.height() != static_cast<int>(m_documentSize.height) || !m_flattenedData)
        return {KPPSDError::NotPrepared, "There is no merged image of the document's size"};
    return {};
}

bool KPPSDWriter::isTooLarge() const
{
    const auto tooLong = [](double side) { return !(side <= KPPSDLayer::kLongestSide); };
    if (tooLong(m_documentSize.width) || tooLong(m_documentSize.height))
        return true;
    const Layers visible = visibleLayers();
    std::uint64_t least = 0;
    for (const LayerRef& layer : visible) {
        if (tooLong(layer->documentSize().width) || tooLong(layer->documentSize().height))
            return true;
        // A name stands in its record whole, however long.
        least += layer->layerChannelsSize().least + 2 * textOf(layer->name()).size();
    }
    return least > kLongestSection || visible.size() + static_cast<std::size_t>(openGroups()) > kMostLayers;
}

std::uint64_t KPPSDWriter::largestFileSize() const
{
    std::uint64_t layers = 0, largest = 0;
    for (const LayerRef& layer : visibleLayers()) {
        layers += layer->layerChannelsSize().most;
        largest = std::max(largest, layer->layerChannelsSize().most);
    }
    // The layer that makes the section too long is still written.
    layers = std::min(layers, kLongestSection + largest);
    const auto rows =
        static_cast<std::uint64_t>(numberOfChannels()) * static_cast<std::uint64_t>(m_flattenedData.height());
    const std::uint64_t row = 2 + largestPackedSize(static_cast<std::size_t>(m_flattenedData.width()));
    return kHeaderAndResources + profileBytes(m_colorProfile).size() + layers + rows * row;
}

void KPPSDWriter::writeFileHeaderSectionOn(ByteBuffer& buffer) const
{
    kpAppendUTF8String(buffer, "8BPS", 4);
    kpAppendValue(buffer, 1, 2); // version
    kpAppendValue(buffer, 0, 6);
    kpAppendValue(buffer, numberOfChannels(), 2);
    kpAppendValue(buffer, static_cast<std::int64_t>(m_documentSize.height), 4);
    kpAppendValue(buffer, static_cast<std::int64_t>(m_documentSize.width), 4);
    kpAppendValue(buffer, 8, 2); // bits a channel
    kpAppendValue(buffer, 3, 2); // RGB
}

void KPPSDWriter::writeColorModeDataSectionOn(ByteBuffer& buffer) const
{
    kpAppendValue(buffer, 0, 4);
}

void KPPSDWriter::writeImageResourceSectionOn(ByteBuffer& buffer) const
{
    const std::size_t section = buffer.size();
    kpAppendValue(buffer, 0, 4);
    ByteBuffer resolution;
    for (const float pixelsPerInch : {m_documentResolution.hResolution, m_documentResolution.vResolution}) {
        kpAppendValue(resolution, fixedPoint(pixelsPerInch), 4);
        kpAppendValue(resolution, m_documentResolutionUnit, 2);
        kpAppendValue(resolution, kInches, 2); // how the width or the height is shown
    }
    appendResource(buffer, kResolutionInformation, resolution);
    appendResource(buffer, kLayerState, {{0, 0}}); // the bottom layer is the target
    if (m_colorProfile != 0)
        appendResource(buffer, kIccProfile, profileBytes(m_colorProfile));
    fillInLength(buffer, section, buffer.size());
}

/// Stops as soon as the section is longer than its length can say, when the report says so, or when the sink fails.
KPPSDError KPPSDWriter::writeLayerAndMaskInformationSectionOn(GrowingFile& file, PackedRows& rows) const
{
    const std::size_t section = file.end().size();
    const Layers visible = visibleLayers();
    kpAppendValue(file.end(), 0, 4); // section length
    kpAppendValue(file.end(), 0, 4); // layer information length
    kpAppendValue(file.end(), static_cast<std::int64_t>(visible.size()), 2);

    // The records hold the lengths of channels that come after all records, so they are filled in then.
    std::vector<std::size_t> records;
    for (const LayerRef& layer : visible) {
        records.push_back(file.end().size());
        layer->writeLayerInformationOn(file.end(), {});
    }
    file.endHead();
    // Each picture takes the share of its pixels, the merged image behind all layers as well.
    const double merged = m_documentSize.width * m_documentSize.height;
    const double all = std::accumulate(visible.begin(), visible.end(), merged,
                                       [](double sum, const LayerRef& layer) { return sum + pixelsOf(*layer); });
    double done = 0;
    for (std::size_t i = 0; i < visible.size(); ++i) {
        const double begin = std::exchange(done, done + pixelsOf(*visible[i]) / all);
        rows.setReport(partOf(m_report, begin, done));
        const auto lengths = visible[i]->writeLayerChannelsOn(file, rows);
        if (rows.isStopped())
            return cancelledByReport();
        KPPSDLayer::fillInChannelLengths(file.head(), records[i], lengths);
        if (file.size() - section > kLongestSection)
            return tooLarge();
        if (auto error = errorOf(file))
            return error;
    }
    if ((file.size() - section) % 2 != 0)
        kpAppendValue(file.end(), 0, 1);
    fillInLength(file.head(), section, file.size());
    fillInLength(file.head(), section + 4, file.size());
    rows.setReport(partOf(m_report, done, 1));
    return {};
}

KPPSDError KPPSDWriter::writeImageDataSectionOn(GrowingFile& file, PackedRows& rows) const
{
    const MergedImage& merged = m_flattenedData;
    const int channels = numberOfChannels();
    MergedRows pixels(merged);
    if (!pixels)
        return noMemory();
    rows.start(channels, static_cast<std::size_t>(merged.height()), static_cast<std::size_t>(merged.width()), {});
    const Pixel* above = nullptr;
    for (int y = 0; y < merged.height(); ++y) {
        const auto row = pixels.next();
        rows.addRow(row, above);
        above = row.data();
    }
    kpAppendValue(file.end(), kPackBits, 2);
    for (int c = 0; c < channels; ++c)
        rows.appendLengths(c, file);
    for (int c = 0; c < channels; ++c)
        rows.appendData(c, file);
    return rows.isStopped() ? cancelledByReport() : KPPSDError();
}

} // namespace wallgrid
