// SPDX-License-Identifier: MIT
#include "benchmarks.h"
#include "items/gx_screen.h"

#include <cstring>

namespace wallgrid::bench {

namespace {

struct Grid {
    std::int32_t columns;
    std::int32_t rows;
    std::int32_t panelWidth;
    std::int32_t panelHeight;
};

void ours(benchmark::State& state, const Grid& grid)
{
    const ScreenRef screen =
        GXScreen::initWithrow(grid.rows, grid.columns, grid.panelWidth, grid.panelHeight, Color::redColor(),
                              Color::whiteColor(), nullptr, 0, true, true, nullptr, false, 0, 0);
    for (auto _ : state) {
        screen->releasePicture(); // it would be kept as it is; its memory serves the next one
        screen->drawInRect();
    }
}

void clear(benchmark::State& state, const Grid& grid)
{
    const BitmapRef bitmap =
        Bitmap::create(std::int64_t{grid.columns} * grid.panelWidth, std::int64_t{grid.rows} * grid.panelHeight);
    void* const bytes = bitmap->pixels();
    for (auto _ : state) {
        std::memset(bytes, 0x40, bitmap->bytesPerRow() * static_cast<std::size_t>(bitmap->height()));
        benchmark::DoNotOptimize(bytes);
        benchmark::ClobberMemory();
    }
}

} // namespace

void addGrids(std::vector<Ratio>& ratios)
{
    for (const Grid grid :
         {Grid{10, 10, 192, 108}, Grid{100, 100, 20, 20}, Grid{300, 100, 16, 16}, Grid{32, 32, 512, 256}}) {
        const std::string name = "grid " + std::to_string(grid.columns) + "x" + std::to_string(grid.rows) + " of " +
                                 std::to_string(grid.panelWidth) + "x" + std::to_string(grid.panelHeight);
        benchmark::RegisterBenchmark((name + "/ours").c_str(), [=](benchmark::State& state) { ours(state, grid); });
        benchmark::RegisterBenchmark((name + "/memset").c_str(), [=](benchmark::State& state) { clear(state, grid); });
        ratios.push_back({name + ": memset of the bitmap", name + "/ours", name + "/memset", 1.6});
    }
}

} // namespace wallgrid::bench
