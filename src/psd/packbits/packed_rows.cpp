// SPDX-License-Identifier: MIT
#include "psd/packbits/packed_rows.h"

#include "base/growing_file.h"
#include "psd/packbits/packed_bits.h"
#include "psd/packbits/repeats.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace wallgrid {

namespace {

/// Packed or appended between two reports.
constexpr std::size_t kRowsAReport = 64;
/// Packing's share of the time that a picture takes. The rest is appending.
constexpr double kPackingShare = 0.5;

ByteBuffer packedFill(std::uint8_t fill, std::size_t samples)
{
    const std::vector<std::uint8_t> row(samples, fill);
    std::vector<std::uint64_t> repeats(repeatWords(samples));
    ByteBuffer packed(largestPackedSize(samples));
    packed.resize(packSamples(row, repeats.data(), packed.data()));
    return packed;
}

} // namespace

void PackedRows::start(int channels, std::size_t rows, std::size_t pixels, Margins margins)
{
    m_rows = rows;
    m_rowsAdded = 0;
    m_fill = margins.fill;
    m_left = packedFill(margins.fill, margins.left);
    m_right = packedFill(margins.fill, margins.right);
    m_packed.clear();
    // Room for all rows and for one of fill above and one below them.
    m_packed.reserve((static_cast<std::size_t>(channels) * rows + 2) *
                     (m_left.size() + largestPackedSize(pixels) + m_right.size()));
    m_channels.resize(static_cast<std::size_t>(channels));
    for (auto& channel : m_channels)
        channel.clear();
}

void PackedRows::addFilledRows(std::size_t samples, std::size_t rows)
{
    if (rows == 0)
        return;
    const std::size_t begin = m_packed.size();
    append(m_packed, packedFill(m_fill, samples));
    for (auto& channel : m_channels)
        channel.push_back({begin, m_packed.size() - begin, rows});
}

void PackedRows::addRow(std::span<const Pixel> pixels, const Pixel* above)
{
    if (!goesOn(m_rowsAdded, kPackingShare * static_cast<double>(m_rowsAdded) / static_cast<double>(m_rows)))
        return;
    ++m_rowsAdded;
    if (above && std::memcmp(pixels.data(), above, pixels.size_bytes()) == 0) {
        for (auto& channel : m_channels)
            ++channel.back().times;
        return;
    }
    m_row.set(pixels);
    for (std::size_t c = 0; c < m_channels.size(); ++c) {
        const std::size_t begin = m_packed.size();
        append(m_packed, m_left);
        const std::size_t middle = m_packed.size();
        std::uint8_t* const packed = extend(m_packed, largestPackedSize(pixels.size()));
        m_packed.resize(middle + m_row.pack(c, packed));
        append(m_packed, m_right);
        m_channels[c].push_back({begin, m_packed.size() - begin, 1});
    }
}

void PackedRows::appendLengths(int channel, GrowingFile& file) const
{
    for (const Piece& row : m_channels[static_cast<std::size_t>(channel)]) {
        const std::array length{static_cast<std::uint8_t>(row.length >> 8), static_cast<std::uint8_t>(row.length)};
        file.appendRepeated(length, row.times);
    }
}

void PackedRows::appendData(int channel, GrowingFile& file)
{
    const auto& rows = m_channels[static_cast<std::size_t>(channel)];
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double channels = channel + static_cast<double>(i) / static_cast<double>(rows.size());
        const double appended = channels / static_cast<double>(m_channels.size());
        if (!goesOn(i, kPackingShare + (1 - kPackingShare) * appended))
            return;
        file.appendRepeated({m_packed.data() + rows[i].begin, rows[i].length}, rows[i].times);
    }
}

/// Asks the report at some rows only.
bool PackedRows::goesOn(std::size_t row, double done)
{
    if (!m_isStopped && row % kRowsAReport == 0)
        m_isStopped = !wallgrid::goesOn(m_report, done);
    return !m_isStopped;
}

} // namespace wallgrid
