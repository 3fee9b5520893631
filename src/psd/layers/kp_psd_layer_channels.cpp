// SPDX-License-Identifier: MIT
#include "base/growing_file.h"
#include "psd/fields/append_value.h"
#include "psd/layers/kp_psd_layer.h"
#include "psd/packbits/packed_bits.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace wallgrid {

namespace {

constexpr std::int64_t kPackBits = 1;
constexpr std::int32_t kCodeLength = 2;
constexpr std::size_t kRowLength = 2;
constexpr std::size_t kBytesPerPixel = 4;

/// How a layer's rows are divided, in samples and rows.
struct Division {
    std::size_t samples = 0; ///< of a row without the image
    std::size_t left = 0;
    std::size_t image = 0;
    std::size_t right = 0;
    std::size_t above = 0; ///< rows without the image
    std::size_t rows = 0;
    std::size_t below = 0;

    std::size_t allRows() const { return above + rows + below; }
};

std::size_t wholePart(double value)
{
    return static_cast<std::size_t>(value);
}

Division divide(Size document, const Rect& region)
{
    const auto usable = [](double side) { return side >= 0 && side <= KPPSDLayer::kLongestSide; };
    if (!usable(document.width) || !usable(document.height))
        throw std::out_of_range("KPPSDLayer: the document has no size that a PSD can have");
    const Size size = region.size.width > 0 && region.size.height > 0 ? region.size : Size{};
    const double left = std::floor(region.origin.x);
    const double image = std::floor(size.width);
    Division d;
    const std::size_t fill = wholePart(std::ceil(static_cast<float>(document.width * kBytesPerPixel)));
    d.samples = (fill + kBytesPerPixel - 1) / kBytesPerPixel;
    d.left = wholePart(left);
    d.image = wholePart(image);
    d.right = wholePart(std::max(document.width - left - image, 0.0));
    d.above = wholePart(region.origin.y);
    d.rows = wholePart(size.height);
    d.below = wholePart(std::ceil(document.height)) - d.above - d.rows;
    return d;
}

/// The size of that many equal samples when they are packed, or a little more.
std::size_t packedFill(std::size_t samples)
{
    return 2 * (samples / 127 + 2);
}

} // namespace

KPPSDLayer::SizeBounds KPPSDLayer::layerChannelsSize() const
{
    const Division d = divide(m_documentSize, imageInDocumentRegion());
    const auto channels = static_cast<std::uint64_t>(m_numberOfChannels);
    const std::size_t shortestRow = kRowLength + 2 * ((d.left + d.image + d.right) / 127);
    const std::size_t imageRow = kRowLength + packedFill(d.left) + largestPackedSize(d.image) + packedFill(d.right);
    const std::size_t fillRow = kRowLength + packedFill(d.samples);
    return {channels * (kCodeLength + d.allRows() * shortestRow),
            channels * (kCodeLength + d.rows * imageRow + (d.above + d.below) * fillRow)};
}

KPPSDLayer::ChannelLengths KPPSDLayer::writeLayerChannelsOn(ByteBuffer& buffer) const
{
    PackedRows rows;
    GrowingFile file;
    file.end().swap(buffer);
    ChannelLengths lengths = writeLayerChannelsOn(file, rows);
    file.end().swap(buffer);
    return lengths;
}

KPPSDLayer::ChannelLengths KPPSDLayer::writeLayerChannelsOn(GrowingFile& file, PackedRows& packed) const
{
    const Division d = divide(m_documentSize, imageInDocumentRegion());
    const BitmapPart part = visiblePart();
    const bool hasPixels = part.bitmap && part.rect.width == static_cast<std::int64_t>(d.image) &&
                           part.rect.height == static_cast<std::int64_t>(d.rows);
    if (d.image > 0 && d.rows > 0 && !hasPixels)
        throw std::runtime_error("KPPSDLayer: the pixels are missing or have another size than the crop region");
    // Outside the image: transparent black, or white where there is no transparency.
    const std::uint8_t fill = m_numberOfChannels >= 4 ? 0 : 255;
    const int channels = static_cast<int>(m_numberOfChannels);

    packed.start(channels, d.rows, d.image, {fill, d.left, d.right});
    packed.addFilledRows(d.samples, d.above);
    const Pixel* above = nullptr;
    for (std::size_t r = 0; r < d.rows; ++r) {
        const auto row = part.row(static_cast<std::int64_t>(r));
        packed.addRow(row, above);
        above = row.data();
    }
    packed.addFilledRows(d.samples, d.below);

    ChannelLengths lengths;
    for (int c = 0; c < channels; ++c) {
        const std::uint64_t begin = file.size();
        kpAppendValue(file.end(), kPackBits, kCodeLength);
        packed.appendLengths(c, file);
        packed.appendData(c, file);
        lengths.push_back(file.size() - begin);
    }
    return lengths;
}

std::vector<ByteBuffer> KPPSDLayer::layerChannels() const
{
    ByteBuffer all;
    std::vector<ByteBuffer> channels;
    const ChannelLengths lengths = writeLayerChannelsOn(all);
    auto begin = all.begin();
    for (const std::uint64_t length : lengths) {
        channels.emplace_back(begin, begin + static_cast<std::ptrdiff_t>(length));
        begin += static_cast<std::ptrdiff_t>(length);
    }
    return channels;
}

} // namespace wallgrid
