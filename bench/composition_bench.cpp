// SPDX-License-Identifier: MIT
#include "documents.h"
#include "pixels_bench.h"

#include <cstring>
#include <memory>

namespace wallgrid::bench {

namespace {

/// As little as a composer can do: every byte of the raster written once, every visible byte of a thumbnail copied.
void fillAndCopy(const Document& document, const BitmapRef& raster)
{
    void* const bytes = raster->pixels();
    std::memset(bytes, 0x40, raster->bytesPerRow() * static_cast<std::size_t>(raster->height()));
    for (const Document::Item& item : document.items) {
        const BitmapRef thumbnail = item.thumbnail->firstRepresentation();
        const PixelRect shown = intersection({item.point.x, item.point.y, thumbnail->width(), thumbnail->height()},
                                             {0, 0, document.width, document.height});
        for (std::int64_t y = shown.y; y < shown.top(); ++y) {
            const int from = static_cast<int>(thumbnail->height() - 1 - (y - item.point.y));
            std::memcpy(raster->row(static_cast<int>(document.height - 1 - y)).data() + shown.x,
                        thumbnail->row(from).data() + (shown.x - item.point.x),
                        static_cast<std::size_t>(shown.width) * sizeof(Pixel));
        }
    }
}

template <class Draw>
void renderAnew(benchmark::State& state, const Document& document, Draw draw)
{
    // As the program does it: a new raster for each render, the old one dropped. Twice before the clock starts, so that
    // both rasters have their memory.
    BitmapRef raster;
    const auto render = [&] {
        const BitmapRef next = Bitmap::create(document.width, document.height, Bitmap::Contents::Undefined);
        draw(document, next);
        benchmark::DoNotOptimize(next->pixels());
        benchmark::ClobberMemory();
        raster = next;
    };
    render();
    render();
    for (auto _ : state)
        render();
}

void add(std::vector<Ratio>& ratios, const std::string& name, int width, int height, int screens)
{
    // Made once, when first measured: the large document takes a second to make.
    const auto document = [=, made = std::make_shared<std::unique_ptr<Document>>()]() -> const Document& {
        if (!*made)
            *made = std::make_unique<Document>(makeDocument(width, height, screens));
        return **made;
    };
    benchmark::RegisterBenchmark((name + "/ours").c_str(),
                                 [=](benchmark::State& state) { renderAnew(state, document(), compose); });
    benchmark::RegisterBenchmark((name + "/yardstick").c_str(),
                                 [=](benchmark::State& state) { renderAnew(state, document(), fillAndCopy); });
    ratios.push_back({name + ": memset of the raster, memcpy of what shows", name + "/ours", name + "/yardstick", 2});
}

} // namespace

void addComposition(std::vector<Ratio>& ratios)
{
    add(ratios, "compose 3840x2160", 3840, 2160, 20);
    add(ratios, "compose 16384x8192", 16384, 8192, 60);
}

} // namespace wallgrid::bench
