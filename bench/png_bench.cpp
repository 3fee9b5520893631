// SPDX-License-Identifier: MIT
#include "benchmarks.h"
#include "documents.h"
#include "platform/png_encoder.h"

#include <QBuffer>
#include <QImage>

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

void qt(benchmark::State& state, const Bitmap& raster)
{
    // What a Qt program would hold: its own pixel order, straight alpha, as the file has it.
    QImage image(raster.width(), raster.height(), QImage::Format_ARGB32);
    for (int y = 0; y < raster.height(); ++y)
        std::transform(raster.row(y).begin(), raster.row(y).end(), reinterpret_cast<QRgb*>(image.scanLine(y)),
                       [](const Pixel& p) { return qRgba(p.r, p.g, p.b, p.a); });
    qsizetype size = 0;
    for (auto _ : state) {
        QBuffer file;
        file.open(QIODevice::WriteOnly);
        image.save(&file, "PNG");
        size = file.size();
    }
    state.counters["bytes"] = static_cast<double>(size);
}

void add(std::vector<Ratio>& ratios, const std::string& name, int width, int height, int screens)
{
    const auto raster = [=, made = std::make_shared<BitmapRef>()]() -> const Bitmap& {
        if (!*made)
            *made = composed(width, height, screens);
        return **made;
    };
    benchmark::RegisterBenchmark((name + "/ours").c_str(), [=](benchmark::State& state) { ours(state, raster()); });
    benchmark::RegisterBenchmark((name + "/Qt").c_str(), [=](benchmark::State& state) { qt(state, raster()); });
    ratios.push_back({name + ": time of Qt's encoder", name + "/ours", name + "/Qt", 1.0 / 3});
    ratios.push_back({name + ": size of Qt's file", name + "/ours", name + "/Qt", 1.1, "bytes"});
}

} // namespace

void addPng(std::vector<Ratio>& ratios)
{
    add(ratios, "PNG 3840x2160", 3840, 2160, 20);
    add(ratios, "PNG 16384x8192", 16384, 8192, 60);
}

} // namespace wallgrid::bench
