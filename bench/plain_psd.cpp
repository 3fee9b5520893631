// SPDX-License-Identifier: MIT
#include "plain_psd.h"

#include "plain_packed_bits.h"

#include <array>
#include <string>
#include <string_view>

namespace wallgrid::bench {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kPixel = sizeof(Pixel);
constexpr std::array<std::size_t, 4> kChannels = {offsetof(Pixel, r), offsetof(Pixel, g), offsetof(Pixel, b),
                                                  offsetof(Pixel, a)};

void appendValue(Bytes& out, std::uint64_t value, int length)
{
    for (int shift = 8 * (length - 1); shift >= 0; shift -= 8)
        out.push_back(static_cast<std::uint8_t>(value >> shift));
}

void appendBytes(Bytes& out, const Bytes& bytes)
{
    out.insert(out.end(), bytes.begin(), bytes.end());
}

void appendText(Bytes& out, std::string_view text)
{
    out.insert(out.end(), text.begin(), text.end());
}

Bytes packedFill(std::size_t samples)
{
    Bytes packed;
    if (samples > 0)
        packPlainly(Bytes(samples * kPixel), 0, samples * kPixel, kPixel, packed);
    return packed;
}

std::span<const std::uint8_t> bytesOf(const Bitmap& bitmap)
{
    return {reinterpret_cast<const std::uint8_t*>(bitmap.pixels()),
            bitmap.bytesPerRow() * static_cast<std::size_t>(bitmap.height())};
}

/// A channel image: compression code, packed lengths of the rows, packed rows.
Bytes channelImage(const Bytes& lengths, const Bytes& rows)
{
    Bytes channel;
    appendValue(channel, 1, 2);
    appendBytes(channel, lengths);
    appendBytes(channel, rows);
    return channel;
}

std::vector<Bytes> layerChannels(const KPPSDLayer& layer)
{
    const KPPSDLayer::BitmapPart part = layer.croppedPart();
    const auto documentWidth = static_cast<std::size_t>(layer.documentSize().width);
    const auto documentHeight = static_cast<std::size_t>(layer.documentSize().height);
    const auto left = static_cast<std::size_t>(layer.imageInDocumentRegion().origin.x);
    const auto top = static_cast<std::size_t>(layer.imageInDocumentRegion().origin.y);
    const auto width = static_cast<std::size_t>(part.rect.width);
    const auto height = static_cast<std::size_t>(part.rect.height);
    const Bytes emptyRow = packedFill(documentWidth);
    const Bytes leftPiece = packedFill(left);
    const Bytes rightPiece = packedFill(documentWidth - left - width);
    const auto pixels = bytesOf(*part.bitmap);
    std::vector<Bytes> channels;
    for (const std::size_t channel : kChannels) {
        Bytes lengths;
        Bytes rows;
        for (std::size_t r = 0; r < documentHeight; ++r) {
            const std::size_t begin = rows.size();
            if (r < top || r >= top + height) {
                appendBytes(rows, emptyRow);
            } else {
                const std::size_t row = r - top + static_cast<std::size_t>(part.rect.y);
                const std::size_t first =
                    row * part.bitmap->bytesPerRow() + static_cast<std::size_t>(part.rect.x) * kPixel + channel;
                appendBytes(rows, leftPiece);
                packPlainly(pixels, first, width * kPixel, kPixel, rows);
                appendBytes(rows, rightPiece);
            }
            appendValue(lengths, rows.size() - begin, 2);
        }
        channels.push_back(channelImage(lengths, rows));
    }
    return channels;
}

void appendRecord(Bytes& out, const KPPSDLayer& layer)
{
    appendValue(out, 0, 4);
    appendValue(out, 0, 4);
    appendValue(out, static_cast<std::uint64_t>(layer.documentSize().height), 4);
    appendValue(out, static_cast<std::uint64_t>(layer.documentSize().width), 4);
    appendValue(out, kChannels.size(), 2);
    std::uint64_t channelId = 0;
    for (const Bytes& channel : layerChannels(layer)) {
        appendValue(out, channelId < 3 ? channelId : 0xFFFF, 2);
        appendValue(out, channel.size(), 4);
        ++channelId;
    }
    appendText(out, "8BIMnorm");
    appendValue(out, layer.opacity255(), 1);
    appendValue(out, 0, 3);

    const std::u16string& name = *layer.name();
    const std::size_t field = (name.size() + 1 + 3) / 4 * 4;
    appendValue(out, 8 + field + 16 + 2 * name.size(), 4);
    appendValue(out, 0, 8);
    appendValue(out, name.size(), 1);
    std::string padded(name.begin(), name.end());
    padded += ' ';
    padded.resize(field);
    appendText(out, std::string_view(padded).substr(0, field - 1));
    appendText(out, "8BIMluni");
    appendValue(out, 4 + 2 * name.size(), 4);
    appendValue(out, name.size(), 4);
    for (const char16_t unit : name)
        appendValue(out, unit, 2);
}

Bytes layerInformation(const KPPSDWriter& writer)
{
    Bytes out;
    appendValue(out, writer.layers().size(), 2);
    for (const auto& layer : writer.layers())
        appendRecord(out, *layer);
    for (const auto& layer : writer.layers())
        for (const Bytes& channel : layerChannels(*layer))
            appendBytes(out, channel);
    if (out.size() % 2 != 0)
        out.push_back(0);
    return out;
}

Bytes mergedImage(const Bitmap& merged)
{
    Bytes lengths;
    Bytes rows;
    for (const std::size_t channel : kChannels) {
        for (std::size_t y = 0; y < static_cast<std::size_t>(merged.height()); ++y) {
            const std::size_t begin = rows.size();
            packPlainly(bytesOf(merged), y * merged.bytesPerRow() + channel, merged.bytesPerRow(), kPixel, rows);
            appendValue(lengths, rows.size() - begin, 2);
        }
    }
    return channelImage(lengths, rows);
}

} // namespace

std::vector<std::uint8_t> plainPsd(KPPSDWriter& writer)
{
    Bytes out;
    appendText(out, "8BPS");
    appendValue(out, 1, 2);
    appendValue(out, 0, 6);
    appendValue(out, kChannels.size(), 2);
    appendValue(out, static_cast<std::uint64_t>(writer.documentSize().height), 4);
    appendValue(out, static_cast<std::uint64_t>(writer.documentSize().width), 4);
    appendValue(out, 8, 2);
    appendValue(out, 3, 2);
    appendValue(out, 0, 4); // colour-mode data

    appendValue(out, 42, 4); // image resources
    appendText(out, "8BIM");
    appendValue(out, 1005, 2);
    appendValue(out, 0, 2);
    appendValue(out, 16, 4);
    for (int side = 0; side < 2; ++side) {
        appendValue(out, 72 << 16, 4);
        appendValue(out, 1, 2);
        appendValue(out, 1, 2);
    }
    appendText(out, "8BIM");
    appendValue(out, 1024, 2);
    appendValue(out, 0, 2);
    appendValue(out, 2, 4);
    appendValue(out, 0, 2);

    const Bytes layers = layerInformation(writer);
    appendValue(out, layers.size() + 4, 4);
    appendValue(out, layers.size(), 4);
    appendBytes(out, layers);
    appendBytes(out, mergedImage(*writer.flattenedContext()));
    return out;
}

} // namespace wallgrid::bench
