// SPDX-License-Identifier: MIT
#include "pixels_bench.h"
#include "platform/graphics_context.h"

#include <cstring>

namespace wallgrid::bench {

namespace {

struct Grid {
    std::int64_t columns;
    std::int64_t rows;
    std::int64_t panelWidth;
    std::int64_t panelHeight;
};

void drawGrid(const BitmapRef& bitmap, const Grid& grid)
{
    GraphicsContext context(bitmap);
    const PixelRect panel{0, 0, grid.panelWidth, grid.panelHeight};
    context.setColor(Color::redColor());
    context.fillRect(panel);
    context.setColor(Color::whiteColor());
    context.frameRect(panel, 1);
    context.tile(panel.width, panel.height, grid.columns, grid.rows);
}

void clearAll(const BitmapRef& bitmap, const Grid&)
{
    void* const bytes = bitmap->pixels();
    std::memset(bytes, 0x40, bitmap->bytesPerRow() * static_cast<std::size_t>(bitmap->height()));
}

void measure(benchmark::State& state, const Grid& grid, void (*draw)(const BitmapRef&, const Grid&))
{
    // A new bitmap for each render, as the program does it; twice before the clock starts, so that both have their
    // memory.
    BitmapRef bitmap;
    const auto render = [&] {
        const BitmapRef next =
            Bitmap::create(grid.columns * grid.panelWidth, grid.rows * grid.panelHeight, Bitmap::Contents::Undefined);
        draw(next, grid);
        benchmark::DoNotOptimize(next->pixels());
        benchmark::ClobberMemory();
        bitmap = next;
    };
    render();
    render();
    for (auto _ : state)
        render();
}

} // namespace

void addGrids(std::vector<Ratio>& ratios)
{
    for (const Grid grid :
         {Grid{10, 10, 192, 108}, Grid{100, 100, 20, 20}, Grid{300, 100, 16, 16}, Grid{32, 32, 512, 256}}) {
        const std::string name = "grid " + std::to_string(grid.columns) + "x" + std::to_string(grid.rows) + " of " +
                                 std::to_string(grid.panelWidth) + "x" + std::to_string(grid.panelHeight);
        benchmark::RegisterBenchmark((name + "/ours").c_str(),
                                     [=](benchmark::State& state) { measure(state, grid, drawGrid); });
        benchmark::RegisterBenchmark((name + "/memset").c_str(),
                                     [=](benchmark::State& state) { measure(state, grid, clearAll); });
        ratios.push_back({name + ": memset of the bitmap", name + "/ours", name + "/memset", 1.6});
    }
}

} // namespace wallgrid::bench
