// SPDX-License-Identifier: MIT
#include "picture.h"
#include "platform/graphics_context.h"
#include "platform/toolkit.h"

#include <vector>

using namespace wallgrid;
using test::picture;
using test::samePicture;

namespace {

constexpr std::int64_t kFar = std::int64_t(1) << 60;

const ColorRef white = Color::whiteColor();
const ColorRef red = Color::redColor();
const ColorRef green = Color::greenColor();

/// A 6 × 4 bitmap, all white, after some drawing.
template <class Draw>
BitmapRef onWhite(Draw draw)
{
    const BitmapRef bitmap = Bitmap::create(6, 4);
    GraphicsContext context(bitmap);
    context.setColor(white);
    context.fillRect({0, 0, 6, 4});
    context.setColor(red);
    draw(context);
    return bitmap;
}

} // namespace

TEST(GraphicsContext, ClipsFillsWhereverTheyLie)
{
    const auto filled = [](PixelRect rect) { return onWhite([&](GraphicsContext& c) { c.fillRect(rect); }); };
    const BitmapRef untouched = picture({"WWWWWW", "WWWWWW", "WWWWWW", "WWWWWW"});
    const BitmapRef all = picture({"RRRRRR", "RRRRRR", "RRRRRR", "RRRRRR"});
    EXPECT_TRUE(samePicture(filled({1, 0, 2, 3}), picture({"WWWWWW", "WRRWWW", "WRRWWW", "WRRWWW"})));
    EXPECT_TRUE(samePicture(filled({-2, 2, 3, 9}), picture({"RWWWWW", "RWWWWW", "WWWWWW", "WWWWWW"})));
    EXPECT_TRUE(samePicture(filled({5, -7, 9, 8}), picture({"WWWWWW", "WWWWWW", "WWWWWW", "WWWWWR"})));
    EXPECT_TRUE(samePicture(filled({-kFar, -kFar, 2 * kFar, 2 * kFar}), all));
    EXPECT_TRUE(samePicture(onWhite([](GraphicsContext& c) {
                                c.clearRect({4, 0, 9, 2});
                            }),
                            picture({"WWWWWW", "WWWWWW", "WWWW..", "WWWW.."})));
    const PixelRect outside[] = {{6, 0, 1, 1}, {0, 4, 1, 1},  {-1, 0, 1, 4},           {0, -1, 6, 1},
                                 {2, 2, 0, 2}, {2, 2, 2, -1}, {kFar, kFar, kFar, kFar}};
    for (const PixelRect& rect : outside)
        EXPECT_TRUE(samePicture(filled(rect), untouched)) << rect.x << ", " << rect.y;
}

TEST(GraphicsContext, DrawsTheSamePixelsInsideAClip)
{
    const auto image = std::make_shared<Image>(Size{9.5, 12});
    image->addRepresentation(test::randomPicture(7, 9, 1));
    const auto draw = [&](GraphicsContext& context) {
        context.setColor(red);
        context.fillRect({-3, 2, 20, 8});
        context.setColor(Color::deviceRGB(0, 0, 1, 0.5));
        context.frameRect({0, 0, 17, 13}, 2);
        context.strokeCircle({1, 0, 14, 14}, 3);
        context.drawImage(*image, {2, 3}, {1, 0, 8, 12}, CompositingOperation::SourceOver, 200);
    };
    const BitmapRef whole = Bitmap::create(17, 13), pieces = Bitmap::create(17, 13);
    GraphicsContext unclipped(whole);
    draw(unclipped);
    for (int y = -2; y < 13; y += 5) {
        for (int x = -1; x < 17; x += 4) {
            GraphicsContext context(pieces);
            context.clipToRect({x, -9, 4, 99});
            context.clipToRect({-9, y, 99, 5});
            draw(context);
        }
    }
    EXPECT_TRUE(samePicture(pieces, whole));
}

