// SPDX-License-Identifier: MIT
#include "graphics/graphics_context.h"
#include "graphics/resample.h"
#include "picture.h"

#include <cmath>
#include <limits>
#include <vector>

using namespace wallgrid;
using test::picture;
using test::randomPicture;
using test::samePicture;

namespace {

Image imageOf(const BitmapRef& bitmap, Size size)
{
    Image image(size);
    image.addRepresentation(bitmap);
    return image;
}

BitmapRef drawn(const Image& image, const PixelRect& frame)
{
    const BitmapRef bitmap = Bitmap::create(6, 4);
    GraphicsContext context(bitmap);
    context.setColor(Color::whiteColor());
    context.fillRect({0, 0, 6, 4});
    context.drawImage(image, frame, CompositingOperation::SourceOver);
    return bitmap;
}

BitmapRef gray(int width, int height, const std::vector<int>& levels)
{
    const BitmapRef bitmap = Bitmap::create(width, height);
    std::ranges::transform(levels, bitmap->pixels(), [](int level) {
        const auto sample = static_cast<std::uint8_t>(level);
        return Pixel{255, sample, sample, sample};
    });
    return bitmap;
}

BitmapRef scaled(const BitmapRef& bitmap, double width, double height)
{
    const Image image = imageOf(bitmap, {width, height});
    return image.scaledPart(image.extent());
}

} // namespace

TEST(DrawImage, ScalesTheVisiblePartOnly)
{
    // Declared two million kilometres wide and more; one corner shows.
    constexpr std::int64_t kWide = 2'000'000'000;
    const std::size_t before = BitmapMemory::alive();
    const BitmapRef raster = picture({"RG", "BK"});
    const BitmapRef blue = picture({"BBBBBB", "BBBBBB", "BBBBBB", "BBBBBB"});
    for (const double side : {2e9, 1e300, std::numeric_limits<double>::infinity()}) {
        const Image image = imageOf(raster, {side, side});
        EXPECT_TRUE(samePicture(drawn(image, {0, 4 - kWide, kWide, kWide}), blue)) << side;
        EXPECT_LT(BitmapMemory::alive(), before + 4096) << side;
    }
}

TEST(DrawImage, KeepsTheLastScaledPart)
{
    Image image = imageOf(randomPicture(40, 30, 1), {20, 15});
    const BitmapRef part = image.scaledPart({0, 0, 20, 15});
    EXPECT_EQ(image.scaledPart({0, 0, 20, 15}), part);
    EXPECT_NE(image.scaledPart({0, 0, 20, 14}), part);
    EXPECT_TRUE(image.scaledPart({0, 0, 20, 15}));
    image.setSize({80, 60});
    EXPECT_FALSE(samePicture(image.scaledPart({0, 0, 20, 15}), part));
    EXPECT_FALSE(image.scaledPart({0, 0, 81, 60})) << "it reaches beyond the image";
    image.setSize({40, 60});
    EXPECT_FALSE(image.unscaled());
    image.setSize({40, 30});
    EXPECT_EQ(image.unscaled(), image.firstRepresentation());
}

TEST(Resample, TakesMeansWhenShrinkingAndInterpolatesWhenEnlarging)
{
    EXPECT_TRUE(samePicture(scaled(gray(4, 2, {0, 100, 200, 50, 0, 100, 201, 51}), 2, 1), gray(2, 1, {50, 126})));
    EXPECT_TRUE(samePicture(scaled(gray(2, 1, {0, 200}), 4, 1), gray(4, 1, {0, 50, 150, 200})));
    // A broken size: two and a half pixels become three, the one at the right or the top from what is left.
    EXPECT_TRUE(samePicture(scaled(gray(5, 1, {10, 20, 30, 40, 90}), 2.5, 1), gray(3, 1, {15, 35, 90})));
    EXPECT_TRUE(samePicture(scaled(gray(1, 2, {0, 200}), 1, 1e-300), nullptr)) << "a size that has no pixel";
    for (const int length : {131'072, 1 << 20}) {
        const std::vector<int> levels(std::size_t(length), 200);
        EXPECT_TRUE(samePicture(scaled(gray(length, 1, levels), 1, 1), gray(1, 1, {200}))) << length << " columns";
        EXPECT_TRUE(samePicture(scaled(gray(1, length, levels), 1, 1), gray(1, 1, {200}))) << length << " rows";
    }
}
