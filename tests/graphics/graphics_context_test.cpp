// SPDX-License-Identifier: MIT
#include "graphics/blend.h"
#include "graphics/graphics_context.h"
#include "graphics/toolkit.h"
#include "picture.h"

#include <array>
#include <functional>
#include <random>

using namespace wallgrid;

namespace {

constexpr std::int64_t kFar = std::int64_t(1) << 58;
const ColorRef red = Color::redColor();

Pixel at(const BitmapRef& bitmap, std::int64_t x, std::int64_t y)
{
    return bitmap->at(static_cast<int>(x), static_cast<int>(y));
}

bool contains(const PixelRect& r, std::int64_t x, std::int64_t y)
{
    return x >= r.x && x < r.x + r.width && y >= r.y && y < r.y + r.height;
}

/// Whether drawing in red over the ground gives each pixel as a rule says.
testing::AssertionResult draws(const BitmapRef& ground, const std::function<void(GraphicsContext&)>& draw,
                               const std::function<Pixel(std::int64_t, std::int64_t)>& rule)
{
    const int width = ground->width(), height = ground->height();
    const BitmapRef drawn = Bitmap::create(width, height), expected = Bitmap::create(width, height);
    std::copy_n(ground->pixels(), width * height, drawn->pixels());
    GraphicsContext context(drawn);
    context.setColor(red);
    draw(context);
    for (int i = 0; i < width * height; ++i)
        expected->pixels()[i] = rule(i % width, i / width);
    return test::samePicture(drawn, expected);
}

/// Every "letter" is a square as high as the font, of all kinds of coverage, one pixel above the line box's corner.
struct SquareToolkit : Toolkit {
    struct Line : TextLine {
        PixelRect box;
        PixelRect inkBounds() const override { return box; }
        static std::uint8_t coverage(std::int64_t x, std::int64_t y)
        {
            return static_cast<std::uint8_t>(x * 7 + x / 251 + y * 31);
        }
        void rasterize(const PixelRect& area, std::span<std::uint8_t> coverages) const override
        {
            EXPECT_EQ(intersection(area, box), area);
            ASSERT_LE(coverages.size(), std::size_t(1) << 20);
            for (std::int64_t i = 0; i < area.width * area.height; ++i)
                coverages[std::size_t(i)] = coverage(area.x + i % area.width, area.y + i / area.width);
        }
    };

    SquareToolkit() { install(this); }
    ~SquareToolkit() override { install(nullptr); }
    std::unique_ptr<TextLine> layOutText(std::string_view text, double fontSize) override
    {
        auto line = std::make_unique<Line>();
        const auto side = static_cast<std::int64_t>(fontSize);
        line->box = {0, -1 - side, side * std::ssize(text), side};
        return line;
    }
    Expected<ImageRef> decodeImage(std::span<const std::uint8_t>) override { return failure("no images here"); }
};

} // namespace

TEST(GraphicsContext, DrawsEverythingWhereverItLies)
{
    std::mt19937 random(1);
    const auto place = [&] { return std::array<std::int64_t, 9>{-kFar, -2, 0, 1, 2, 4, 6, 9, kFar}[random() % 9]; };
    const BitmapRef ground = test::randomPicture(6, 4, 2), picture = test::picture({"RG", "B."});
    Image image({2, 2});
    image.addRepresentation(picture);
    SquareToolkit toolkit;
    for (int i = 0; i < 20'000; ++i) {
        const PixelRect rect{place(), place(), place(), place()};
        const std::int64_t a = place(), b = place();
        SCOPED_TRACE(testing::PrintToString(std::array{rect.x, rect.y, rect.width, rect.height, a, b}));
        const PixelRect hole{rect.x + a, rect.y + a, rect.width - 2 * a, rect.height - 2 * a};
        const std::int64_t font = a > 0 ? a : 13;
        const PixelRect box{rect.x, rect.y - 1 - font, 2 * font, font};
        ASSERT_TRUE(draws(
            ground, [&](auto& c) { c.clearRect(rect); },
            [&](auto x, auto y) { return contains(rect, x, y) ? Pixel{} : at(ground, x, y); }));
        ASSERT_TRUE(draws(
            ground, [&](auto& c) { c.frameRect(rect, a); },
            [&](auto x, auto y) {
                return a > 0 && contains(rect, x, y) && !contains(hole, x, y) ? red->pixel() : at(ground, x, y);
            }));
        ASSERT_TRUE(draws(
            ground, [&](auto& c) { c.tile(rect.x, rect.y, a, b); },
            [&](auto x, auto fromTop) {
                const std::int64_t y = 3 - fromTop; // the block stands in the lower-left corner
                const bool tiled = rect.x > 0 && rect.y > 0 && x / rect.x < a && y / rect.y < b;
                return tiled ? at(ground, x % rect.x, 3 - y % rect.y) : at(ground, x, 3 - y);
            }));
        ASSERT_TRUE(draws(
            ground, [&](auto& c) { c.drawImage(image, rect, CompositingOperation::SourceOver); },
            [&](auto x, auto y) {
                const std::int64_t fromX = x - rect.x, fromY = y - rect.bottom() + 2; // in the lower-left corner
                const bool shown = contains(rect, x, y) && contains(image.extent(), fromX, fromY);
                return shown && at(picture, fromX, fromY).a == 255 ? at(picture, fromX, fromY) : at(ground, x, y);
            }));
        ASSERT_TRUE(draws(
            ground,
            [&](auto& c) {
                c.drawText("ab", {rect.x, rect.y}, static_cast<double>(a), b > 0 ? red : nullptr);
            },
            [&](auto x, auto y) {
                Pixel pixel = at(ground, x, y);
                const std::uint8_t coverage = SquareToolkit::Line::coverage(x - rect.x, y - rect.y);
                if (contains(box, x, y))
                    blendCoverage(&pixel, red->pixel(), &coverage, 1);
                return pixel;
            }));
    }
    // Wide letters come in pieces.
    EXPECT_TRUE(draws(
        Bitmap::create(40000, 70),
        [](auto& c) {
            c.drawText("a", {0, 71}, 50000, Color::whiteColor());
        },
        [](auto x, auto y) {
            const std::uint8_t coverage = SquareToolkit::Line::coverage(x, y - 71);
            return Pixel{coverage, coverage, coverage, coverage};
        }));
}

TEST(GraphicsContext, DrawsBitmapsBeyondTheCacheAlike)
{
    // With rows and blocks that start at every alignment, and rows alike but for the last pixel.
    constexpr int kWidth = 27, kHeight = 41, kColumns = 303, kRows = 51;
    const auto draw = [](GraphicsContext& c) {
        c.fillRect({0, 0, kWidth * kColumns + 2, kHeight * kRows + 3});
        c.clearRect({kWidth - 1, kHeight * kRows + 3 - 20, 1, 20});
        c.tile(kWidth, kHeight, kColumns, kRows);
    };
    EXPECT_TRUE(draws(Bitmap::create(kWidth * kColumns + 2, kHeight * kRows + 3), draw, [](auto x, auto fromTop) {
        const std::int64_t y = kHeight * kRows + 2 - fromTop;
        const bool tiled = x < kWidth * kColumns && y < kHeight * kRows;
        return tiled && x % kWidth == kWidth - 1 && y % kHeight < 20 ? Pixel{} : red->pixel();
    }));
}
