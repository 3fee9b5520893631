// SPDX-License-Identifier: MIT
#include "psd/packed_rows.h"

#include "psd/packed_bits.h"

#include <cstring>

namespace wallgrid {

namespace {

/// The samples of each channel next to each other: all red ones, all green ones, and so on in the order of a file.
void splitChannels(std::span<const Pixel> pixels, std::uint8_t* samples)
{
    const std::size_t count = pixels.size();
    for (std::size_t i = 0; i < count; ++i) {
        samples[i] = pixels[i].r;
        samples[count + i] = pixels[i].g;
        samples[2 * count + i] = pixels[i].b;
        samples[3 * count + i] = pixels[i].a;
    }
}

} // namespace

void PackedRows::start(int channels, std::size_t rows, std::size_t pixels, Margins margins)
{
    m_channels = channels;
    m_fill = margins.fill;
    m_left = packedFill(margins.left);
    m_right = packedFill(margins.right);
    m_samples.resize(kMostChannels * pixels);
    m_packed.clear();
    // Room for all rows and for one of fill above and one below them.
    m_packed.reserve((static_cast<std::size_t>(channels) * rows + 2) *
                     (m_left.size() + largestPackedSize(pixels) + m_right.size()));
    for (auto& channel : m_rows)
        channel.clear();
}

ByteBuffer PackedRows::packedFill(std::size_t samples) const
{
    const std::vector<std::uint8_t> fill(samples, m_fill);
    ByteBuffer packed(largestPackedSize(samples));
    packed.resize(packSamples(fill, packed.data()));
    return packed;
}

void PackedRows::addFilledRows(std::size_t samples, std::size_t rows)
{
    if (rows == 0)
        return;
    const std::size_t begin = m_packed.size();
    append(m_packed, packedFill(samples));
    for (std::size_t c = 0; c < static_cast<std::size_t>(m_channels); ++c)
        m_rows[c].insert(m_rows[c].end(), rows, {begin, m_packed.size() - begin});
}

void PackedRows::addRow(std::span<const Pixel> pixels, const Pixel* above)
{
    const bool repeated = above && std::memcmp(pixels.data(), above, pixels.size_bytes()) == 0;
    if (!repeated)
        splitChannels(pixels, m_samples.data());
    for (std::size_t c = 0; c < static_cast<std::size_t>(m_channels); ++c) {
        if (repeated) {
            m_rows[c].push_back(m_rows[c].back());
            continue;
        }
        const std::size_t begin = m_packed.size();
        append(m_packed, m_left);
        const std::size_t middle = m_packed.size();
        std::uint8_t* const packed = extend(m_packed, largestPackedSize(pixels.size()));
        const auto samples = std::span(m_samples).subspan(c * pixels.size(), pixels.size());
        m_packed.resize(middle + packSamples(samples, packed));
        append(m_packed, m_right);
        m_rows[c].push_back({begin, m_packed.size() - begin});
    }
}

void PackedRows::appendLengths(int channel, ByteBuffer& buffer) const
{
    const auto& rows = m_rows[static_cast<std::size_t>(channel)];
    std::uint8_t* out = extend(buffer, 2 * rows.size());
    for (const Piece& row : rows) {
        *out++ = static_cast<std::uint8_t>(row.length >> 8);
        *out++ = static_cast<std::uint8_t>(row.length);
    }
}

void PackedRows::appendData(int channel, ByteBuffer& buffer) const
{
    for (const Piece& row : m_rows[static_cast<std::size_t>(channel)])
        append(buffer, {m_packed.data() + row.begin, row.length});
}

} // namespace wallgrid
