// SPDX-License-Identifier: MIT
#include "qt/text_line.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <vector>

using namespace wallgrid;

namespace {

std::vector<std::uint8_t> rasterized(const TextLine& line, const PixelRect& area)
{
    std::vector<std::uint8_t> coverage(static_cast<std::size_t>(area.width * area.height), 77);
    line.rasterize(area, coverage);
    return coverage;
}

double ink(const TextLine& line, std::int64_t margin = 0)
{
    const PixelRect box = line.inkBounds();
    const auto coverage =
        rasterized(line, {box.x - margin, box.y - margin, box.width + 2 * margin, box.height + 2 * margin});
    return std::accumulate(coverage.begin(), coverage.end(), 0.0);
}

} // namespace

TEST(TextLine, StandsOnItsBaselineAboveTheLineBoxCorner)
{
    const QtTextLine digits("240 x 240", 50), descending("y", 50);
    const PixelRect box = digits.inkBounds();
    EXPECT_GE(box.x, 0);
    EXPECT_LT(box.bottom(), -5) << "digits stand on the baseline, which lies above the corner by the descent";
    EXPECT_GT(box.bottom(), -18);
    EXPECT_GT(box.height, 30);
    EXPECT_GT(box.y, -60);
    EXPECT_LE(descending.inkBounds().bottom(), 0) << "descenders reach down to the line box's lower edge at most";
    EXPECT_GT(descending.inkBounds().bottom(), box.bottom());
    EXPECT_GT(ink(digits), 255 * 50 * 10);
    EXPECT_EQ(ink(digits, 9), ink(digits)) << "no ink lies outside the bounds";
}
