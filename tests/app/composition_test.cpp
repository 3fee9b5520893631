// SPDX-License-Identifier: MIT
#include "items/gx_screen.h"
#include "items/gx_still.h"
#include "scripted_desktop.h"

using namespace wallgrid;

namespace {

const Pixel kBlack{255, 0, 0, 0};
const Pixel kRed{255, 255, 0, 0};
const Pixel kGreen{255, 0, 255, 0};
const Pixel kWhite{255, 255, 255, 255};

class Composition : public ScriptedDesktop {
protected:
    Composition()
    {
        delegate.applicationDidFinishLaunching();
        delegate.setOutputWidth(8);
        delegate.setOutputHeight(5);
    }

    static ScreenRef screen(ColorRef color, std::int32_t width, std::int32_t height, std::int32_t x, std::int32_t y)
    {
        return GXScreen::initWithrow(1, 1, width, height, std::move(color), nullptr, nullptr, 0, true, false, nullptr,
                                     false, x, y);
    }

    /// Puts the items in the place of the list and composes.
    void compose(ItemArray items)
    {
        delegate.setAllScreensArray(std::make_shared<ItemArray>(std::move(items)));
        render();
    }
    void render()
    {
        delegate.setShouldUpdate(true);
        delegate.update();
    }

    /// One letter a pixel, rows from the top.
    std::string raster() const
    {
        std::string text;
        const BitmapRef bitmap = delegate.offscreenRep();
        for (int y = 0; bitmap && y < bitmap->height(); ++y) {
            for (const Pixel pixel : bitmap->row(y)) {
                text += pixel == kBlack   ? '.'
                        : pixel == kRed   ? 'R'
                        : pixel == kGreen ? 'G'
                        : pixel == kWhite ? 'W'
                                          : '#';
            }
            text += '\n';
        }
        return text;
    }
};

} // namespace

TEST_F(Composition, FirstRowIsOnTopAndEverythingIsClipped)
{
    const ScreenRef hidden = screen(Color::whiteColor(), 8, 5, 0, 0);
    hidden->setVisible(false);
    compose({hidden, screen(Color::redColor(), 3, 2, 0, 0), screen(Color::greenColor(), 4, 3, 2, 1),
             screen(Color::whiteColor(), 4, 9, 6, -2), screen(Color::redColor(), 5, 5, -4, 3)});
    EXPECT_EQ(raster(), "RRR...WW\n"
                        "RRRGGGWW\n"
                        "..GGGGWW\n"
                        "R.GGGGWW\n"
                        "R.....WW\n");
}

TEST_F(Composition, EdgeAndBackgroundColours)
{
    const ItemRef item = screen(Color::redColor(), 2, 2, 3, 1);
    delegate.setEdgeColor(Color::greenColor());
    compose({item});
    EXPECT_EQ(raster(), "GGGGGGGG\n"
                        "G..RR..G\n"
                        "G..RR..G\n"
                        "G......G\n"
                        "GGGGGGGG\n");
    delegate.setBgColor(Color::whiteColor());
    delegate.setEdgeColor(nullptr);
    render();
    EXPECT_EQ(raster().substr(0, 18), "WWWWWWWW\nWWWRRWWW\n") << "without an edge colour the background's stays";

    delegate.setBgColor(Color::calibratedWhite(1, 0));
    render();
    for (int y = 0; y < 5; ++y) {
        for (const Pixel pixel : delegate.offscreenRep()->row(y))
            EXPECT_EQ(pixel, Pixel{}) << "an item shows only as far as the background is opaque";
    }
    delegate.setBgColor(Color::calibratedRGB(0, 0, 1, 0.5));
    item->setRectColor(Color::calibratedRGB(1, 0, 0, 0.25));
    delegate.observeValueForKeyPath();
    render();
    // 64 of 255 red over 128 of 255 blue: 64 × 128 / 255 = 32, 128 × 191 / 255 = 96.
    EXPECT_EQ(delegate.offscreenRep()->at(3, 1), (Pixel{128, 32, 0, 96}));
}

TEST_F(Composition, StillsAreDrawnAtTheirNominalSize)
{
    auto image = std::make_shared<Image>(Size{2, 2});
    image->addRepresentation(Bitmap::create(2, 2));
    for (int y = 0; y < 2; ++y)
        std::fill(image->firstRepresentation()->row(y).begin(), image->firstRepresentation()->row(y).end(), kRed);
    const StillRef still = GXStill::initWithimage(image);
    still->setPanelWidth(5);
    still->setPanelHeight(3);
    still->setXpoint(1);
    still->setYpoint(2);
    const ScreenRef selected = screen(Color::whiteColor(), 1, 1, 0, 0);
    compose({selected, still});
    EXPECT_EQ(raster(), "W.......\n........\n.RR.....\n.RR.....\n........\n") << "not rendered yet";
    still->drawInRect();
    render();
    EXPECT_EQ(raster(), "W.......\n........\n.RRRRR..\n.RRRRR..\n.RRRRR..\n");
    still->setThumbnail(nullptr);
    render();
    EXPECT_EQ(raster().find('R'), std::string::npos);
}

TEST_F(Composition, ThrottleRendersOnceInATenthOfASecond)
{
    runLoop.advance(1);
    EXPECT_EQ(runLoop.pendingTimers(), 0u);
    delegate.update();
    const BitmapRef rendered = delegate.offscreenRep();
    const ImageRef shown = delegate.img();
    EXPECT_FALSE(delegate.hasSkippedUpdate());

    runLoop.advance(0.05);
    delegate.update();
    EXPECT_EQ(delegate.offscreenRep(), rendered);
    EXPECT_EQ(delegate.img(), shown);
    EXPECT_TRUE(delegate.hasSkippedUpdate());
    EXPECT_EQ(runLoop.pendingTimers(), 2u) << "every call schedules its own timer";

    runLoop.advance(0.0501);
    EXPECT_EQ(delegate.img(), shown) << "the timer lets the next call render and renders nothing itself";
    delegate.update();
    EXPECT_NE(delegate.img(), shown);
    EXPECT_FALSE(delegate.hasSkippedUpdate());
}

TEST_F(Composition, ThePassRendersASelectedRowOtherThanTheFirst)
{
    const ItemRef first = screen(Color::redColor(), 2, 2, 0, 0);
    const ItemRef second = screen(Color::redColor(), 2, 2, 0, 0);
    compose({first, second});
    const ImageRef firstPicture = first->thumbnail();
    ImageRef secondPicture = second->thumbnail();
    delegate.arraycontroller().setSelectionIndex(0);
    render();
    EXPECT_EQ(first->thumbnail(), firstPicture);
    delegate.arraycontroller().setSelectionIndex(1);
    render();
    EXPECT_NE(second->thumbnail(), secondPicture);
}

TEST_F(Composition, ImpossibleOutputSizesClearThePicture)
{
    for (const auto& [width, height] : {std::pair{0, 5}, {8, -1}, {2147483647, 2147483647}, {-2147483647 - 1, 1}}) {
        delegate.setOutputWidth(width);
        delegate.setOutputHeight(height);
        render();
        EXPECT_EQ(delegate.offscreenRep(), nullptr);
        EXPECT_EQ(delegate.img(), nullptr);
    }
    choose("nothing");
    delegate.saveAction();
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    delegate.setOutputWidth(1);
    delegate.setOutputHeight(1);
    render();
    EXPECT_EQ(raster(), "W\n");
}
