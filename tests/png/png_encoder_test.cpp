// SPDX-License-Identifier: MIT
#include "picture.h"
#include "png/png_encoder.h"

#include <array>
#include <cmath>
#include <png.h>
#include <random>
#include <vector>

using namespace wallgrid;

namespace {

using Rgba = std::array<std::uint8_t, 4>;

Rgba straight(Pixel p)
{
    const auto sample = [&](double premultiplied) {
        return static_cast<std::uint8_t>(p.a == 0 ? 0 : std::min(255L, std::lround(premultiplied * 255 / p.a)));
    };
    return {sample(p.r), sample(p.g), sample(p.b), p.a};
}

/// Has the file read by libpng, which also checks every checksum; returns its size.
std::size_t expectRoundTrip(const BitmapRef& bitmap)
{
    SCOPED_TRACE(testing::PrintToString(std::pair(bitmap->width(), bitmap->height())));
    const auto file = encodePng(*bitmap);
    const auto count = static_cast<std::size_t>(bitmap->width()) * static_cast<std::size_t>(bitmap->height());
    std::vector<Rgba> expected, found(count);
    std::transform(bitmap->pixels(), bitmap->pixels() + count, std::back_inserter(expected), straight);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    EXPECT_TRUE(png_image_begin_read_from_memory(&image, file->data(), file->size())) << image.message;
    EXPECT_EQ(image.format, unsigned(PNG_FORMAT_RGBA)) << "8 bits a sample with alpha";
    EXPECT_EQ(std::pair(image.width, image.height), std::pair(unsigned(bitmap->width()), unsigned(bitmap->height())));
    EXPECT_TRUE(png_image_finish_read(&image, nullptr, found.data(), 0, nullptr)) << image.message;
    EXPECT_EQ(image.warning_or_error, 0U) << image.message;
    EXPECT_TRUE(found == expected);
    return file->size();
}

} // namespace

TEST(PngEncoder, WritesWhatLibpngReadsBack)
{
    std::uint32_t seed = 0;
    for (const int width : {1, 2, 15, 16, 17, 255, 256, 257, 513})
        for (const int height : {1, 2, 33})
            expectRoundTrip(test::randomPicture(width, height, ++seed));
    expectRoundTrip(test::randomPicture(70000, 1, ++seed));
    expectRoundTrip(test::randomPicture(500, 500, ++seed)); // several data chunks

    std::mt19937 random(1);
    // Runs of lengths on both sides of the longest match, 258 bytes, and of twice that; of zeros and of others.
    const BitmapRef runs = Bitmap::create(20'000, 9);
    for (int y = 0; y < 9; y += 2) {
        for (std::size_t x = 0, length = 1; x < 20'000; x += length, length = random() % 140 + 1) {
            const Pixel color{255, std::uint8_t(random() % 3), 0, std::uint8_t(random() % 2 * 255)};
            std::ranges::fill(runs->row(y).subspan(x, std::min(length, 20'000 - x)), color);
        }
    }
    expectRoundTrip(runs);
}
