// SPDX-License-Identifier: MIT
#include "png/png_encoder.h"

#include "base/big_endian.h"
#include "png/run_deflater.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <libdeflate.h>
#include <new>
#include <string_view>

namespace wallgrid {

namespace {

/// PNG filter type 2: each byte less the byte above it. A map's rows mostly repeat, and so become zeros.
constexpr std::uint8_t kFilterUp = 2;

/// So many pixels at a time are compared with those above them.
constexpr std::size_t kPiece = 256;

/// About so many compressed bytes make a chunk.
constexpr std::size_t kChunk = std::size_t(1) << 18;

constexpr int kRowsAReport = 64;

struct Rgba {
    std::uint8_t r, g, b, a;
};

void appendChunk(Bytes& out, std::string_view type, std::span<const std::uint8_t> data)
{
    appendBigEndian(out, data.size(), 4);
    const std::size_t start = out.size();
    out.insert(out.end(), type.begin(), type.end());
    out.insert(out.end(), data.begin(), data.end());
    appendBigEndian(out, libdeflate_crc32(0, out.data() + start, out.size() - start), 4); // of type and data
}

std::uint8_t straight(unsigned sample, unsigned alpha)
{
    return alpha == 0 ? std::uint8_t(0) : static_cast<std::uint8_t>(std::min((sample * 255 + alpha / 2) / alpha, 255U));
}

void straighten(std::span<const Pixel> row, std::span<Rgba> straightened)
{
    unsigned alphas = 255;
    for (const Pixel& p : row)
        alphas &= p.a;
    if (alphas == 255) {
        std::transform(row.begin(), row.end(), straightened.begin(), [](Pixel p) { return Rgba{p.r, p.g, p.b, p.a}; });
        return;
    }
    std::transform(row.begin(), row.end(), straightened.begin(), [](Pixel p) {
        return Rgba{straight(p.r, p.a), straight(p.g, p.a), straight(p.b, p.a), p.a};
    });
}

/// Gives scan lines to the compressor, one after the other: a filter type byte before each row.
class ScanLines {
public:
    explicit ScanLines(const Bitmap& bitmap)
        : m_bitmap(bitmap)
        , m_above(static_cast<std::size_t>(bitmap.width()))
    {
    }

    void deflate(int y, RunDeflater& deflater)
    {
        deflater.addByte(kFilterUp);
        for (std::size_t x = 0; x < m_above.size(); x += kPiece) {
            const auto piece = m_bitmap.row(y).subspan(x, std::min(kPiece, m_above.size() - x));
            if (y > 0 && std::memcmp(piece.data(), m_bitmap.row(y - 1).data() + x, piece.size_bytes()) == 0)
                deflater.addZeroGroups(piece.size());
            else
                deflater.addGroups(filtered(piece, std::span(m_above).subspan(x, piece.size())));
        }
    }

private:
    /// Leaves the piece above the next one.
    std::span<const RunDeflater::Group> filtered(std::span<const Pixel> piece, std::span<Rgba> above)
    {
        straighten(piece, m_straightened);
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(m_straightened.data());
        auto* const bytesAbove = reinterpret_cast<std::uint8_t*>(above.data());
        auto* const difference = reinterpret_cast<std::uint8_t*>(m_filtered.data());
        for (std::size_t i = 0; i < above.size_bytes(); ++i)
            difference[i] = static_cast<std::uint8_t>(bytes[i] - bytesAbove[i]);
        std::copy_n(bytes, above.size_bytes(), bytesAbove);
        return std::span(m_filtered).first(piece.size());
    }

    const Bitmap& m_bitmap;
    std::vector<Rgba> m_above; ///< the row before, with straight alpha
    std::array<Rgba, kPiece> m_straightened;
    std::array<RunDeflater::Group, kPiece> m_filtered;
};

} // namespace

Expected<Bytes> encodePng(const Bitmap& bitmap, const Report& report)
try {
    Bytes header;
    appendBigEndian(header, static_cast<std::size_t>(bitmap.width()), 4);
    appendBigEndian(header, static_cast<std::size_t>(bitmap.height()), 4);
    // bit depth 8, colour type 6 (truecolour with alpha), compression 0 (deflate), filters 0, interlace 0 (none)
    header.insert(header.end(), {8, 6, 0, 0, 0});

    Bytes out{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    appendChunk(out, "IHDR", header);
    RunDeflater deflater;
    ScanLines lines(bitmap);
    for (int y = 0; y < bitmap.height(); ++y) {
        if (y % kRowsAReport == 0 && !goesOn(report, static_cast<double>(y) / bitmap.height()))
            return cancelled();
        lines.deflate(y, deflater);
        if (deflater.output().size() >= kChunk) {
            appendChunk(out, "IDAT", deflater.output());
            deflater.output().clear();
        }
    }
    deflater.finish();
    appendChunk(out, "IDAT", deflater.output());
    appendChunk(out, "IEND", {});
    return out;
} catch (const std::bad_alloc&) {
    return failure("there is not enough memory for the PNG file");
}

} // namespace wallgrid
