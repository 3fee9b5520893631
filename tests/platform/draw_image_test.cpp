// SPDX-License-Identifier: MIT
#include "picture.h"
#include "platform/graphics_context.h"
#include "platform/resample.h"

#include <cmath>
#include <limits>
#include <vector>

using namespace wallgrid;
using test::picture;
using test::randomPicture;
using test::samePicture;

namespace {

constexpr std::int64_t kFar = std::int64_t(1) << 59;

ImageRef imageOf(const BitmapRef& bitmap, Size size)
{
    auto image = std::make_shared<Image>(size);
    image->addRepresentation(bitmap);
    return image;
}

ImageRef imageOf(const BitmapRef& bitmap)
{
    return imageOf(bitmap, {double(bitmap->width()), double(bitmap->height())});
}

BitmapRef drawn(const Image& image, PixelPoint point, const PixelRect& source)
{
    const BitmapRef bitmap = Bitmap::create(6, 4);
    GraphicsContext context(bitmap);
    context.setColor(Color::whiteColor());
    context.fillRect({0, 0, 6, 4});
    context.drawImage(image, point, source, CompositingOperation::SourceOver);
    return bitmap;
}

BitmapRef gray(int width, int height, const std::vector<int>& levels)
{
    const BitmapRef bitmap = Bitmap::create(width, height);
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const auto level = static_cast<std::uint8_t>(levels[i]);
        bitmap->pixels()[i] = {255, level, level, level};
    }
    return bitmap;
}

BitmapRef scaled(const BitmapRef& bitmap, double width, double height)
{
    return imageOf(bitmap, {width, height})
        ->scaledPart({0, 0, static_cast<std::int64_t>(std::ceil(width)), static_cast<std::int64_t>(std::ceil(height))});
}

BitmapRef cropped(const BitmapRef& bitmap, const PixelRect& part)
{
    const BitmapRef crop = Bitmap::create(part.width, part.height);
    for (int y = 0; y < crop->height(); ++y)
        for (int x = 0; x < crop->width(); ++x)
            crop->row(y)[static_cast<std::size_t>(x)] =
                bitmap->at(static_cast<int>(part.x) + x, static_cast<int>(bitmap->height() - part.top()) + y);
    return crop;
}

} // namespace

TEST(DrawImage, PlacesAndClipsTheImageAndItsSource)
{
    const ImageRef image = imageOf(picture({"RG", "B."}));
    const PixelRect all{0, 0, 2, 2};
    const BitmapRef untouched = picture({"WWWWWW", "WWWWWW", "WWWWWW", "WWWWWW"});
    EXPECT_TRUE(samePicture(drawn(*image, {1, 1}, all), picture({"WWWWWW", "WRGWWW", "WBWWWW", "WWWWWW"})));
    EXPECT_TRUE(samePicture(drawn(*image, {5, 3}, all), picture({"WWWWWB", "WWWWWW", "WWWWWW", "WWWWWW"})));
    EXPECT_TRUE(samePicture(drawn(*image, {-1, -1}, all), picture({"WWWWWW", "WWWWWW", "WWWWWW", "GWWWWW"})));
    EXPECT_TRUE(samePicture(drawn(*image, {2, 2}, {1, 0, 1, 2}), picture({"WWGWWW", "WWWWWW", "WWWWWW", "WWWWWW"})));
    EXPECT_TRUE(samePicture(drawn(*image, {0, 0}, {-2, -1, 9, 9}), picture({"WWWWWW", "WWRGWW", "WWBWWW", "WWWWWW"})))
        << "a source beyond the image is cut, the rest stays in place";
    for (const PixelPoint& point : std::vector<PixelPoint>{{6, 0}, {0, 4}, {-2, 0}, {0, -2}, {kFar, -kFar}})
        EXPECT_TRUE(samePicture(drawn(*image, point, all), untouched));
    for (const PixelRect& source :
         std::vector<PixelRect>{{0, 0, 0, 2}, {0, 0, 2, -2}, {2, 0, 2, 2}, {kFar, 0, kFar, 2}})
        EXPECT_TRUE(samePicture(drawn(*image, {0, 0}, source), untouched));
}

TEST(DrawImage, DrawsNothingWithoutSizeOrRaster)
{
    const BitmapRef untouched = picture({"WWWWWW", "WWWWWW", "WWWWWW", "WWWWWW"});
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const PixelRect everything{-kFar, -kFar, 2 * kFar, 2 * kFar};
    for (const Size size : {Size{0, 2}, Size{2, 0}, Size{-2, 2}, Size{2, -infinity}, Size{nan, 2}, Size{2, nan}})
        EXPECT_TRUE(samePicture(drawn(*imageOf(picture({"RG", "BW"}), size), {-kFar, -kFar}, everything), untouched));
    EXPECT_TRUE(samePicture(drawn(*imageOf(nullptr, {4, 4}), {0, 0}, {0, 0, 4, 4}), untouched));
}

