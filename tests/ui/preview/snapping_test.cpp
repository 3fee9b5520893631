// SPDX-License-Identifier: MIT
#include "items/gx_screen.h"
#include "ui/preview/picking.h"
#include "ui/preview/snapping.h"

#include <gtest/gtest.h>

using namespace wallgrid;

namespace {

constexpr PixelRect kRaster{0, 0, 1920, 1080};
constexpr PixelRect kWall{500, 100, 400, 400};

ItemRef itemAt(std::int32_t x, std::int32_t y, std::int32_t side, bool visible = true)
{
    auto item = GXScreen::init();
    item->setXpoint(x);
    item->setYpoint(y);
    item->setScreenSizeWidth(side);
    item->setScreenSizeHeight(side);
    item->setVisible(visible);
    return item;
}

} // namespace

TEST(Snapping, goesToTheNearestEdges)
{
    const std::tuple<const char*, PixelRect, std::int64_t, Snap> cases[]{
        {"raster's corner", {8, -3, 100, 93}, 8, {{-8, 3}, {{Qt::Vertical, 0, 0, 1080}, {Qt::Horizontal, 0, 0, 1920}}}},
        {"just too far", {9, 200, 100, 100}, 8, {{0, 0}, {}}},
        {"the nearer of two", {903, 700, 1015, 100}, 8, {{2, 0}, {{Qt::Vertical, 1920, 0, 1080}}}},
        {"left before right", {903, 700, 1014, 100}, 8, {{-3, 0}, {{Qt::Vertical, 900, 100, 800}}}},
        {"as wide as the wall",
         {502, 700, 400, 100},
         8,
         {{-2, 0}, {{Qt::Vertical, 500, 100, 800}, {Qt::Vertical, 900, 100, 800}, {Qt::Vertical, 700, 100, 800}}}},
        {"middle, half a pixel off", {547, 700, 311, 100}, 8, {{-2, 0}, {{Qt::Vertical, 700, 100, 800}}}},
        {"middle of the raster", {200, 480, 100, 114}, 8, {{0, 3}, {{Qt::Horizontal, 540, 0, 1920}}}},
        {"only what meets already", {500, 700, 101, 100}, 0, {{0, 0}, {{Qt::Vertical, 500, 100, 800}}}},
        {"one beside", {501, 700, 101, 100}, 0, {{0, 0}, {}}},
    };
    for (const auto& [what, moving, tolerance, expected] : cases)
        EXPECT_EQ(snapped(moving, {kRaster, kWall}, tolerance), expected) << what;
}

TEST(Picking, takesTheTopmostVisible)
{
    const ItemArray items{itemAt(0, 0, 100, false), itemAt(10, 10, 10), itemAt(0, 0, 100), itemAt(-50, -50, 100)};
    using Row = std::optional<std::size_t>;
    EXPECT_EQ(itemAt(items, {10, 10}), Row(1));
    EXPECT_EQ(itemAt(items, {20, 19.9}), Row(2)); // one beside
    EXPECT_EQ(itemAt(items, {-0.1, 0}), Row(3));
    EXPECT_EQ(itemAt(items, {100, 0}), Row());
    EXPECT_EQ(itemBelow(items, {15, 15}, 1), Row(2));
    EXPECT_EQ(itemBelow(items, {15, 15}, 2), Row(3));
    EXPECT_EQ(itemBelow(items, {15, 15}, 3), Row(1));
}
