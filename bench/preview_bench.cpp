// SPDX-License-Identifier: MIT
#include "benchmarks.h"
#include "documents.h"
#include "ui/preview/preview_surface.h"

#include <cstring>

namespace wallgrid::bench {

namespace {

constexpr int kWidth = 7680;
constexpr int kHeight = 4320;
constexpr QSize kView(1380, 950); // what a window leaves that fills a display of 1920 x 1080

/// A large document and the surface that shows it.
struct Editor {
    Editor()
    {
        surface.resize(kView);
        connection = document.delegate().connect({nullptr, nullptr, nullptr, &surface, nullptr, nullptr});
        document.compose();
        document.compose();
        document.delegate().arraycontroller().setSelectionIndex(3);
        paint();
    }

    void paint() { surface.render(&picture, {}, {}, QWidget::DrawChildren); }

    /// What a step of a drag leads to, down to the pixels of the window.
    void edit()
    {
        GXItem& item = *document.delegate().arraycontroller().selectedObject();
        item.setXpoint(item.xpoint() ^ 1);
        item.drawInRect();
        document.compose();
        paint();
    }

    Document document{kWidth, kHeight, 40};
    PreviewSurface surface{document.delegate()};
    Registration connection;
    QImage picture{kView, QImage::Format_ARGB32_Premultiplied};
};

Editor& editor()
{
    static Editor made;
    return made;
}

template <class Step>
void measure(benchmark::State& state, double scale, Step step)
{
    Editor& shown = editor();
    if (scale == 0)
        shown.surface.fit();
    else
        shown.surface.zoomTo(scale);
    shown.paint();
    for (auto _ : state)
        step(shown);
}

void copyRaster(benchmark::State& state)
{
    const Bitmap& raster = *editor().document.delegate().offscreenRep();
    const BitmapRef copy = Bitmap::create(kWidth, kHeight);
    for (auto _ : state) {
        std::memcpy(copy->pixels(), raster.pixels(), raster.bytesPerRow() * kHeight);
        benchmark::ClobberMemory();
    }
}

} // namespace

void addPreview(std::vector<Ratio>& ratios)
{
    const auto add = [](const char* name, double scale, auto step) {
        benchmark::RegisterBenchmark(name, [=](benchmark::State& state) { measure(state, scale, step); });
    };
    const auto edit = [](Editor& shown) { shown.edit(); };
    add("edit fitted", 0, edit);
    add("edit at 100 %", 1, edit);
    add("hover", 0, [](Editor& shown) { shown.paint(); });
    add("zoom", 0, [](Editor& shown) {
        shown.surface.zoomIn();
        shown.paint();
        shown.surface.fit();
        shown.paint();
    });
    benchmark::RegisterBenchmark("copy 7680x4320", copyRaster);
    const std::string copy = "copy 7680x4320";
    ratios.push_back({"edit of 7680x4320, fitted: a copy of the raster", "edit fitted", copy, 4});
    ratios.push_back({"edit of 7680x4320, fitted: 50 ms", "edit fitted", {}, 1, {}, 0.05});
    ratios.push_back({"edit of 7680x4320, at 100 %: 50 ms", "edit at 100 %", {}, 1, {}, 0.05});
    ratios.push_back({"the same picture again: 5 ms", "hover", {}, 1, {}, 0.005});
    ratios.push_back({"a step of the zoom and back: 100 ms", "zoom", {}, 1, {}, 0.1});
}

} // namespace wallgrid::bench
