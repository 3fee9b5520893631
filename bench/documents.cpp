// SPDX-License-Identifier: MIT
#include "documents.h"

#include <random>

namespace wallgrid::bench {

namespace {

/// Not std::uniform_int_distribution, whose numbers differ between libraries.
class Random {
public:
    int operator()(int from, int to)
    {
        return from + static_cast<int>(m_engine() % static_cast<unsigned>(to - from + 1));
    }

private:
    std::mt19937 m_engine{20261122};
};

ColorRef randomColor(Random& random)
{
    return Color::deviceRGB(random(0, 255) / 255.0, random(0, 255) / 255.0, random(0, 255) / 255.0);
}

ImageRef imageOf(const BitmapRef& bitmap)
{
    const auto image = std::make_shared<Image>(Size{double(bitmap->width()), double(bitmap->height())});
    image->addRepresentation(bitmap);
    return image;
}

ImageRef screen(Random& random, int maximumSide, bool filled)
{
    const std::int64_t panelWidth = random(2, 32) * 8L;
    const std::int64_t panelHeight = random(2, 32) * 8L;
    const std::int64_t columns = std::max(1L, random(maximumSide / 4, maximumSide) / panelWidth);
    const std::int64_t rows = std::max(1L, random(maximumSide / 6, maximumSide * 2 / 3) / panelHeight);
    const BitmapRef bitmap = Bitmap::create(columns * panelWidth, rows * panelHeight);
    GraphicsContext context(bitmap);
    context.setColor(randomColor(random));
    if (filled)
        context.fillRect({0, 0, panelWidth, panelHeight});
    context.setColor(randomColor(random));
    context.frameRect({0, 0, panelWidth, panelHeight}, random(1, 3));
    context.tile(panelWidth, panelHeight, columns, rows);
    const int side = std::min(bitmap->width(), bitmap->height());
    context.strokeCircle({(bitmap->width() - side) / 2 + 2, (bitmap->height() - side) / 2 + 2, side - 4, side - 4}, 4);
    return imageOf(bitmap);
}

ImageRef gradient(int width, int height)
{
    const BitmapRef bitmap = Bitmap::create(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            bitmap->row(y)[static_cast<std::size_t>(x)] = {255, static_cast<std::uint8_t>(x * 255 / width),
                                                           static_cast<std::uint8_t>(y * 255 / height), 128};
    return imageOf(bitmap);
}

ImageRef noise(Random& random, int width, int height)
{
    const BitmapRef bitmap = Bitmap::create(width, height);
    const auto sample = [&] { return static_cast<std::uint8_t>(random(0, 255)); };
    for (int y = 0; y < height; ++y)
        for (Pixel& pixel : bitmap->row(y))
            pixel = {255, sample(), sample(), sample()};
    return imageOf(bitmap);
}

} // namespace

Document makeDocument(int width, int height, int screens)
{
    Random random;
    Document document{width, height, Color::deviceRGB(0.1, 0.1, 0.12), Color::deviceRGB(1, 1, 0), {}};
    const int side = std::min(width, height);
    document.items.push_back({gradient(side / 3, side / 4), {side / 10, side / 10}});
    document.items.push_back({noise(random, side / 5, side / 5), {width - side / 3, height - side / 3}});
    for (int i = 0; i < screens; ++i) {
        const bool filled = i % 4 != 0;
        const ImageRef thumbnail = screen(random, side / 2, filled);
        const auto thumbnailWidth = static_cast<int>(thumbnail->size().width);
        const auto thumbnailHeight = static_cast<int>(thumbnail->size().height);
        // One in five hangs over an edge.
        const int over = i % 5 == 0 ? 1 : 0;
        document.items.push_back(
            {thumbnail,
             {random(-over * thumbnailWidth / 2, std::max(1, width - thumbnailWidth + over * thumbnailWidth / 2)),
              random(-over * thumbnailHeight / 2,
                     std::max(1, height - thumbnailHeight + over * thumbnailHeight / 2))}});
    }
    return document;
}

void compose(const Document& document, const BitmapRef& raster)
{
    GraphicsContext context(raster);
    const PixelRect all{0, 0, document.width, document.height};
    context.setColor(document.background);
    context.fillRect(all);
    context.setColor(document.edge);
    context.frameRect(all, 1);
    for (const Document::Item& item : document.items)
        context.drawImage(*item.thumbnail, item.point, item.thumbnail->extent(), CompositingOperation::SourceAtop);
}

} // namespace wallgrid::bench
