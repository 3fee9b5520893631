// SPDX-License-Identifier: MIT
#include "picture.h"
#include "platform/graphics_context.h"
#include "platform/ring.h"

#include <cmath>
#include <vector>

using namespace wallgrid;

namespace {

/// The area that a disc around the origin shares with the rectangle from the origin to (x, y), negative for one
/// negative side: an antiderivative in closed form, in long double.
long double areaTo(long double x, long double y, long double radius)
{
    const long double sign = (x < 0) == (y < 0) ? 1 : -1;
    x = std::min(std::abs(x), radius);
    y = std::min(std::abs(y), radius);
    if (x * x + y * y <= radius * radius)
        return sign * x * y;
    const auto underArc = [&](long double t) {
        const long double height = std::sqrt((radius - t) * (radius + t));
        return (t * height + radius * radius * std::atan2(t, height)) / 2; // asin would lose digits near the axis
    };
    const long double corner = std::sqrt((radius - y) * (radius + y));
    return sign * (corner * y + underArc(x) - underArc(corner));
}

long double discCoverage(long double x, long double y, long double radius)
{
    if (radius <= 0)
        return 0;
    return areaTo(x + 1, y + 1, radius) - areaTo(x, y + 1, radius) - areaTo(x + 1, y, radius) + areaTo(x, y, radius);
}

struct Circle {
    PixelRect square;
    std::int64_t lineWidth;

    long double radius() const { return static_cast<long double>(square.width) / 2; }
    long double outer() const { return radius() + halfLine(); }
    long double inner() const { return radius() - halfLine(); }
    long double halfLine() const { return static_cast<long double>(std::max<std::int64_t>(lineWidth, 1)) / 2; }
    long double coverage(std::int64_t x, std::int64_t y) const
    {
        const long double left = static_cast<long double>(x - square.x) - radius();
        const long double bottom = static_cast<long double>(y - square.y) - radius();
        return discCoverage(left, bottom, outer()) - discCoverage(left, bottom, inner());
    }
};

BitmapRef stroked(const Circle& circle, int width, int height)
{
    const BitmapRef bitmap = Bitmap::create(width, height);
    GraphicsContext context(bitmap);
    context.setColor(Color::whiteColor());
    context.strokeCircle(circle.square, circle.lineWidth);
    return bitmap;
}

} // namespace

TEST(Ring, CoversTheTrueAreaOfEachPixel)
{
    // Windows of 120 × 80 pixels on the ring: its top, its right side, its lower left at 45 degrees, and around it.
    for (const std::int64_t diameter : {1, 2, 3, 7, 60, 236, 999, 59999}) {
        const std::int64_t diagonal = std::llround(static_cast<double>(diameter) * 0.5 * (1 - std::sqrt(0.5)));
        const PixelPoint corners[] = {{60 - diameter / 2, 40 - diameter},
                                      {60 - diameter, 40 - diameter / 2},
                                      {60 - diagonal, 40 - diagonal},
                                      {60 - diameter / 2, 40 - diameter / 2},
                                      {300, 0},
                                      {0, -diameter - 60}};
        for (const std::int64_t lineWidth : {-3, 1, 2, 3, 100, 30001}) {
            for (const auto& [x, y] : corners) {
                const Circle circle{{x, y, diameter, diameter}, lineWidth};
                const BitmapRef bitmap = stroked(circle, 120, 80);
                long double worst = 0;
                for (int row = 0; row < 80; ++row)
                    for (int column = 0; column < 120; ++column)
                        worst = std::max(worst,
                                         std::abs(bitmap->at(column, row).a - 255 * circle.coverage(column, 79 - row)));
                // Rounding to 8 bits alone is off by one half.
                EXPECT_LE(worst, 0.501L) << diameter << " wide at " << x << ", " << y << ", line " << lineWidth;
            }
        }
    }
}

TEST(Ring, KnowsAreasFarFinerThanAPixelShows)
{
    // Each circle's rows around its top, its middle and half way, column by column.
    for (const std::int64_t diameter : {1, 2, 5, 6, 11, 40, 333, 30000}) {
        for (const std::int64_t lineWidth : {1, 2, 7}) {
            const Circle circle{{0, 0, diameter, diameter}, lineWidth};
            const double radius = static_cast<double>(diameter) / 2;
            const Ring ring{radius, radius, static_cast<double>(circle.outer()), static_cast<double>(circle.inner())};
            for (const std::int64_t y : {diameter / 2, diameter * 6 / 7, diameter - 1, diameter}) {
                const RingRow row(ring, y);
                for (std::int64_t x = -5; x <= diameter + 5; ++x)
                    ASSERT_NEAR(row.coverage(x), static_cast<double>(circle.coverage(x, y)), 2e-9)
                        << diameter << " wide, line " << lineWidth << ", at " << x << ", " << y;
            }
        }
    }
}

TEST(Ring, BlendsATranslucentColourOverThePixels)
{
    const Circle circle{{-5, 3, 40, 40}, 6};
    const BitmapRef bitmap = Bitmap::create(50, 50);
    GraphicsContext context(bitmap);
    context.setColor(Color::deviceRGB(0, 0, 1));
    context.fillRect({0, 0, 50, 50});
    context.setColor(Color::deviceRGB(1, 0, 0, 0.25)); // painted as 64 of 255
    context.strokeCircle(circle.square, circle.lineWidth);
    for (int y = 0; y < 50; ++y) {
        for (int x = 0; x < 50; ++x) {
            const double part = static_cast<double>(circle.coverage(x, 49 - y)) * 64;
            const Pixel pixel = bitmap->at(x, y);
            ASSERT_EQ(pixel.a, 255);
            ASSERT_EQ(pixel.g, 0);
            ASSERT_NEAR(pixel.r, part, 1.01) << x << ", " << y;
            ASSERT_NEAR(pixel.b, 255 - part, 1.01) << x << ", " << y;
        }
    }
}

TEST(Ring, SurvivesEveryWhereAndEverySize)
{
    constexpr std::int64_t kFar = std::int64_t(1) << 60;
    const BitmapRef empty = Bitmap::create(20, 10);
    for (const PixelRect& square : {PixelRect{0, 0, 0, 0}, {5, 5, -4, -4}, {kFar, 0, 8, 8}, {0, -kFar, 8, 8}})
        EXPECT_TRUE(test::samePicture(stroked({square, 3}, 20, 10), empty));
    // The innermost of a disc wider than the planet, and a thin ring of that size that passes far outside.
    EXPECT_EQ(stroked({{-kFar, -kFar, 2 * kFar, 2 * kFar}, kFar}, 20, 10)->at(3, 3).a, 0);
    EXPECT_EQ(stroked({{-kFar / 2, -kFar / 2, kFar, kFar}, kFar}, 20, 10)->at(3, 3).a, 255);
    // A ring of 2³¹ pixels keeps its place to a pixel: its left edge touches column 0.
    const std::int64_t side = (std::int64_t(1) << 31) - 1;
    const BitmapRef edge = stroked({{1, -side / 2, side, side}, 2}, 20, 10);
    EXPECT_EQ(edge->at(0, 5).a, 255);
    EXPECT_EQ(edge->at(1, 5).a, 255);
    EXPECT_EQ(edge->at(2, 5).a, 0);
}
