// SPDX-License-Identifier: MIT
#include "platform/png_encoder.h"

#include "platform/zeroed_pages.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <future>
#include <libdeflate.h>
#include <memory>
#include <new>
#include <string_view>
#include <system_error>

namespace wallgrid {

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Of libdeflate. On composed rasters levels 2 to 6 take the same time, because what is flat is found at once; from 5
/// on the files are smaller than those of zlib's default level, which takes more than three times as long.
constexpr int kCompressionLevel = 5;

/// PNG filter type 2: each byte less the byte above it. A map's rows mostly repeat, and so become zeros.
constexpr std::uint8_t kFilterUp = 2;

/// So many pixels at a time are compared with those above them.
constexpr std::size_t kPiece = 256;

/// A chunk's length stays below 2³¹; one is enough for all but noise.
constexpr std::size_t kLargestChunk = std::size_t(1) << 30;

constexpr int kRowsAReport = 64;
constexpr std::chrono::milliseconds kReportInterval{30};
/// Of the time that a file takes.
constexpr double kFilterShare = 0.15;

struct Rgba {
    std::uint8_t r, g, b, a;
};

struct FreeCompressor {
    void operator()(libdeflate_compressor* compressor) const { libdeflate_free_compressor(compressor); }
};

void append32(Bytes& out, std::size_t value)
{
    for (const int shift : {24, 16, 8, 0})
        out.push_back(static_cast<std::uint8_t>(value >> shift));
}

void appendChunk(Bytes& out, std::string_view type, std::span<const std::uint8_t> data)
{
    append32(out, data.size());
    const std::size_t start = out.size();
    out.insert(out.end(), type.begin(), type.end());
    out.insert(out.end(), data.begin(), data.end());
    append32(out, libdeflate_crc32(0, out.data() + start, out.size() - start)); // of type and data
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
        std::ranges::transform(row, straightened.begin(), [](Pixel p) { return Rgba{p.r, p.g, p.b, p.a}; });
        return;
    }
    std::ranges::transform(row, straightened.begin(), [](Pixel p) {
        return Rgba{straight(p.r, p.a), straight(p.g, p.a), straight(p.b, p.a), p.a};
    });
}

/// The scan lines: a filter type byte before each row. Whatever looks like the piece above it is left as the zeros that
/// `lines` holds anyway. False when the report stops it.
bool filterRows(const Bitmap& bitmap, std::uint8_t* lines, const Report& report)
{
    const auto width = static_cast<std::size_t>(bitmap.width());
    std::vector<Rgba> above(width), straightened(std::min(width, kPiece));
    for (int y = 0; y < bitmap.height(); ++y) {
        if (y % kRowsAReport == 0 && !goesOn(report, static_cast<double>(y) / bitmap.height()))
            return false;
        *lines++ = kFilterUp;
        const auto row = bitmap.row(y);
        for (std::size_t x = 0; x < width; x += kPiece) {
            const auto piece = row.subspan(x, std::min(kPiece, width - x));
            if (y > 0 && std::memcmp(piece.data(), bitmap.row(y - 1).data() + x, piece.size_bytes()) == 0)
                continue;
            straighten(piece, straightened);
            const auto* const bytes = reinterpret_cast<const std::uint8_t*>(straightened.data());
            auto* const bytesAbove = reinterpret_cast<std::uint8_t*>(above.data() + x);
            std::uint8_t* const filtered = lines + x * sizeof(Rgba);
            for (std::size_t i = 0; i < piece.size_bytes(); ++i)
                filtered[i] = static_cast<std::uint8_t>(bytes[i] - bytesAbove[i]);
            std::copy_n(bytes, piece.size_bytes(), bytesAbove);
        }
        lines += bitmap.bytesPerRow();
    }
    return true;
}

/// Does the work, reporting all the while: on a thread of its own, because it cannot report itself. Without one it is
/// done all the same.
template <class Work>
bool alongside(const Report& report, double done, const Work& work)
{
    if (!report) {
        work();
        return true;
    }
    std::future<void> worker;
    try {
        worker = std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        work();
        return true;
    }
    bool goes = true;
    while (worker.wait_for(kReportInterval) != std::future_status::ready)
        goes = goes && report(done);
    worker.get();
    return goes;
}

} // namespace

Expected<Bytes> encodePng(const Bitmap& bitmap, const Report& report)
try {
    const auto width = static_cast<std::size_t>(bitmap.width());
    const auto height = static_cast<std::size_t>(bitmap.height());

    const std::size_t size = height * (1 + bitmap.bytesPerRow());
    ZeroedPages lines(size);
    if (!filterRows(bitmap, lines.data(), partOf(report, 0, kFilterShare)))
        return cancelled();

    const std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor(
        libdeflate_alloc_compressor(kCompressionLevel));
    if (!compressor)
        throw std::bad_alloc();
    const std::size_t bound = libdeflate_zlib_compress_bound(compressor.get(), size);
    ZeroedPages compressed(bound);
    std::size_t compressedSize = 0;
    const bool goes = alongside(report, kFilterShare, [&] {
        compressedSize = libdeflate_zlib_compress(compressor.get(), lines.data(), size, compressed.data(), bound);
    });
    if (!goes)
        return cancelled();
    lines = {};

    Bytes header;
    append32(header, width);
    append32(header, height);
    // bit depth 8, colour type 6 (truecolour with alpha), compression 0 (deflate), filters 0, interlace 0 (none)
    header.insert(header.end(), {8, 6, 0, 0, 0});

    Bytes out{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    out.reserve(compressedSize + 64);
    appendChunk(out, "IHDR", header);
    for (std::size_t done = 0; done < compressedSize; done += kLargestChunk)
        appendChunk(out, "IDAT", {compressed.data() + done, std::min(kLargestChunk, compressedSize - done)});
    appendChunk(out, "IEND", {});
    return out;
} catch (const std::bad_alloc&) {
    return failure("there is not enough memory for the PNG file");
}

} // namespace wallgrid
