// SPDX-License-Identifier: MIT
#include "picture.h"
#include "platform/png_encoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <png.h>
#include <random>
#include <vector>

using namespace wallgrid;

namespace {

using Rgba = std::array<std::uint8_t, 4>;

/// The file's pixels as libpng reads them, which also checks every checksum.
std::vector<Rgba> decoded(const std::vector<std::uint8_t>& file, int width, int height)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    EXPECT_TRUE(png_image_begin_read_from_memory(&image, file.data(), file.size())) << image.message;
    EXPECT_EQ(image.format, unsigned(PNG_FORMAT_RGBA)) << "8 bits a sample with alpha";
    EXPECT_EQ(image.width, static_cast<unsigned>(width));
    EXPECT_EQ(image.height, static_cast<unsigned>(height));
    std::vector<Rgba> pixels(std::size_t(image.width) * image.height);
    EXPECT_TRUE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr)) << image.message;
    EXPECT_EQ(image.warning_or_error, 0U) << image.message;
    return pixels;
}

Rgba straight(Pixel p)
{
    const auto sample = [&](double premultiplied) {
        return static_cast<std::uint8_t>(p.a == 0 ? 0 : std::min(255L, std::lround(premultiplied * 255 / p.a)));
    };
    return {sample(p.r), sample(p.g), sample(p.b), p.a};
}

void expectRoundTrip(const BitmapRef& bitmap)
{
    const auto file = encodePng(*bitmap);
    ASSERT_TRUE(file);
    std::vector<Rgba> expected;
    for (int y = 0; y < bitmap->height(); ++y)
        for (const Pixel& pixel : bitmap->row(y))
            expected.push_back(straight(pixel));
    EXPECT_TRUE(decoded(*file, bitmap->width(), bitmap->height()) == expected)
        << bitmap->width() << " x " << bitmap->height();
    EXPECT_EQ(*encodePng(*bitmap), *file) << "the same bitmap gives the same bytes";
}

} // namespace

TEST(PngEncoder, WritesWhatLibpngReadsBack)
{
    std::uint32_t seed = 0;
    for (const int width : {1, 2, 15, 16, 17, 255, 256, 257, 511, 512, 513, 1025})
        for (const int height : {1, 2, 33})
            expectRoundTrip(test::randomPicture(width, height, ++seed));
    expectRoundTrip(test::randomPicture(1, 4000, ++seed));
    expectRoundTrip(test::randomPicture(70000, 1, ++seed));
    expectRoundTrip(test::randomPicture(500, 500, ++seed)); // several data chunks
}

TEST(PngEncoder, WritesRunsOfEveryLength)
{
    std::mt19937 random(1);
    const auto below = [&](unsigned count) { return static_cast<std::uint8_t>(random() % count); };
    // Lengths on both sides of the longest match, 258 bytes, and of twice that; of zeros and of others.
    const BitmapRef runs = Bitmap::create(20'000, 9);
    for (int y = 0; y < 9; y += 2) {
        for (std::size_t x = 0, length = 1; x < 20'000; x += length, length = random() % 140 + 1) {
            const Pixel color{255, below(3), 0, static_cast<std::uint8_t>(below(2) * 255)};
            std::ranges::fill(runs->row(y).subspan(x, std::min(length, 20'000 - x)), color);
        }
    }
    expectRoundTrip(runs);
}

TEST(PngEncoder, RoundsEveryStraightSampleToNearest)
{
    const BitmapRef bitmap = Bitmap::create(256, 256);
    for (int alpha = 0; alpha < 256; ++alpha) {
        for (int sample = 0; sample < 256; ++sample) {
            const auto s = static_cast<std::uint8_t>(sample);
            bitmap->row(alpha)[s] = {static_cast<std::uint8_t>(alpha), s, s, s}; // above its alpha it stays white
        }
    }
    expectRoundTrip(bitmap);
}

TEST(PngEncoder, FindsRowsAndPiecesThatRepeat)
{
    // Flat rows, a change in the middle of a row, back again, and an alpha that changes alone.
    const BitmapRef bitmap = Bitmap::create(1000, 40);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 1000; ++x)
            bitmap->row(y)[static_cast<std::size_t>(x)] =
                y / 8 % 2 == 0 ? Pixel{255, 10, 20, 30}
                               : Pixel{static_cast<std::uint8_t>(x > 600 ? 100 : 255), 10, 20, 30};
    expectRoundTrip(bitmap);
    EXPECT_LT(encodePng(*bitmap)->size(), 1200U);
}