TEST(GraphicsContext, FramesAlongTheInside)
{
    const auto framed = [](PixelRect rect, std::int64_t width) {
        return onWhite([&](GraphicsContext& c) { c.frameRect(rect, width); });
    };
    const BitmapRef untouched = picture({"WWWWWW", "WWWWWW", "WWWWWW", "WWWWWW"});
    const BitmapRef all = picture({"RRRRRR", "RRRRRR", "RRRRRR", "RRRRRR"});
    EXPECT_TRUE(samePicture(framed({0, 0, 5, 3}, 1), picture({"WWWWWW", "RRRRRW", "RWWWRW", "RRRRRW"})));
    EXPECT_TRUE(samePicture(framed({-1, -1, 5, 4}, 1), picture({"WWWWWW", "RRRRWW", "WWWRWW", "WWWRWW"})));
    EXPECT_TRUE(samePicture(framed({-2, -2, 10, 8}, 3), picture({"RRRRRR", "RWWWWR", "RWWWWR", "RRRRRR"})));
    // At least half the smaller side fills all; an odd side is already full when the strips meet.
    for (const std::int64_t width : {std::int64_t(2), std::int64_t(3), kFar})
        EXPECT_TRUE(samePicture(framed({0, 0, 6, 4}, width), all)) << width;
    EXPECT_TRUE(samePicture(framed({0, 0, 3, 5}, 2), picture({"RRRWWW", "RRRWWW", "RRRWWW", "RRRWWW"})));
    EXPECT_TRUE(samePicture(framed({0, 0, 6, 4}, 0), untouched));
    EXPECT_TRUE(samePicture(framed({0, 0, 6, 4}, -kFar), untouched));
    EXPECT_TRUE(samePicture(framed({2, 2, 0, 2}, 1), untouched));
    EXPECT_TRUE(samePicture(framed({-kFar, -kFar, 2 * kFar, 2 * kFar}, 1), untouched));
}

TEST(GraphicsContext, TilesTheBlockAtTheLowerLeft)
{
    const auto tiled = [](std::int64_t width, std::int64_t height, std::int64_t columns, std::int64_t rows) {
        return onWhite([&](GraphicsContext& c) {
            c.fillRect({0, 0, 1, 1});
            c.setColor(green);
            c.fillRect({1, 1, 1, 1});
            c.tile(width, height, columns, rows);
        });
    };
    const BitmapRef once = picture({"WWWWWW", "WWWWWW", "WGWWWW", "RWWWWW"});
    EXPECT_TRUE(samePicture(tiled(2, 2, 3, 2), picture({"WGWGWG", "RWRWRW", "WGWGWG", "RWRWRW"})));
    EXPECT_TRUE(samePicture(tiled(2, 2, 2, 1), picture({"WWWWWW", "WWWWWW", "WGWGWW", "RWRWWW"})));
    EXPECT_TRUE(samePicture(tiled(4, 3, 9, 9), picture({"RWWWRW", "WWWWWW", "WGWWWG", "RWWWRW"})));
    EXPECT_TRUE(samePicture(tiled(3, 2, kFar, kFar), picture({"WGWWGW", "RWWRWW", "WGWWGW", "RWWRWW"})));
    EXPECT_TRUE(samePicture(tiled(kFar, kFar, kFar, kFar), once));
    EXPECT_TRUE(samePicture(tiled(1, 9, 2, 3), picture({"WWWWWW", "WWWWWW", "WWWWWW", "RRWWWW"})));
    for (const auto& [columns, rows] : {std::pair(0, 2), std::pair(3, 0), std::pair(-1, -1)})
        EXPECT_TRUE(samePicture(tiled(2, 2, columns, rows), once));
    EXPECT_TRUE(samePicture(tiled(0, 2, 3, 3), once));
}

TEST(GraphicsContext, DrawsBitmapsBeyondTheCacheAlike)
{
    // 68 MB, with rows and blocks that start at every alignment.
    constexpr int kBlockWidth = 27, kBlockHeight = 41, kColumns = 303, kRows = 51;
    const BitmapRef bitmap = Bitmap::create(kBlockWidth * kColumns + 2, kBlockHeight * kRows + 3);
    GraphicsContext context(bitmap);
    context.setColor(green);
    context.fillRect({0, 0, bitmap->width(), bitmap->height()});
    for (int y = 0; y < bitmap->height(); ++y)
        ASSERT_EQ(std::ranges::count(bitmap->row(y), Pixel{255, 0, 255, 0}), bitmap->width()) << y;

    const BitmapRef block = test::randomPicture(kBlockWidth, kBlockHeight, 1);
    std::ranges::copy(block->row(7), block->row(8).begin()); // alike but for the last pixel
    block->row(8).back().a ^= 1;
    Image image({kBlockWidth, kBlockHeight});
    image.addRepresentation(block);
    context.clearRect({0, 0, kBlockWidth, kBlockHeight});
    context.drawImage(image, {0, 0}, image.extent(), CompositingOperation::SourceOver);
    context.tile(kBlockWidth, kBlockHeight, kColumns, kRows);
    for (int y = 0; y < bitmap->height(); ++y) {
        std::vector<Pixel> expected(static_cast<std::size_t>(bitmap->width()), {255, 0, 255, 0});
        if (y >= 3) {
            const auto row = block->row((y - 3) % kBlockHeight);
            for (int i = 0; i < kColumns; ++i)
                std::ranges::copy(row, expected.begin() + i * kBlockWidth);
        }
        ASSERT_TRUE(std::ranges::equal(bitmap->row(y), expected)) << y;
    }
}

