// SPDX-License-Identifier: MIT
#include "app/raster_composer.h"

#include "graphics/bitmap_memory.h"
#include "graphics/graphics_context.h"
#include "picture.h"

using namespace wallgrid;
using test::samePicture;

namespace {

/// The whole scene drawn picture by picture on a new raster.
BitmapRef drawn(const RasterScene& scene)
{
    const BitmapRef raster = Bitmap::create(scene.width, scene.height);
    GraphicsContext context(raster);
    context.setColor(scene.ground);
    context.fillRect({0, 0, scene.width, scene.height});
    context.setColor(scene.edge);
    context.frameRect({0, 0, scene.width, scene.height}, 1);
    for (const auto& [image, frame] : scene.pictures)
        context.drawImage(*image, frame, CompositingOperation::SourceAtop);
    return raster;
}

/// Edits a scene at random, as a user's changes do.
class RandomEdits {
public:
    RasterScene scene{700, 90, nullptr, nullptr, {}};

    void edit()
    {
        auto& pictures = scene.pictures;
        const std::size_t chosen = pictures.empty() ? 0 : m_random() % pictures.size();
        const auto other = pictures.begin() + std::ptrdiff_t(pictures.empty() ? 0 : m_random() % pictures.size());
        switch (pictures.size() < 3 ? 0 : m_random() % 16) {
        case 0:
        case 1:
            return void(pictures.insert(other, {image(), frame()}));
        case 2:
            return void(pictures.erase(other));
        case 3:
            return std::swap(pictures[chosen], *other);
        case 4:
            return pictures[chosen].image->setSize({size(), size()});
        case 5: // one image at two places
            return void(pictures[chosen].image = other->image);
        case 6:
            return void(scene.ground = color());
        case 7:
            return void(scene.edge = color());
        case 8:
            return void(scene.width ^= 64);
        case 9:
        case 10: // often at the address of the one before
            pictures[chosen].image = nullptr;
            return void(pictures[chosen].image = image());
        default:
            return void(pictures[chosen].frame = frame());
        }
    }

private:
    int upTo(int most) { return static_cast<int>(m_random() % static_cast<unsigned>(most + 1)); }
    double size() { return upTo(600) / 2.0; }
    PixelRect frame() { return {upTo(900) - 150, upTo(150) - 50, upTo(500), upTo(150)}; }
    ColorRef color()
    {
        return std::array{ColorRef(), Color::redColor(), Color::deviceRGB(0, 1, 0.5, 0.4)}[m_random() % 3];
    }
    ImageRef image()
    {
        BitmapRef bitmap = test::randomPicture(1 + upTo(400), 1 + upTo(120), static_cast<std::uint32_t>(m_random()));
        if (m_random() % 2 != 0) // opaque
            GraphicsContext(bitmap).fillRect({0, 0, bitmap->width(), bitmap->height()});
        auto made = std::make_shared<Image>(Size{double(bitmap->width()), double(bitmap->height())});
        made->addRepresentation(bitmap);
        return made;
    }

    std::mt19937 m_random{20261123};
};

} // namespace

TEST(RasterComposer, RandomEditsGiveThePixelsOfTheWholeScene)
{
    RandomEdits edits;
    RasterComposer composer;
    BitmapRef raster;
    int reused = 0;
    for (int i = 0; i < 200; ++i) {
        edits.edit();
        const Bitmap* const before = raster.get();
        raster = nullptr;
        raster = composer.compose(edits.scene);
        reused += raster.get() == before;
        ASSERT_TRUE(samePicture(raster, drawn(edits.scene))) << "after edit " << i;
    }
    EXPECT_GT(reused, 120);
}

TEST(RasterComposer, PictureRefusedForMemoryComesBackWithIt)
{
    const auto still = std::make_shared<Image>(Size{600, 40}); // scaled, so that it takes memory
    still->addRepresentation(test::randomPicture(300, 80, 1));
    const RasterScene scene{700, 90, nullptr, nullptr, {{still, {20, 20, 600, 40}}}};
    RasterComposer composer;
    composer.compose({700, 90, nullptr, nullptr, {}});
    const std::size_t most = BitmapMemory::maximumTotal();
    BitmapMemory::setMaximumTotal(BitmapMemory::alive());
    EXPECT_EQ(composer.compose(scene)->at(300, 50), (Pixel{255, 0, 0, 0}));
    BitmapMemory::setMaximumTotal(most);
    EXPECT_TRUE(samePicture(composer.compose(scene), drawn(scene)));
}
