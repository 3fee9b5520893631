// SPDX-License-Identifier: MIT
#include "benchmarks.h"
#include "documents.h"

#include <cstring>
#include <memory>

namespace wallgrid::bench {

namespace {

/// As little as a composer can do: every byte of the raster written once, every visible byte of a thumbnail copied.
void fillAndCopy(const GXAppDelegate& delegate, const BitmapRef& raster)
{
    void* const bytes = raster->pixels();
    std::memset(bytes, 0x40, raster->bytesPerRow() * static_cast<std::size_t>(raster->height()));
    for (const ItemRef& item : *delegate.allScreensArray()) {
        const BitmapRef thumbnail = item->thumbnail()->firstRepresentation();
        // Rows counted from the top here: nothing is drawn, bytes are copied.
        const PixelRect shown = intersection({item->xpoint(), item->ypoint(), thumbnail->width(), thumbnail->height()},
                                             {0, 0, raster->width(), raster->height()});
        for (std::int64_t y = shown.y; y < shown.top(); ++y)
            std::memcpy(raster->row(static_cast<int>(y)).data() + shown.x,
                        thumbnail->row(static_cast<int>(y - item->ypoint())).data() + (shown.x - item->xpoint()),
                        static_cast<std::size_t>(shown.width) * sizeof(Pixel));
    }
}

void ours(benchmark::State& state, Document& document)
{
    // Twice before the clock starts, so that the new raster and the old one both have their memory.
    document.compose();
    document.compose();
    for (auto _ : state)
        document.compose();
}

void yardstick(benchmark::State& state, Document& document)
{
    const BitmapRef raster = Bitmap::create(document.delegate().OutputWidth(), document.delegate().OutputHeight());
    for (auto _ : state) {
        fillAndCopy(document.delegate(), raster);
        benchmark::DoNotOptimize(raster->pixels());
        benchmark::ClobberMemory();
    }
}

void add(std::vector<Ratio>& ratios, const std::string& name, int width, int height, int screens)
{
    // Made once, when first measured: the large document takes a second to make.
    const auto document = [=, made = std::make_shared<std::unique_ptr<Document>>()]() -> Document& {
        if (!*made)
            *made = std::make_unique<Document>(width, height, screens);
        return **made;
    };
    benchmark::RegisterBenchmark((name + "/ours").c_str(), [=](benchmark::State& state) { ours(state, document()); });
    benchmark::RegisterBenchmark((name + "/yardstick").c_str(),
                                 [=](benchmark::State& state) { yardstick(state, document()); });
    ratios.push_back({name + ": memset of the raster, memcpy of what shows", name + "/ours", name + "/yardstick", 2});
}

} // namespace

void addComposition(std::vector<Ratio>& ratios)
{
    add(ratios, "compose 3840x2160", 3840, 2160, 20);
    add(ratios, "compose 16384x8192", 16384, 8192, 60);
}

} // namespace wallgrid::bench
