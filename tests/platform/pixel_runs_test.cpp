// SPDX-License-Identifier: MIT
#include "picture.h"
#include "platform/pixel_runs.h"

#include <vector>

using namespace wallgrid;

namespace {

constexpr Pixel kGround{4, 3, 2, 1};

} // namespace

TEST(PixelRuns, WriteTheirRunAndNothingElse)
{
    const BitmapRef source = test::randomPicture(60, 1, 2);
    for (std::size_t offset = 0; offset < 5; ++offset) {
        for (const std::size_t count : {0U, 1U, 2U, 3U, 4U, 5U, 7U, 8U, 33U, 50U}) {
            std::vector<Pixel> expected(64, kGround), streamed = expected, filled = expected;
            std::copy_n(source->pixels() + 3, count, expected.begin() + static_cast<std::ptrdiff_t>(offset));
            streamPixels(streamed.data() + offset, source->pixels() + 3, count);
            finishStreaming();
            EXPECT_EQ(streamed, expected) << count << " at " << offset;

            fillPixels(filled.data() + offset, {9, 8, 7, 6}, count);
            std::fill_n(expected.begin() + static_cast<std::ptrdiff_t>(offset), count, Pixel{9, 8, 7, 6});
            EXPECT_EQ(filled, expected) << count << " at " << offset;
        }
    }
}

TEST(PixelRuns, FillBeyondTheCacheAlike)
{
    constexpr std::size_t kCount = kBeyondCache / sizeof(Pixel) + 1;
    std::vector<Pixel> pixels(kCount + 6, kGround);
    for (std::size_t offset = 0; offset < 4; ++offset) {
        const Pixel color{static_cast<std::uint8_t>(offset), 8, 7, 6};
        fillPixels(pixels.data() + offset, color, kCount);
        const auto begin = pixels.begin() + static_cast<std::ptrdiff_t>(offset);
        const auto end = begin + kCount;
        EXPECT_EQ(std::count(begin, end, color), std::ptrdiff_t(kCount));
        EXPECT_EQ(std::count(end, pixels.end(), kGround), std::ptrdiff_t(6 - offset));
        if (offset > 0) {
            EXPECT_NE(*(begin - 1), color);
        }
    }
}
