// SPDX-License-Identifier: MIT
#include "platform/bitmap.h"

#include "platform/bitmap_memory.h"
#include "platform/pages.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <vector>

using namespace wallgrid;

namespace {

constexpr std::int64_t kMega = 1 << 20;

/// A bitmap of so many bytes that holds nothing but this pixel.
BitmapRef dirty(std::int64_t bytes)
{
    const BitmapRef bitmap = Bitmap::create(bytes / 4096, 1024, Bitmap::Contents::Undefined);
    for (int y = 0; y < bitmap->height(); ++y)
        for (Pixel& pixel : bitmap->row(y))
            pixel = {1, 2, 3, 4};
    return bitmap;
}

} // namespace

TEST(Bitmap, StoresRowsFromTheTopWithoutPadding)
{
    const BitmapRef bitmap = Bitmap::create(3, 2);
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(bitmap->width(), 3);
    EXPECT_EQ(bitmap->height(), 2);
    EXPECT_EQ(bitmap->bytesPerRow(), 12U);
    bitmap->row(1)[2] = {255, 1, 2, 3};
    EXPECT_EQ(bitmap->pixels()[5], (Pixel{255, 1, 2, 3}));
    EXPECT_EQ(bitmap->at(2, 1), (Pixel{255, 1, 2, 3}));
}

TEST(Bitmap, IsNotMadeWithoutPixelsOrBeyondFourGiB)
{
    constexpr std::int64_t kInt = std::numeric_limits<int>::max();
    constexpr std::int64_t kLong = std::numeric_limits<std::int64_t>::max();
    const std::pair<std::int64_t, std::int64_t> sizes[] = {
        {0, 5},       {5, 0},         {-1, 5},     {5, -1},      {-3, -3},  {kLong, 1},
        {1, kLong},   {kLong, kLong}, {-kLong, 4}, {kInt, kInt}, {kInt, 2}, {1 << 15, (1 << 15) + 1},
        {1 << 30, 2}, {kInt + 1, 1},
    };
    for (const auto& [width, height] : sizes)
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
    EXPECT_FALSE(BitmapMemory::allocate(kBlock, true));
    ASSERT_FALSE(blocks.empty());
    blocks.pop_back();
    EXPECT_TRUE(BitmapMemory::allocate(kBlock, false));
    blocks.clear();
    EXPECT_EQ(BitmapMemory::alive(), before);
    EXPECT_FALSE(BitmapMemory::allocate(BitmapMemory::maximumBlock() + 1, false));
    EXPECT_FALSE(BitmapMemory::allocate(std::numeric_limits<std::size_t>::max(), false));
    EXPECT_FALSE(BitmapMemory::allocate(0, false));
}

TEST(BitmapMemory, MapsABlockThatItsLastCacheLineMakesLarge)
{
    // It was taken from the heap and given back as pages: 511 x 513 pixels were enough.
    for (const std::size_t bytes : {kLargeBlock - 63, kLargeBlock - 1, kLargeBlock}) {
        const BitmapMemory block = BitmapMemory::allocate(bytes, false);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block.data()) % kHugePage, 0U) << bytes;
    }
}

TEST(BitmapMemory, ClearsAlsoWhatItHandsOutAgain)
{
    for (const std::int64_t bytes : {std::int64_t(4096), kMega / 2, kMega, 5 * kMega}) {
        const Pixel* const used = dirty(bytes)->pixels();
        const BitmapRef again = Bitmap::create(bytes / 4096, 1024);
        EXPECT_TRUE(std::all_of(again->pixels(), again->pixels() + bytes / 4, [](Pixel pixel) {
            return pixel == Pixel{};
        })) << bytes;
        EXPECT_TRUE(bytes < kMega || again->pixels() == used) << bytes << " bytes were not handed out again";
    }
}

TEST(BitmapMemory, ReusesTheBlocksOfAnEditingLoop)
{
    // What an edit does: a new render of an item, the old one dropped; a new raster, the old one dropped. The item
    // grows at times, up to twice its size.
    std::set<const Pixel*> rasters;
    BitmapRef item, raster;
    for (int i = 0; i < 40; ++i) {
        const std::int64_t itemBytes = (4 + i / 10) * kMega;
        item = Bitmap::create(itemBytes / 4096, 1024, Bitmap::Contents::Undefined);
        raster = Bitmap::create(8192, 1024, Bitmap::Contents::Undefined);
        rasters.insert(raster->pixels());
    }
    EXPECT_LE(rasters.size(), 2U);
}

TEST(BitmapMemory, DoesNotSpendALargeBlockOnASmallBitmap)
{
    const Pixel* const large = dirty(32 * kMega)->pixels();
    EXPECT_NE(Bitmap::create(1024, 1024, Bitmap::Contents::Undefined)->pixels(), large);
    EXPECT_EQ(Bitmap::create(7900, 1024, Bitmap::Contents::Undefined)->pixels(), large) << "which is nearly as large";
}