TEST(GraphicsContext, DrawsNowhereWithoutABitmap)
{
    GraphicsContext context(nullptr);
    context.setColor(red);
    context.fillRect({0, 0, 4, 4});
    context.clearRect({0, 0, 4, 4});
    context.frameRect({0, 0, 4, 4}, 1);
    context.tile(1, 1, 4, 4);
    context.strokeCircle({0, 0, 4, 4}, 1);
    context.drawText("240 x 240", {0, 0}, 13, nullptr);
    Image image({4, 1});
    image.addRepresentation(picture({"RRRR"}));
    context.drawImage(image, {0, 0}, {0, 0, 4, 1}, CompositingOperation::SourceOver);
}

namespace {

/// Every "letter" is a box as wide as the font is high, its lower half covered whole and its upper half half, with a
/// descent of one pixel that leaves the lowest row of the line box empty.
class BoxToolkit : public Toolkit {
public:
    class Line : public TextLine {
    public:
        PixelRect box;
        PixelRect inkBounds() const override { return box; }
        void rasterize(const PixelRect& area, std::span<std::uint8_t> coverage) const override
        {
            EXPECT_EQ(coverage.size(), static_cast<std::size_t>(area.width * area.height));
            EXPECT_EQ(intersection(area, box), area);
            EXPECT_LE(coverage.size(), std::size_t(1) << 20);
            for (std::int64_t i = 0; i < area.width * area.height; ++i) {
                const std::int64_t y = area.top() - 1 - i / area.width;
                coverage[static_cast<std::size_t>(i)] = y < box.y + box.height / 2 ? 255 : 128;
            }
        }
    };

    BoxToolkit() { install(this); }
    ~BoxToolkit() override { install(nullptr); }
    std::unique_ptr<TextLine> layOutText(std::string_view text, double fontSize) override
    {
        auto line = std::make_unique<Line>();
        const auto side = static_cast<std::int64_t>(fontSize);
        line->box = {0, 1, side * static_cast<std::int64_t>(text.size()), side};
        return line;
    }
    Expected<ImageRef> decodeImage(std::span<const std::uint8_t>) override { return failure("no images here"); }
};

} // namespace

TEST(GraphicsContext, BlendsTextOverThePixels)
{
    const BitmapRef nothing = onWhite([](GraphicsContext& c) { c.drawText("a", {0, 0}, 2, red); });
    EXPECT_TRUE(samePicture(nothing, picture({"WWWWWW", "WWWWWW", "WWWWWW", "WWWWWW"}))) << "there is no toolkit";

    BoxToolkit toolkit;
    const Pixel half{255, 255, 127, 127};
    BitmapRef expected = picture({"WWWWWW", "WWWWWW", "WRRRRW", "WWWWWW"});
    for (int x = 1; x < 5; ++x)
        expected->row(1)[static_cast<std::size_t>(x)] = half;
    EXPECT_TRUE(samePicture(onWhite([](GraphicsContext& c) { c.drawText("ab", {1, 0}, 2, red); }), expected));
    EXPECT_TRUE(samePicture(onWhite([](GraphicsContext& c) {
                                c.drawText("ab", {1, 0}, 2, nullptr);
                            }),
                            expected))
        << "the current colour stands in for none";

    expected = picture({"WWWWWW", "WWWWWW", "WWWWWW", "WWWWWW"}); // but for the upper end of a letter 13 pixels high
    std::ranges::fill(expected->row(3), half);
    std::ranges::fill(expected->row(2), half);
    for (const double size : {0.0, -4.0, 13.0})
        EXPECT_TRUE(samePicture(onWhite([&](GraphicsContext& c) { c.drawText("a", {0, -12}, size, red); }), expected));
    expected = picture({"RRRRRR", "RRRRRR", "RRRRRR", "WWWWWW"});
    // Letters of a thousand kilometres, in pieces.
    EXPECT_TRUE(samePicture(onWhite([](GraphicsContext& c) { c.drawText("abc", {-1000, 0}, 4e9, red); }), expected));
}

TEST(GraphicsContext, RasterisesWideTextInPieces)
{
    BoxToolkit toolkit;
    const BitmapRef bitmap = Bitmap::create(40000, 70);
    GraphicsContext context(bitmap);
    context.drawText("a", {0, -1}, 50000, red);
    for (int y = 0; y < bitmap->height(); ++y)
        for (const Pixel& pixel : bitmap->row(y))
            ASSERT_EQ(pixel, (Pixel{255, 255, 0, 0}));
}
