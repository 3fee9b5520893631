// SPDX-License-Identifier: MIT
#include "items/gx_still.h"
#include "scripted_desktop.h"

using namespace wallgrid;

namespace {

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
    void compose(ItemArray items)
    {
        put(std::move(items));
        ScriptedDesktop::compose();
    }

    /// One letter a pixel, rows from the top; opaque ones only.
    std::string raster() const
    {
        std::string text;
        const BitmapRef bitmap = delegate.offscreenRep();
        for (int y = 0; bitmap && y < bitmap->height(); ++y) {
            for (const auto [a, r, g, b] : bitmap->row(y))
                text += a != 255 ? '#' : b != 0 ? 'W' : r != 0 ? 'R' : '.';
            text += '\n';
        }
        return text;
    }
};

} // namespace

TEST_F(Composition, StillsAreDrawnAtTheirNominalSize)
{
    const ItemRef red = screen(Color::redColor(), 2, 2, 0, 0);
    const StillRef still = GXStill::initWithimage(red->thumbnail());
    still->setPanelWidth(5);
    still->setPanelHeight(3);
    still->setXpoint(1);
    still->setYpoint(2);
    const ScreenRef selected = screen(Color::whiteColor(), 1, 1, 0, 0);
    still->drawInRect();
    const ItemRef copy = still->copy(); // shares the image, not the size
    copy->setYpoint(0);
    copy->setPanelWidth(1);
    copy->drawInRect();
    compose({selected, still, copy});
    EXPECT_EQ(raster(), "WR......\n.R......\n.RRRRR..\n.RRRRR..\n.RRRRR..\n");
}

TEST_F(Composition, ThrottleRendersOnceInATenthOfASecond)
{
    runLoop.advance(1);
    delegate.update();
    const ImageRef shown = delegate.img();
    EXPECT_FALSE(delegate.hasSkippedUpdate());

    runLoop.advance(0.05);
    delegate.update();
    EXPECT_EQ(delegate.img(), shown);
    EXPECT_TRUE(delegate.hasSkippedUpdate());
    EXPECT_EQ(runLoop.pendingTimers(), 2u) << "every call schedules its own timer";

    runLoop.advance(0.0501);
    EXPECT_EQ(delegate.img(), shown) << "the timer lets the next call render and renders nothing itself";
    delegate.update();
    EXPECT_NE(delegate.img(), shown);
    EXPECT_FALSE(delegate.hasSkippedUpdate());
}
