// SPDX-License-Identifier: MIT
#include "platform/qt/text_line.h"

#include <QFontDatabase>
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

long ink(const std::vector<std::uint8_t>& coverage)
{
    return std::accumulate(coverage.begin(), coverage.end(), 0L);
}

} // namespace

TEST(TextLine, StandsOnItsBaselineAboveTheLineBoxCorner)
{
    const QtTextLine digits("240 x 240", 50);
    const QtTextLine descending("y", 50);
    const PixelRect box = digits.inkBounds();
    EXPECT_GE(box.x, 0);
    EXPECT_GT(box.y, 5) << "digits stand on the baseline, which lies above the corner by the descent";
    EXPECT_LT(box.y, 18);
    EXPECT_GT(box.height, 30);
    EXPECT_LT(box.top(), 60);
    EXPECT_GE(descending.inkBounds().y, 0) << "descenders reach down to the line box's lower edge at most";
    EXPECT_LT(descending.inkBounds().y, box.y);

    const long whole = ink(rasterized(digits, box));
    EXPECT_GT(whole, 255L * 50 * 10);
    EXPECT_EQ(ink(rasterized(digits, {box.x - 9, box.y - 9, box.width + 18, box.height + 18})), whole)
        << "no ink lies outside the bounds";
}

TEST(TextLine, PiecesMakeTheWhole)
{
    const QtTextLine line("xy -10 x 20", 40);
    const PixelRect box = line.inkBounds();
    const auto whole = rasterized(line, box);
    for (std::int64_t y = box.y; y < box.top(); y += 7) {
        const PixelRect band{box.x, y, box.width, std::min<std::int64_t>(7, box.top() - y)};
        const auto piece = rasterized(line, band);
        const auto at = whole.begin() + (box.top() - band.top()) * box.width;
        EXPECT_TRUE(std::equal(piece.begin(), piece.end(), at)) << "band at " << y;
    }
}

TEST(TextLine, DrawsAtEverySize)
{
    const double reference =
        static_cast<double>(ink(rasterized(QtTextLine("8", 100), QtTextLine("8", 100).inkBounds())));
    for (const double size : {1.0, 13.0, 200.0, 1500.0}) {
        const QtTextLine line("8", size);
        const double area = static_cast<double>(ink(rasterized(line, line.inkBounds())));
        EXPECT_NEAR(area / reference, size * size / 1e4, 0.15 * size * size / 1e4) << size;
    }
    // A piece from the inside of a glyph that is larger than any raster: all ink, all empty, and never a crash.
    const QtTextLine monster("1", 2147483647);
    const PixelRect box = monster.inkBounds();
    EXPECT_GT(box.height, 1'000'000'000);
    rasterized(monster, {box.x + box.width / 2, box.y + box.height / 2, 64, 64});
    rasterized(monster, {0, 0, 64, 64});
}
