// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"
#include "base/progress.h"
#include "graphics/color.h"
#include "psd/packbits/pixel_row.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace wallgrid {

class GrowingFile;

/// The rows of a picture as a PSD holds them: for each channel (red, green, blue and perhaps transparency) the packed
/// length of every row, then the packed rows. Each different row is packed once and kept once: pictures of walls repeat
/// most of theirs.
class PackedRows {
public:
    static constexpr int kMostChannels = PixelRow::kChannels;

    /// What stands in all channels beside the pixels of a row and in rows without pixels.
    struct Margins {
        std::uint8_t fill = 0;
        std::size_t left = 0;
        std::size_t right = 0;
    };

    /// Who is told how far the next picture is, from 0 when its first row is packed to 1 when all are appended. When
    /// the report stops it, nothing more of the picture is packed or appended, and of no other one.
    void setReport(Report report) { m_report = std::move(report); }
    bool isStopped() const { return m_isStopped; }

    /// Starts a picture of at most so many rows of so many pixels, the margins not counted. Memory stays from picture
    /// to picture: pages that are new each time cost more than what is written into them.
    void start(int channels, std::size_t rows, std::size_t pixels, Margins margins);

    /// Adds rows of `samples` fill samples.
    void addFilledRows(std::size_t samples, std::size_t rows);
    /// Adds a row of pixels between its margins. The three are packed each for itself, and a margin of 0 not at all.
    /// `above` is the row of pixels that was added just before, if any; a row that looks like it is not packed again.
    void addRow(std::span<const Pixel> pixels, const Pixel* above);

    /// Two bytes a row, big-endian.
    void appendLengths(int channel, GrowingFile& file) const;
    void appendData(int channel, GrowingFile& file);

private:
    bool goesOn(std::size_t row, double done);

    /// Where a packed row stands in m_packed, and for how many rows in a row it does.
    struct Piece {
        std::size_t begin = 0;
        std::size_t length = 0;
        std::size_t times = 0;
    };

    Report m_report;
    bool m_isStopped = false;
    std::size_t m_rows = 0; ///< of pixels that there will be, and are
    std::size_t m_rowsAdded = 0;
    std::uint8_t m_fill = 0;
    ByteBuffer m_left, m_right;
    PixelRow m_row; ///< the one that is being packed
    ByteBuffer m_packed;
    std::vector<std::vector<Piece>> m_channels;
};

} // namespace wallgrid
