// SPDX-License-Identifier: MIT
#include "benchmarks.h"
#include "documents.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>

namespace wallgrid::bench {

namespace {

/// As little as a composer can do in a rectangle: every byte of the raster written once, every visible byte of a
/// thumbnail copied. Rows count from the top here: nothing is drawn, bytes are copied.
void fillAndCopy(const GXAppDelegate& delegate, const BitmapRef& raster, const PixelRect& part)
{
    const auto bytes = [](std::int64_t pixels) { return static_cast<std::size_t>(pixels) * sizeof(Pixel); };
    const bool wholeRows = part.width == raster->width();
    for (std::int64_t y = part.y; y < part.bottom(); y += wholeRows ? part.height : 1) {
        void* const row = raster->row(static_cast<int>(y)).data() + part.x;
        std::memset(row, 0x40, bytes(wholeRows ? part.width * part.height : part.width));
    }
    for (const ItemRef& item : *delegate.allScreensArray()) {
        const BitmapRef thumbnail = item->thumbnail()->firstRepresentation();
        const PixelRect shown =
            intersection({item->xpoint(), item->ypoint(), thumbnail->width(), thumbnail->height()}, part);
        for (std::int64_t y = shown.y; y < shown.bottom(); ++y)
            std::memcpy(raster->row(static_cast<int>(y)).data() + shown.x,
                        thumbnail->row(static_cast<int>(y - item->ypoint())).data() + (shown.x - item->xpoint()),
                        bytes(std::max<std::int64_t>(shown.width, 0)));
    }
}

/// Compares a composition with filling and copying the part of the raster that it changes.
void compare(const std::string& name, const std::function<Document&()>& document,
             const std::function<void(Document&)>& change, const std::function<PixelRect(Document&)>& part)
{
    benchmark::RegisterBenchmark((name + "/ours").c_str(), [=](benchmark::State& state) {
        document().compose(); // before the clock starts, so that the raster has its memory
        for (auto _ : state) {
            change(document());
            document().compose();
        }
    });
    benchmark::RegisterBenchmark((name + "/yardstick").c_str(), [=](benchmark::State& state) {
        const GXAppDelegate& delegate = document().delegate();
        const BitmapRef raster = Bitmap::create(delegate.OutputWidth(), delegate.OutputHeight());
        for (auto _ : state) {
            fillAndCopy(delegate, raster, part(document()));
            benchmark::DoNotOptimize(raster->pixels());
            benchmark::ClobberMemory();
        }
    });
}

PixelRect all(Document& document)
{
    return {0, 0, document.delegate().OutputWidth(), document.delegate().OutputHeight()};
}

/// An item in the middle of the list, so that there are others above and below it.
GXItem& moved(Document& document)
{
    const ItemArray& items = *document.delegate().allScreensArray();
    return *items[items.size() / 2];
}

/// What the item covers before a move by a pixel and after it.
PixelRect movedOver(Document& document)
{
    const GXItem& item = moved(document);
    return intersection({item.xpoint() & ~1, item.ypoint(), item.screenSizeWidth() + 1, item.screenSizeHeight()},
                        all(document));
}

void move(Document& document)
{
    moved(document).setXpoint(moved(document).xpoint() ^ 1);
}

void add(std::vector<Ratio>& ratios, const std::string& name, int width, int height, int screens)
{
    // Made once, when first measured: the large document takes a second to make.
    const auto document = [=, made = std::make_shared<std::unique_ptr<Document>>()]() -> Document& {
        if (!*made)
            *made = std::make_unique<Document>(width, height, screens);
        return **made;
    };
    compare("compose " + name, document, &Document::changeGround, all);
    ratios.push_back({"compose " + name + ": memset of the raster, memcpy of what shows", "compose " + name + "/ours",
                      "compose " + name + "/yardstick", 1.25});
    compare("move in " + name, document, move, movedOver);
    ratios.push_back({"move an item in " + name + ": the same where it was and is", "move in " + name + "/ours",
                      "move in " + name + "/yardstick", 1.5});
}

} // namespace

void addComposition(std::vector<Ratio>& ratios)
{
    add(ratios, "3840x2160", 3840, 2160, 20);
    add(ratios, "16384x8192", 16384, 8192, 60);
    add(ratios, "30000x4000", 30000, 4000, 100);
}

} // namespace wallgrid::bench
