// SPDX-License-Identifier: MIT
#include "documents.h"

#include "items/gx_screen.h"
#include "items/gx_still.h"

#include <array>
#include <random>
#include <utility>

namespace wallgrid::bench {

namespace {

const std::array<ColorRef, 2> kGrounds{Color::deviceRGB(0.1, 0.1, 0.12), Color::deviceRGB(0.1, 0.1, 0.13)};

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

ScreenRef screen(Random& random, int maximumSide, bool filled)
{
    const std::int32_t panelWidth = random(2, 32) * 8;
    const std::int32_t panelHeight = random(2, 32) * 8;
    const std::int32_t columns = std::max(1, random(maximumSide / 4, maximumSide) / panelWidth);
    const std::int32_t rows = std::max(1, random(maximumSide / 6, maximumSide * 2 / 3) / panelHeight);
    const ColorRef fill = randomColor(random);
    const ScreenRef screen = GXScreen::initWithrow(rows, columns, panelWidth, panelHeight, fill, randomColor(random),
                                                   Color::whiteColor(), 0, filled, true, nullptr, true, 0, 0);
    screen->setBoarderWidth(random(1, 3));
    screen->drawInRect();
    return screen;
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

GXAppDelegate::ItemArrayRef itemsOfAllSorts(std::int32_t width, std::int32_t height, int screens)
{
    Random random;
    auto items = std::make_shared<ItemArray>();
    const std::int32_t side = std::min(width, height);
    for (int i = 0; i < screens; ++i) {
        const ScreenRef item = screen(random, side / 2, i % 4 != 0);
        // One in five hangs over an edge.
        const std::int32_t overhangX = i % 5 == 0 ? item->screenSizeWidth() / 2 : 0;
        const std::int32_t overhangY = i % 5 == 0 ? item->screenSizeHeight() / 2 : 0;
        item->setXpoint(random(-overhangX, std::max(1, width - item->screenSizeWidth() + overhangX)));
        item->setYpoint(random(-overhangY, std::max(1, height - item->screenSizeHeight() + overhangY)));
        items->push_back(item);
    }
    for (const ImageRef& image : {gradient(side / 3, side / 4), noise(random, side / 5, side / 5)}) {
        const StillRef still = GXStill::initWithimage(image);
        still->setXpoint(random(0, width / 2));
        still->setYpoint(random(0, height / 2));
        items->push_back(still);
    }
    return items;
}

} // namespace

Document::Document(std::int32_t width, std::int32_t height, int screens)
    : Document(width, height, itemsOfAllSorts(width, height, screens))
{
}

Document::Document(std::int32_t width, std::int32_t height, GXAppDelegate::ItemArrayRef items)
{
    m_program.delegate().setOutputWidth(width);
    m_program.delegate().setOutputHeight(height);
    m_program.delegate().setBgColor(kGrounds[0]);
    m_program.delegate().setEdgeColor(Color::deviceRGB(1, 1, 0));
    m_program.delegate().setAllScreensArray(std::move(items));
}

void Document::compose()
{
    m_program.delegate().setShouldUpdate(true);
    m_program.delegate().update();
}

void Document::changeGround()
{
    m_program.delegate().setBgColor(kGrounds[m_program.delegate().bgColor() == kGrounds[0] ? 1 : 0]);
}

std::shared_ptr<KPPSDWriter> Document::psdWriter() const
{
    const auto writer = KPPSDWriter::initWithDocumentSize({static_cast<double>(m_program.delegate().OutputWidth()),
                                                           static_cast<double>(m_program.delegate().OutputHeight())});
    const ItemArray& items = *m_program.delegate().allScreensArray();
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        const std::string name = "Wall " + std::to_string(item - items.rbegin() + 1);
        writer->addLayerWithCGImage((*item)->thumbnail()->firstRepresentation(),
                                    makeString(std::u16string(name.begin(), name.end())), 1,
                                    {static_cast<double>((*item)->xpoint()), static_cast<double>((*item)->ypoint())});
    }
    return writer;
}

} // namespace wallgrid::bench
