// SPDX-License-Identifier: MIT
#include "benchmarks.h"
#include "documents.h"
#include "png/png_encoder.h"

#include <QImage>
#include <array>
#include <cstring>
#include <functional>
#include <png.h>

namespace wallgrid::bench {

namespace {

BitmapRef composed(int width, int height, int screens)
{
    Document document(width, height, screens);
    document.compose();
    return document.delegate().offscreenRep();
}

void ours(benchmark::State& state, const Bitmap& raster)
{
    std::size_t size = 0;
    for (auto _ : state)
        size = encodePng(raster)->size();
    state.counters["bytes"] = static_cast<double>(size);
}

/// What a program on libpng does that sets nothing: zlib's default level, filters chosen row by row.
std::vector<std::uint8_t> encodedByLibpng(std::vector<png_bytep>& rows, int width)
{
    std::vector<std::uint8_t> file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &file,
        [](png_structp to, png_bytep bytes, png_size_t count) {
            auto& buffer = *static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(to));
            buffer.insert(buffer.end(), bytes, bytes + count);
        },
        nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(rows.size()), 8,
                 PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    png_write_image(png, rows.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return file;
}

void libpng(benchmark::State& state, const Bitmap& raster)
{
    // What such a program would hold: the bytes of the file, straight alpha.
    QImage image(raster.width(), raster.height(), QImage::Format_RGBA8888);
    std::vector<png_bytep> rows;
    for (int y = 0; y < raster.height(); ++y) {
        std::transform(raster.row(y).begin(), raster.row(y).end(),
                       reinterpret_cast<std::array<std::uint8_t, 4>*>(image.scanLine(y)), [](const Pixel& p) {
                           return std::array<std::uint8_t, 4>{p.r, p.g, p.b, p.a};
                       });
        rows.push_back(image.scanLine(y));
    }
    std::size_t size = 0;
    for (auto _ : state)
        size = encodedByLibpng(rows, raster.width()).size();
    state.counters["bytes"] = static_cast<double>(size);
}

void copy(benchmark::State& state, const Bitmap& raster)
{
    const BitmapRef target = Bitmap::create(raster.width(), raster.height());
    for (auto _ : state) {
        std::memcpy(target->pixels(), raster.pixels(),
                    raster.bytesPerRow() * static_cast<std::size_t>(raster.height()));
        benchmark::ClobberMemory();
    }
}

using Raster = std::function<const Bitmap&()>;

/// Made when it is first asked for.
Raster made(const std::function<BitmapRef()>& make)
{
    return [=, kept = std::make_shared<BitmapRef>()]() -> const Bitmap& {
        if (!*kept)
            *kept = make();
        return **kept;
    };
}

void add(std::vector<Ratio>& ratios, const std::string& size, const Raster& raster)
{
    const std::string name = "PNG " + size;
    benchmark::RegisterBenchmark((name + "/ours").c_str(), [=](benchmark::State& state) { ours(state, raster()); });
    benchmark::RegisterBenchmark((name + "/libpng").c_str(), [=](benchmark::State& state) { libpng(state, raster()); });
    ratios.push_back({name + ": libpng, as it is", name + "/ours", name + "/libpng", 0.05});
    ratios.push_back({name + ": size of libpng's file", name + "/ours", name + "/libpng", 1.3, "bytes"});
}

} // namespace

void addPng(std::vector<Ratio>& ratios)
{
    add(ratios, "1920x1080", made([] {
            Program program;
            program.delegate().applicationDidFinishLaunching();
            return program.delegate().offscreenRep();
        }));
    add(ratios, "3840x2160", made([] { return composed(3840, 2160, 20); }));
    const Raster large = made([] { return composed(16384, 8192, 60); });
    add(ratios, "16384x8192", large);
    benchmark::RegisterBenchmark("PNG 16384x8192/copy", [=](benchmark::State& state) { copy(state, large()); });
    ratios.push_back({"PNG 16384x8192: a copy of the raster", "PNG 16384x8192/ours", "PNG 16384x8192/copy", 4});
}

} // namespace wallgrid::bench
