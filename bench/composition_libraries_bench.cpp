// SPDX-License-Identifier: MIT
//
// Compositions beside those of three libraries for 2D pictures: over a translucent ground, where each pixel takes the
// colour of what is drawn and keeps the ground's alpha, and over an opaque one.
#include "benchmarks.h"
#include "documents.h"

#include <QImage>
#include <QPainter>
#include <agg_color_rgba.h>
#include <agg_pixfmt_rgba.h>
#include <agg_renderer_base.h>
#include <agg_rendering_buffer.h>
#include <array>
#include <cairo.h>
#include <memory>
#include <vector>

namespace wallgrid::bench {

namespace {

constexpr int kWidth = 3840;
constexpr int kHeight = 2160;

/// What is composed over, and how.
struct Ground {
    float alpha;
    QPainter::CompositionMode qt;
    cairo_operator_t cairo;
    agg::comp_op_e agg;

    QColor color() const { return QColor::fromRgbF(0.1F, 0.1F, 0.12F, alpha); }
};

constexpr Ground kTranslucent{0.5F, QPainter::CompositionMode_SourceAtop, CAIRO_OPERATOR_ATOP, agg::comp_op_src_atop};
constexpr Ground kOpaque{1, QPainter::CompositionMode_SourceOver, CAIRO_OPERATOR_OVER, agg::comp_op_src_over};

/// A picture in the pixel order that the libraries prefer, premultiplied, and its top-left corner.
struct Layer {
    QImage picture;
    QPoint place;
};

QImage converted(const Bitmap& bitmap)
{
    QImage image(bitmap.width(), bitmap.height(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < bitmap.height(); ++y)
        std::ranges::transform(bitmap.row(y), reinterpret_cast<QRgb*>(image.scanLine(y)),
                               [](const Pixel& p) { return qRgba(p.r, p.g, p.b, p.a); });
    return image;
}

/// The lowest first.
std::vector<Layer> layersOf(const GXAppDelegate& delegate)
{
    std::vector<Layer> layers;
    const ItemArray& items = *delegate.allScreensArray();
    for (auto item = items.rbegin(); item != items.rend(); ++item)
        layers.push_back(
            {converted(*(*item)->thumbnail()->firstRepresentation()), {(*item)->xpoint(), (*item)->ypoint()}});
    return layers;
}

void composeWithQt(QImage& raster, const std::vector<Layer>& layers, const Ground& ground)
{
    QPainter painter(&raster);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(raster.rect(), ground.color());
    painter.setCompositionMode(ground.qt);
    for (const Layer& layer : layers)
        painter.drawImage(layer.place, layer.picture);
}

cairo_surface_t* surfaceOf(const QImage& image)
{
    return cairo_image_surface_create_for_data(const_cast<uchar*>(image.constBits()), CAIRO_FORMAT_ARGB32,
                                               image.width(), image.height(), static_cast<int>(image.bytesPerLine()));
}

void composeWithCairo(QImage& raster, const std::vector<Layer>& layers, const Ground& ground)
{
    cairo_surface_t* const target = surfaceOf(raster);
    cairo_t* const cairo = cairo_create(target);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    const QColor color = ground.color();
    cairo_set_source_rgba(cairo, color.redF(), color.greenF(), color.blueF(), color.alphaF());
    cairo_paint(cairo);
    cairo_set_operator(cairo, ground.cairo);
    for (const Layer& layer : layers) {
        cairo_surface_t* const picture = surfaceOf(layer.picture);
        cairo_set_source_surface(cairo, picture, layer.place.x(), layer.place.y());
        cairo_rectangle(cairo, layer.place.x(), layer.place.y(), layer.picture.width(), layer.picture.height());
        cairo_fill(cairo);
        cairo_surface_destroy(picture);
    }
    cairo_destroy(cairo);
    cairo_surface_destroy(target);
}

agg::rendering_buffer bufferOf(const QImage& image)
{
    return {const_cast<agg::int8u*>(image.constBits()), static_cast<unsigned>(image.width()),
            static_cast<unsigned>(image.height()), static_cast<int>(image.bytesPerLine())};
}

void composeWithAgg(QImage& raster, const std::vector<Layer>& layers, const Ground& ground)
{
    using Blender = agg::comp_op_adaptor_rgba_pre<agg::rgba8, agg::order_bgra>;
    using Target = agg::pixfmt_custom_blend_rgba<Blender, agg::rendering_buffer>;
    agg::rendering_buffer buffer = bufferOf(raster);
    Target target(buffer);
    agg::renderer_base<Target> renderer(target);
    const auto pixel = qPremultiply(ground.color().rgba());
    renderer.clear(agg::rgba8(static_cast<unsigned>(qRed(pixel)), static_cast<unsigned>(qGreen(pixel)),
                              static_cast<unsigned>(qBlue(pixel)), static_cast<unsigned>(qAlpha(pixel))));
    target.comp_op(ground.agg);
    for (const Layer& layer : layers) {
        agg::rendering_buffer from = bufferOf(layer.picture);
        renderer.blend_from(agg::pixfmt_bgra32_pre(from), nullptr, layer.place.x(), layer.place.y());
    }
}

using Compose = void (*)(QImage&, const std::vector<Layer>&, const Ground&);

void measure(benchmark::State& state, const std::vector<Layer>& layers, const Ground& ground, Compose compose)
{
    QImage raster(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        compose(raster, layers, ground);
        benchmark::ClobberMemory();
    }
}

void add(std::vector<Ratio>& ratios, const std::string& name, const Ground& ground)
{
    // Made when it is first measured.
    const auto document = [made = std::make_shared<std::unique_ptr<Document>>()]() -> Document& {
        if (!*made)
            *made = std::make_unique<Document>(kWidth, kHeight, 20);
        return **made;
    };
    const std::array grounds{Color::deviceRGB(0.1, 0.1, 0.12, ground.alpha),
                             Color::deviceRGB(0.1, 0.1, 0.3, ground.alpha)};
    benchmark::RegisterBenchmark((name + "/ours").c_str(), [=](benchmark::State& state) {
        GXAppDelegate& delegate = document().delegate();
        for (auto _ : state) {
            delegate.setBgColor(grounds[delegate.bgColor() == grounds[0] ? 1 : 0]);
            document().compose();
        }
    });
    const std::pair<const char*, Compose> libraries[] = {
        {"Qt", composeWithQt}, {"Cairo", composeWithCairo}, {"AGG", composeWithAgg}};
    for (const auto& [library, compose] : libraries) {
        const std::string yardstick = name + "/" + library;
        benchmark::RegisterBenchmark(yardstick.c_str(), [=, compose = compose](benchmark::State& state) {
            measure(state, layersOf(document().delegate()), ground, compose);
        })->MeasureProcessCPUTime(); // Qt paints large pictures with threads of its own
        ratios.push_back({name + ": " + library, name + "/ours", yardstick, 1.0});
    }
}

} // namespace

void addTranslucent(std::vector<Ratio>& ratios)
{
    add(ratios, "compose 3840x2160, translucent", kTranslucent);
}

void addCompositionLibraries(std::vector<Ratio>& ratios)
{
    add(ratios, "compose 3840x2160, opaque", kOpaque);
}

} // namespace wallgrid::bench
