// SPDX-License-Identifier: MIT
#include "benchmarks.h"
#include "graphics/graphics_context.h"

#include <QImage>
#include <QPainter>
#include <numbers>

namespace wallgrid::bench {

namespace {

constexpr int kLineWidth = 4;

void ours(benchmark::State& state, int diameter)
{
    const int side = diameter + 2 * kLineWidth;
    const BitmapRef bitmap = Bitmap::create(side, side);
    GraphicsContext context(bitmap);
    context.setColor(Color::redColor());
    const auto draw = [&] {
        context.strokeCircle({kLineWidth, kLineWidth, diameter, diameter}, kLineWidth);
        benchmark::ClobberMemory();
    };
    draw();
    for (auto _ : state)
        draw();
    state.counters["ns a pixel"] =
        benchmark::Counter(std::numbers::pi * diameter * kLineWidth * 1e-9,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void qt(benchmark::State& state, int diameter)
{
    const int side = diameter + 2 * kLineWidth;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::red, kLineWidth));
    for (auto _ : state) {
        painter.drawEllipse(QRectF(kLineWidth, kLineWidth, diameter, diameter));
        benchmark::ClobberMemory();
    }
}

} // namespace

void addRings(std::vector<Ratio>& ratios)
{
    for (const int diameter : {100, 1000, 10000}) {
        const std::string name = "ring " + std::to_string(diameter);
        benchmark::RegisterBenchmark((name + "/ours").c_str(), [=](benchmark::State& state) { ours(state, diameter); });
        benchmark::RegisterBenchmark((name + "/Qt").c_str(), [=](benchmark::State& state) { qt(state, diameter); });
        ratios.push_back({name + ": QPainter's antialiased ellipse", name + "/ours", name + "/Qt", 1});
    }
    // The cost a pixel of the ring may not grow with the square that the ring stands in.
    ratios.push_back(
        {"ring: ns a pixel, 10000 wide beside 1000 wide", "ring 10000/ours", "ring 1000/ours", 1.5, "ns a pixel"});
}

} // namespace wallgrid::bench
