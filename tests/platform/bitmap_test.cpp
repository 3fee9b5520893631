// SPDX-License-Identifier: MIT
#include "platform/bitmap.h"

#include "platform/bitmap_memory.h"
#include "platform/pages.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

using namespace wallgrid;

namespace {

constexpr std::int64_t kMega = 1 << 20;

/// A bitmap of so many bytes that holds nothing but this pixel.
BitmapRef dirty(std::int64_t bytes)
{
    const BitmapRef bitmap = Bitmap::create(bytes / 4096, 1024, Bitmap::Contents::Undefined);
    std::fill_n(bitmap->pixels(), bytes / 4, Pixel{1, 2, 3, 4});
    return bitmap;
}

} // namespace

TEST(Bitmap, IsNotMadeWithoutPixelsOrBeyondFourGiB)
{
    constexpr std::int64_t kInt = std::numeric_limits<int>::max();
    constexpr std::int64_t kLong = std::numeric_limits<std::int64_t>::max();
    for (const auto& [width, height] : std::vector<std::pair<std::int64_t, std::int64_t>>{{0, 5},
                                                                                          {5, 0},
                                                                                          {-3, -3},
                                                                                          {kLong, kLong},
                                                                                          {-kLong, 4},
                                                                                          {kInt, kInt},
                                                                                          {1 << 15, (1 << 15) + 1},
                                                                                          {1 << 30, 2},
                                                                                          {kInt + 1, 1},
                                                                                          {1, kLong / 2 + 2}})
        EXPECT_FALSE(Bitmap::create(width, height)) << width << " x " << height;
}

TEST(BitmapMemory, RefusesWhatWouldPassTheTotalAndHasItBackAfterwards)
{
    const std::size_t before = BitmapMemory::alive();
    constexpr std::size_t kBlock = std::size_t(256) << 20; // never touched, so only address space
    std::vector<BitmapMemory> blocks;
    while (BitmapMemory block = BitmapMemory::allocate(kBlock, false)) {
        blocks.push_back(std::move(block));
        ASSERT_LE(BitmapMemory::alive(), BitmapMemory::maximumTotal());
    }
    EXPECT_EQ(BitmapMemory::alive() - before, blocks.size() * kBlock);
    EXPECT_GT(BitmapMemory::alive() + kBlock, BitmapMemory::maximumTotal()) << "refused too early";
    blocks.pop_back();
    EXPECT_TRUE(BitmapMemory::allocate(kBlock, false));
    blocks.clear();
    EXPECT_EQ(BitmapMemory::alive(), before);
    EXPECT_FALSE(BitmapMemory::allocate(std::numeric_limits<std::size_t>::max(), false));
}

TEST(BitmapMemory, MapsABlockThatItsLastCacheLineMakesLarge)
{
    // It was taken from the heap and given back as pages: 511 x 513 pixels were enough.
    const BitmapMemory block = BitmapMemory::allocate(kLargeBlock - 63, false);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block.data()) % kHugePage, 0U);
}

TEST(BitmapMemory, ClearsWhatItHandsOutAgainToBitmapsOfThatSize)
{
    for (const std::int64_t bytes : {std::int64_t(4096), kMega / 2, kMega, 5 * kMega}) {
        const Pixel* const used = dirty(bytes)->pixels();
        const BitmapRef again = Bitmap::create(bytes / 4096, 1024);
        EXPECT_EQ(std::count(again->pixels(), again->pixels() + bytes / 4, Pixel{}), bytes / 4) << bytes;
        EXPECT_TRUE(bytes < kMega || again->pixels() == used) << bytes << " bytes were not handed out again";
    }
    const Pixel* const large = dirty(32 * kMega)->pixels();
    EXPECT_NE(Bitmap::create(1024, 1024, Bitmap::Contents::Undefined)->pixels(), large);
    EXPECT_EQ(Bitmap::create(7900, 1024, Bitmap::Contents::Undefined)->pixels(), large) << "which is nearly as large";
}
