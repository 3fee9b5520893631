// SPDX-License-Identifier: MIT
#include "graphics/bitmap.h"

#include "base/pages.h"
#include "graphics/bitmap_memory.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

using namespace wallgrid;

namespace {

constexpr std::int64_t kMega = 1 << 20;

} // namespace

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

TEST(BitmapMemory, ClearsWhatItHandsOutAgainToBitmapsOfThatSize)
{
    for (const std::int64_t bytes : {std::int64_t(4096), kMega / 2, kMega, 5 * kMega}) {
        BitmapRef bitmap = Bitmap::create(bytes / 4096, 1024, Bitmap::Contents::Undefined);
        const Pixel* const used = std::fill_n(bitmap->pixels(), bytes / 4, Pixel{1, 2, 3, 4}) - bytes / 4;
        bitmap = nullptr;
        const BitmapRef again = Bitmap::create(bytes / 4096, 1024);
        EXPECT_EQ(std::count(again->pixels(), again->pixels() + bytes / 4, Pixel{}), bytes / 4) << bytes;
        EXPECT_TRUE(bytes < kMega || again->pixels() == used) << bytes << " bytes were not handed out again";
    }
}
