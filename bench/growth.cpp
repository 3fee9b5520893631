// SPDX-License-Identifier: MIT
//
// growth items|raster|panels: how time grows with one of these, as a table: a line that names the columns, then one
// line a measurement, with tabs in between. Times are of the processor, in ms, the shortest of at least three.
#include "base/byte_sink.h"
#include "documents.h"
#include "items/gx_screen.h"
#include "png/png_encoder.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <limits>
#include <string_view>

using namespace wallgrid;

namespace {

double milliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

/// Of at least three runs and a fifth of a second, after one that fetches memory and fills caches.
double shortest(const std::function<void()>& run)
{
    run();
    double best = std::numeric_limits<double>::max();
    const double start = milliseconds();
    for (int i = 0; i < 3 || milliseconds() < start + 200; ++i) {
        const double before = milliseconds();
        run();
        best = std::min(best, milliseconds() - before);
    }
    return best;
}

/// The least that anything can do that writes all of a bitmap.
double shortestMemset(Bitmap& bitmap)
{
    return shortest([&] {
        void* volatile bytes = bitmap.pixels(); // volatile, so that it is done each time
        std::memset(bytes, 0x40, bitmap.bytesPerRow() * static_cast<std::size_t>(bitmap.height()));
    });
}

struct Count {
    std::int32_t columns;
    std::int32_t rows;
};

ScreenRef screen(const Count& panels, std::int32_t panelSide, std::int32_t x, std::int32_t y)
{
    return GXScreen::initWithrow(panels.rows, panels.columns, panelSide, panelSide, Color::redColor(),
                                 Color::whiteColor(), nullptr, 0, true, true, nullptr, false, x, y);
}

/// A screen of 512 × 512 pixels on top, which moves, and others in a grid below it. Each of these is about three
/// quarters as wide and as high as its place.
class Document : public bench::Document {
public:
    Document(std::int32_t width, std::int32_t height, const Count& others)
        : bench::Document(width, height, items(width, height, others))
    {
    }

    void composeAll()
    {
        changeGround();
        compose();
    }
    void moveAndCompose()
    {
        GXItem& item = *delegate().allScreensArray()->front();
        item.setXpoint(item.xpoint() ^ 1);
        compose();
    }

private:
    static GXAppDelegate::ItemArrayRef items(std::int32_t width, std::int32_t height, const Count& others)
    {
        constexpr std::int32_t kPanel = 32;
        auto items = std::make_shared<ItemArray>(ItemArray{screen({16, 16}, kPanel, 64, 64)});
        const std::int32_t placeWidth = width / others.columns;
        const std::int32_t placeHeight = height / others.rows;
        const Count panels{placeWidth * 3 / 4 / kPanel, placeHeight * 3 / 4 / kPanel};
        for (std::int32_t row = 0; row < others.rows; ++row)
            for (std::int32_t column = 0; column < others.columns; ++column)
                items->push_back(screen(panels, kPanel, column * placeWidth, row * placeHeight));
        return items;
    }
};

void growItems()
{
    std::puts("items\tcompose all of 7680 × 4320\tmove an item of 512 × 512");
    for (const Count& count :
         {Count{1, 1}, {2, 1}, {2, 2}, {4, 2}, {4, 4}, {8, 4}, {8, 8}, {16, 8}, {16, 16}, {32, 16}, {40, 25}}) {
        Document document(7680, 4320, count);
        std::printf("%d\t%.4g", count.columns * count.rows, shortest([&] { document.composeAll(); }));
        std::printf("\t%.4g\n", shortest([&] { document.moveAndCompose(); }));
        std::fflush(stdout);
    }
}

class NoFile : public ByteSink {
    Expected<void> append(std::span<const std::uint8_t>) override { return {}; }
    Expected<void> replace(std::uint64_t, std::span<const std::uint8_t>) override { return {}; }
};

void writePsd(GXAppDelegate& delegate)
{
    NoFile file;
    if (const KPPSDError error = delegate.writePSDOn(file)) {
        std::fputs(error.message.c_str(), stderr);
        std::exit(1);
    }
}

void growRaster()
{
    std::puts("megapixels\tPSD made\tPNG encoded\tcompose all\tmemset of the raster\tmove an item of 512 × 512");
    for (const double megapixels : {1.0, 2.0, 4.0, 8.0, 16.0, 32.0, 64.0, 125.0, 250.0, 500.0}) {
        const auto width = static_cast<std::int32_t>(std::sqrt(megapixels * 1.8) * 1000);
        const auto height = static_cast<std::int32_t>(megapixels * 1e6 / width);
        Document document(width, height, {5, 4});
        document.compose();
        GXAppDelegate& delegate = document.delegate();
        const double psd = shortest([&] { writePsd(delegate); });
        const double png = shortest([&] { static_cast<void>(encodePng(*delegate.offscreenRep())); });
        const double clear = shortestMemset(*delegate.offscreenRep());
        const double all = shortest([&] { document.composeAll(); });
        const double move = shortest([&] { document.moveAndCompose(); });
        std::printf("%.4g\t%.4g\t%.4g\t%.4g\t%.4g\t%.4g\n", 1e-6 * width * height, psd, png, all, clear, move);
        std::fflush(stdout);
    }
}

void growPanels()
{
    constexpr std::int32_t kSide = 4000;
    const BitmapRef bitmap = Bitmap::create(kSide, kSide);
    std::puts("panels\tdraw a screen of 4000 × 4000\tmemset of its bitmap");
    for (const std::int32_t side : {1, 2, 4, 10, 20, 40, 80, 125, 200, 250, 400, 500, 1000}) {
        const ScreenRef item = screen({side, side}, kSide / side, 0, 0);
        const double draw = shortest([&] {
            item->releasePicture(); // it would be kept as it is; its memory serves the next one
            item->drawInRect();
        });
        std::printf("%d\t%.4g\t%.4g\n", side * side, draw, shortestMemset(*bitmap));
        std::fflush(stdout);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view what = argc == 2 ? argv[1] : "";
    if (what == "items")
        growItems();
    else if (what == "raster")
        growRaster();
    else if (what == "panels")
        growPanels();
    else
        return 2;
}
