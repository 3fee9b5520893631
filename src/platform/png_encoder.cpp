// SPDX-License-Identifier: MIT
#include "platform/png_encoder.h"

#include <algorithm>
#include <libdeflate.h>
#include <memory>
#include <string_view>

namespace wallgrid {

namespace {

void append32(std::vector<std::uint8_t>& out, std::size_t value)
{
    for (const int shift : {24, 16, 8, 0})
        out.push_back(static_cast<std::uint8_t>(value >> shift));
}

/// Appends a chunk of the given type around what `fill` appends.
template <class Fill>
void appendChunk(std::vector<std::uint8_t>& out, std::string_view type, Fill fill)
{
    const std::size_t start = out.size();
    append32(out, 0);
    out.insert(out.end(), type.begin(), type.end());
    fill();
    const std::size_t length = out.size() - start - 8;
    for (int i = 0; i < 4; ++i)
        out[start + static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(length >> (24 - 8 * i));
    append32(out, libdeflate_crc32(0, out.data() + start + 4, length + 4));
}

std::uint8_t straight(std::uint8_t sample, std::uint8_t alpha)
{
    return alpha == 0 ? std::uint8_t(0) : static_cast<std::uint8_t>(std::min((sample * 255 + alpha / 2) / alpha, 255));
}

void straightRow(std::span<const Pixel> pixels, std::uint8_t* rgba)
{
    for (const Pixel& p : pixels) {
        *rgba++ = straight(p.r, p.a);
        *rgba++ = straight(p.g, p.a);
        *rgba++ = straight(p.b, p.a);
        *rgba++ = p.a;
    }
}

} // namespace

Expected<std::vector<std::uint8_t>> encodePng(const Bitmap& bitmap)
try {
    const std::size_t rowBytes = bitmap.bytesPerRow();
    std::vector<std::uint8_t> filtered;
    filtered.reserve((rowBytes + 1) * static_cast<std::size_t>(bitmap.height()));
    std::vector<std::uint8_t> above(rowBytes), row(rowBytes);
    for (int y = 0; y < bitmap.height(); ++y) {
        straightRow(bitmap.row(y), row.data());
        filtered.push_back(2); // filter type "Up"
        for (std::size_t i = 0; i < rowBytes; ++i)
            filtered.push_back(static_cast<std::uint8_t>(row[i] - above[i]));
        row.swap(above);
    }

    std::vector<std::uint8_t> out{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    appendChunk(out, "IHDR", [&] {
        append32(out, static_cast<std::size_t>(bitmap.width()));
        append32(out, static_cast<std::size_t>(bitmap.height()));
        // bit depth 8, colour type 6 (truecolour with alpha), compression 0 (deflate), filter 0, interlace 0 (none)
        out.insert(out.end(), {8, 6, 0, 0, 0});
    });
    const std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor(
        libdeflate_alloc_compressor(1), libdeflate_free_compressor);
    if (!compressor)
        return failure("there is not enough memory for the PNG file");
    appendChunk(out, "IDAT", [&] {
        const std::size_t start = out.size();
        out.resize(start + libdeflate_zlib_compress_bound(compressor.get(), filtered.size()));
        out.resize(start + libdeflate_zlib_compress(compressor.get(), filtered.data(), filtered.size(),
                                                    out.data() + start, out.size() - start));
    });
    appendChunk(out, "IEND", [] {});
    return out;
} catch (const std::bad_alloc&) {
    return failure("there is not enough memory for the PNG file");
}

} // namespace wallgrid
