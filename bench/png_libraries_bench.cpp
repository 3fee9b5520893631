// SPDX-License-Identifier: MIT
//
// The PNG of the 3840 x 2160 document by other libraries, each with nothing set, from the pixels in the order that it
// takes.
#include "benchmarks.h"
#include "documents.h"
#include "png/png_encoder.h"

#include <QBuffer>
#include <QImage>
#include <cstdlib>
#include <lodepng.h>
#include <memory>
#include <spng.h>
#include <stb/stb_image_write.h>

namespace wallgrid::bench {

namespace {

/// The document as the bytes of a PNG have it: red, green, blue, alpha, straight.
class Picture {
public:
    Picture()
    {
        m_document.compose();
        const Bitmap& composed = raster();
        m_rgba = QImage(composed.width(), composed.height(), QImage::Format_RGBA8888);
        for (int y = 0; y < composed.height(); ++y) {
            auto* out = m_rgba.scanLine(y);
            for (const Pixel& p : composed.row(y))
                for (const std::uint8_t sample : {p.r, p.g, p.b, p.a})
                    *out++ = sample;
        }
    }

    const Bitmap& raster() const { return *m_document.delegate().offscreenRep(); }
    const QImage& rgba() const { return m_rgba; }

private:
    mutable Document m_document{3840, 2160, 20};
    QImage m_rgba;
};

// Each returns the size of its file.

std::size_t ours(const Picture& picture)
{
    return encodePng(picture.raster())->size();
}

std::size_t withQt(const Picture& picture)
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    if (!picture.rgba().save(&file, "PNG"))
        std::abort();
    return static_cast<std::size_t>(file.size());
}

std::size_t withSpng(const Picture& picture)
{
    const QImage& image = picture.rgba();
    const std::unique_ptr<spng_ctx, void (*)(spng_ctx*)> context(spng_ctx_new(SPNG_CTX_ENCODER), spng_ctx_free);
    spng_set_option(context.get(), SPNG_ENCODE_TO_BUFFER, 1);
    spng_ihdr header{};
    header.width = static_cast<std::uint32_t>(image.width());
    header.height = static_cast<std::uint32_t>(image.height());
    header.bit_depth = 8;
    header.color_type = SPNG_COLOR_TYPE_TRUECOLOR_ALPHA;
    spng_set_ihdr(context.get(), &header);
    if (spng_encode_image(context.get(), image.constBits(), static_cast<std::size_t>(image.sizeInBytes()), SPNG_FMT_PNG,
                          SPNG_ENCODE_FINALIZE) != 0)
        std::abort();
    std::size_t size = 0;
    int error = 0;
    std::free(spng_get_png_buffer(context.get(), &size, &error));
    return size;
}

std::size_t withLodepng(const Picture& picture)
{
    const QImage& image = picture.rgba();
    std::vector<unsigned char> file;
    if (lodepng::encode(file, image.constBits(), static_cast<unsigned>(image.width()),
                        static_cast<unsigned>(image.height())) != 0)
        std::abort();
    return file.size();
}

std::size_t withStb(const Picture& picture)
{
    const QImage& image = picture.rgba();
    std::size_t size = 0;
    const auto count = [](void* sum, void*, int bytes) {
        *static_cast<std::size_t*>(sum) += static_cast<std::size_t>(bytes);
    };
    stbi_write_png_to_func(count, &size, image.width(), image.height(), 4, image.constBits(),
                           static_cast<int>(image.bytesPerLine()));
    return size;
}

} // namespace

void addPngLibraries(std::vector<Ratio>& ratios)
{
    const std::string name = "PNG 3840x2160 by ";
    const auto picture = [made = std::make_shared<std::unique_ptr<Picture>>()]() -> const Picture& {
        if (!*made)
            *made = std::make_unique<Picture>();
        return **made;
    };
    const std::pair<const char*, std::size_t (*)(const Picture&)> encoders[] = {
        {"us", ours}, {"Qt", withQt}, {"libspng", withSpng}, {"LodePNG", withLodepng}, {"stb_image_write", withStb}};
    for (const auto& [library, encode] : encoders) {
        benchmark::RegisterBenchmark((name + library).c_str(), [=, encode = encode](benchmark::State& state) {
            std::size_t size = 0;
            for (auto _ : state)
                size = encode(picture());
            state.counters["bytes"] = static_cast<double>(size);
        })->Repetitions(3); // most take a quarter of a second and more
        if (encode == ours)
            continue;
        const std::string title = std::string("PNG 3840x2160: ") + library;
        ratios.push_back({title, name + "us", name + library, 1});
        ratios.push_back({title + ", size", name + "us", name + library, 1.3, "bytes"});
    }
}

} // namespace wallgrid::bench
