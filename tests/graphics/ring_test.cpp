// SPDX-License-Identifier: MIT
#include "graphics/graphics_context.h"
#include "picture.h"

#include <cmath>

using namespace wallgrid;

namespace {

/// The part of a pixel that lies within a radius; its top-left corner is given from the centre.
double covered(double x, double y, double radius)
{
    constexpr int kColumns = 256;
    double sum = 0;
    for (int i = 0; i < kColumns; ++i) {
        const double column = x + (i + 0.5) / kColumns;
        const double half = std::sqrt(std::max(0.0, (radius - column) * (radius + column)));
        sum += std::max(0.0, std::min(y + 1, half) - std::max(y, -half));
    }
    return radius > 0 ? sum / kColumns : 0;
}

BitmapRef stroked(const PixelRect& square, std::int64_t lineWidth)
{
    const BitmapRef bitmap = Bitmap::create(24, 16);
    GraphicsContext context(bitmap);
    context.setColor(Color::whiteColor());
    context.strokeCircle(square, lineWidth);
    return bitmap;
}

} // namespace

TEST(Ring, CoversTheTrueAreaOfEachPixel)
{
    // Windows on the ring: its lower end, its right side, its upper left at 45 degrees, its middle, and outside it.
    for (const std::int64_t diameter : {1, 2, 3, 7, 23, 60, 999, 59999}) {
        const std::int64_t diagonal = std::llround(static_cast<double>(diameter) * 0.5 * (1 - std::sqrt(0.5)));
        const PixelPoint corners[] = {{12 - diameter / 2, 8 - diameter},
                                      {12 - diameter, 8 - diameter / 2},
                                      {12 - diagonal, 8 - diagonal},
                                      {12 - diameter / 2, 8 - diameter / 2},
                                      {300, 0}};
        for (const std::int64_t lineWidth : {-3, 1, 2, 3, 30, 30001}) {
            for (const auto& [x, y] : corners) {
                const BitmapRef bitmap = stroked({x, y, diameter, diameter}, lineWidth);
                const double radius = static_cast<double>(diameter) / 2;
                const double half = static_cast<double>(std::max<std::int64_t>(lineWidth, 1)) / 2;
                for (int i = 0; i < 24 * 16; ++i) {
                    const std::int64_t column = i % 24;
                    const std::int64_t row = i / 24;
                    const double left = static_cast<double>(column - x) - radius;
                    const double top = static_cast<double>(row - y) - radius;
                    const double area = covered(left, top, radius + half) - covered(left, top, radius - half);
                    ASSERT_NEAR(bitmap->pixels()[i].a, 255 * area, 0.55)
                        << diameter << " wide at " << x << ", " << y << ", line " << lineWidth << ", pixel " << i;
                }
            }
        }
    }
}

TEST(Ring, SurvivesEveryWhereAndEverySize)
{
    constexpr std::int64_t kFar = std::int64_t(1) << 60;
    for (const PixelRect& square : {PixelRect{0, 0, 0, 0}, {5, 5, -4, -4}, {kFar, 0, 8, 8}, {0, -kFar, 8, 8}})
        EXPECT_TRUE(test::samePicture(stroked(square, 3), Bitmap::create(24, 16)));
    // The innermost of a disc wider than the planet, and a thin ring of that size that passes far outside.
    EXPECT_EQ(stroked({-kFar, -kFar, 2 * kFar, 2 * kFar}, kFar)->at(3, 3).a, 0);
    EXPECT_EQ(stroked({-kFar / 2, -kFar / 2, kFar, kFar}, kFar)->at(3, 3).a, 255);
    // A ring of 2³¹ pixels keeps its place to a pixel: its left edge touches column 0.
    const std::int64_t side = (std::int64_t(1) << 31) - 1;
    const BitmapRef edge = stroked({1, -side / 2, side, side}, 2);
    EXPECT_EQ((std::array{edge->at(0, 5).a, edge->at(1, 5).a, edge->at(2, 5).a}),
              (std::array<std::uint8_t, 3>{255, 255, 0}));
}