TEST(DrawImage, ScalesTheVisiblePartOnly)
{
    // Declared two million kilometres wide; what shows is its lower left corner.
    const std::size_t before = BitmapMemory::alive();
    const BitmapRef raster = picture({"RG", "BK"});
    for (const double side : {2e9, 1e300, std::numeric_limits<double>::infinity()}) {
        const ImageRef image = imageOf(raster, {side, side});
        EXPECT_TRUE(samePicture(drawn(*image, {0, 0}, {0, 0, 2'000'000'000, 2'000'000'000}),
                                picture({"BBBBBB", "BBBBBB", "BBBBBB", "BBBBBB"})))
            << side;
        EXPECT_LT(BitmapMemory::alive(), before + 4096) << side;
    }
    const ImageRef wide = imageOf(raster, {2e9, 2e9});
    EXPECT_TRUE(samePicture(drawn(*wide, {6 - 2'000'000'000, 4 - 2'000'000'000}, {0, 0, 2'000'000'000, 2'000'000'000}),
                            picture({"GGGGGG", "GGGGGG", "GGGGGG", "GGGGGG"})));
}

TEST(DrawImage, KeepsTheLastScaledPart)
{
    const ImageRef image = imageOf(randomPicture(40, 30, 1), {20, 15});
    const BitmapRef part = image->scaledPart({0, 0, 20, 15});
    EXPECT_EQ(image->scaledPart({0, 0, 20, 15}), part);
    EXPECT_NE(image->scaledPart({0, 0, 20, 14}), part);
    image->setSize({80, 60});
    EXPECT_FALSE(image->scaledPart({0, 0, 81, 60})) << "it reaches beyond the image";
    EXPECT_FALSE(image->scaledPart({0, 0, 0, 0}));
    EXPECT_FALSE(image->unscaled());
    image->setSize({40, 30});
    EXPECT_EQ(image->unscaled(), image->firstRepresentation());
}

TEST(Resample, TakesMeansWhenShrinkingAndInterpolatesWhenEnlarging)
{
    EXPECT_TRUE(samePicture(scaled(gray(4, 2, {0, 100, 200, 50, 0, 100, 201, 51}), 2, 1), gray(2, 1, {50, 126})));
    EXPECT_TRUE(samePicture(scaled(gray(3, 1, {30, 60, 120}), 2, 1), gray(2, 1, {40, 100})));
    EXPECT_TRUE(samePicture(scaled(gray(2, 1, {0, 200}), 4, 1), gray(4, 1, {0, 50, 150, 200})));
    EXPECT_TRUE(samePicture(scaled(gray(1, 2, {0, 200}), 1, 4), gray(1, 4, {0, 50, 150, 200})));
    EXPECT_TRUE(samePicture(scaled(gray(4, 1, {0, 100, 40, 60}), 2, 2), gray(2, 2, {50, 50, 50, 50})));
    EXPECT_TRUE(samePicture(scaled(gray(1, 1, {77}), 3, 2), gray(3, 2, {77, 77, 77, 77, 77, 77})));
    // A broken size: two and a half pixels become three, the one at the right or the top from what is left.
    EXPECT_TRUE(samePicture(scaled(gray(5, 1, {10, 20, 30, 40, 90}), 2.5, 1), gray(3, 1, {15, 35, 90})));
    EXPECT_TRUE(samePicture(scaled(gray(1, 5, {90, 40, 30, 20, 10}), 1, 2.5), gray(1, 3, {90, 35, 15})));
    EXPECT_TRUE(samePicture(scaled(gray(1, 2, {0, 200}), 1, 1e-300), nullptr)) << "a size that has no pixel";
}

TEST(Resample, KeepsOpaquePicturesOpaqueAndColoursBelowTheirAlpha)
{
    const BitmapRef translucent = randomPicture(61, 47, 4);
    const BitmapRef opaque = randomPicture(61, 47, 3);
    std::for_each_n(opaque->pixels(), 61 * 47, [](Pixel& pixel) { pixel.a = 255; });
    for (const Size size : {Size{1, 1}, Size{7, 90}, Size{60.5, 46.25}, Size{61, 300}, Size{122, 94}, Size{333, 12}}) {
        for (const BitmapRef& source : {translucent, opaque}) {
            const BitmapRef result = scaled(source, size.width, size.height);
            for (const Pixel& p : std::span(result->pixels(), std::size_t(result->width() * result->height()))) {
                ASSERT_TRUE(source == translucent || p.a == 255) << size.width << " x " << size.height;
                ASSERT_LE(std::max({p.r, p.g, p.b}), p.a) << size.width << " x " << size.height;
            }
        }
    }
}

TEST(Resample, AddsUpMillionsOfPixels)
{
    for (const int length : {131'072, 200'000, 1 << 20}) {
        const std::vector<int> levels(std::size_t(length), 200);
        EXPECT_TRUE(samePicture(scaled(gray(length, 1, levels), 1, 1), gray(1, 1, {200}))) << length << " columns";
        EXPECT_TRUE(samePicture(scaled(gray(1, length, levels), 1, 1), gray(1, 1, {200}))) << length << " rows";
    }
}

TEST(Resample, GivesTheSamePixelsForAPartAsForTheWhole)
{
    const BitmapRef source = randomPicture(53, 37, 5);
    for (const Size size : {Size{106, 111}, Size{20, 20}, Size{53, 90}, Size{400.5, 9.25}, Size{31.75, 80}}) {
        const BitmapRef whole = scaled(source, size.width, size.height);
        const PixelRect parts[] = {
            {0, 0, 1, 1}, {3, 2, 11, 5}, {whole->width() - 7, whole->height() - 4, 7, 4}, {0, 1, whole->width(), 3}};
        for (const PixelRect& part : parts)
            EXPECT_TRUE(samePicture(resample(*source, size, part), cropped(whole, part)))
                << size.width << " x " << size.height << " at " << part.x << ", " << part.y;
    }
}
