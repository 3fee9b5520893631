// SPDX-License-Identifier: MIT
#include "items/gx_screen.h"
#include "picture.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

using namespace wallgrid;

namespace {

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

ScreenRef makeScreen(std::int32_t col, std::int32_t row, std::int32_t panelWidth, std::int32_t panelHeight)
{
    return GXScreen::initWithrow(row, col, panelWidth, panelHeight, Color::redColor(), Color::whiteColor(),
                                 Color::whiteColor(), 50, true, true, nullptr, false, 0, 0);
}

BitmapRef pixelsOf(const GXScreen& screen)
{
    return screen.thumbnail()->firstRepresentation();
}

} // namespace

TEST(GXScreen, InitMakesTheDefaultScreen)
{
    const ScreenRef screen = GXScreen::init();
    EXPECT_TRUE(screen->visible() && screen->bgEnable() && screen->BoarderEnable());
    EXPECT_FALSE(screen->XYFontEnable() || screen->screenFontEnable() || screen->CircleEnable());
    EXPECT_EQ(screen->thumbnail()->size(), (Size{240, 240}));
    EXPECT_EQ(screen->label(), nullptr);
    EXPECT_EQ(screen->XYFontSize(), 50);
    EXPECT_EQ(screen->screenFontSize(), 50);
    EXPECT_EQ(screen->PositionArray(),
              (std::vector<std::u16string>{u"TOP LEFT", u"TOP RIGHT", u"CENTER", u"BOTTOM LEFT", u"BOTTOM RIGHT"}));
    EXPECT_EQ(textOf(screen->label1()), u"Panel-H");
    EXPECT_EQ(textOf(screen->label8()), u"Label Screen Size");
    EXPECT_FALSE(screen->label3Hidden() || screen->labelGroupRightHidden());
}

TEST(GXScreen, DrawsPanelsAndFrames)
{
    const ScreenRef screen = makeScreen(2, 1, 4, 3);
    const BitmapRef red = test::picture({"RRRRRRRR", "RRRRRRRR", "RRRRRRRR"});
    const std::pair<std::int32_t, BitmapRef> pictures[] = {
        {1, test::picture({"WWWWWWWW", "WRRWWRRW", "WWWWWWWW"})},
        {0, red},
        {-3, red},
        {2, test::picture({"WWWWWWWW", "WWWWWWWW", "WWWWWWWW"})}, // half the smaller side fills the panel
    };
    for (const auto& [frame, expected] : pictures) {
        screen->setBoarderWidth(frame);
        screen->drawInRect();
        EXPECT_TRUE(test::samePicture(pixelsOf(*screen), expected)) << frame;
    }
    screen->setBoarderWidth(1);
    screen->setBgEnable(false);
    screen->drawInRect();
    EXPECT_TRUE(test::samePicture(pixelsOf(*screen), test::picture({"WWWWWWWW", "W..WW..W", "WWWWWWWW"})));
    screen->setBoarderEnable(false);
    screen->drawInRect();
    EXPECT_TRUE(test::samePicture(pixelsOf(*screen), test::picture({"........", "........", "........"})));

    const ScreenRef large = makeScreen(1, 1, 600, 600);
    large->setBgEnable(false);
    large->drawInRect(); // in the memory of the filled picture
    EXPECT_EQ(pixelsOf(*large)->at(300, 300), Pixel{});
}

TEST(GXScreen, TranslucentColoursReplaceAndEmptyOnesLeaveTheColourInForce)
{
    const ScreenRef screen = makeScreen(1, 1, 3, 3);
    screen->setRectColor(Color::calibratedRGB(0, 1, 0, 0.5));
    screen->setBoarderColor(Color::calibratedWhite(1, 0.25));
    screen->drawInRect();
    EXPECT_EQ(pixelsOf(*screen)->at(1, 1), (Pixel{128, 0, 128, 0}));
    EXPECT_EQ(pixelsOf(*screen)->at(0, 0), (Pixel{64, 64, 64, 64}));
    screen->setBoarderColor(nullptr);
    screen->drawInRect();
    EXPECT_EQ(pixelsOf(*screen)->at(0, 0), (Pixel{128, 0, 128, 0}));
    screen->setRectColor(nullptr);
    screen->drawInRect();
    EXPECT_EQ(pixelsOf(*screen)->at(1, 1), (Pixel{255, 0, 0, 0}));
}

TEST(GXScreen, CircleTouchesTheShorterSides)
{
    // The preset CIRCLE: a stroke of 4 around the ellipse rectangle (212, 2, 536, 536).
    const ScreenRef screen = GXScreen::initWithrow(1, 1, 960, 540, Color::redColor(), Color::whiteColor(),
                                                   Color::greenColor(), 50, false, false, nullptr, true, 480, 270);
    const BitmapRef bitmap = screen->thumbnail()->firstRepresentation();
    for (int x = 205; x < 222; ++x)
        EXPECT_EQ(bitmap->at(x, 270), x >= 210 && x < 214 ? (Pixel{255, 0, 255, 0}) : Pixel{}) << x;
    EXPECT_EQ(bitmap->at(480, 1), (Pixel{255, 0, 255, 0}));
    EXPECT_EQ(bitmap->at(480, 538), (Pixel{255, 0, 255, 0}));
    EXPECT_EQ(bitmap->at(480, 270), Pixel{});
    EXPECT_EQ(bitmap->at(960 - 1 - 212, 270), (Pixel{255, 0, 255, 0}));

    screen->setCircleBWidth(541);
    screen->drawInRect();
    EXPECT_EQ(bitmap->at(480, 270), Pixel{}) << "a picture handed out keeps its pixels";
    EXPECT_EQ(pixelsOf(*screen)->at(480, 270), Pixel{}) << "no circle of a negative size";
}

TEST(GXScreen, UnusualSizesCostNothingAndDrawWhatTheyCan)
{
    struct Case {
        std::int32_t col, row, panelWidth, panelHeight;
        std::int32_t width, height;
        BitmapRef picture;
    };
    const Case cases[] = {
        {0, 3, 4, 4, 0, 12, nullptr},
        {3, -1, 4, 4, 12, -4, nullptr},
        {kMax, kMax, 0, 0, 0, 0, nullptr},
        {-2, -1, -2, -2, 4, 2, test::picture({"....", "...."})},
        {4, 1, (1 - kMax) / 2, 2, 4, 2, test::picture({"....", "...."})}, // wraps, and no panel has a size
        {2, 1, 2, 2, 4, 2, test::picture({"WWWW", "WWWW"})},
        // The product wraps to one panel.
        {1 << 30 | 1, 1 << 30 | 1, 4, 4, 4, 4, test::picture({"WWWW", "WRRW", "WRRW", "WWWW"})},
        {kMax, kMax, kMax, kMax, 1, 1, test::picture({"W"})},
        {kMax, 1, 65536, 65536, -65536, 65536, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.col) + " x " + std::to_string(c.row));
        const ScreenRef screen = makeScreen(c.col, c.row, c.panelWidth, c.panelHeight);
        EXPECT_EQ(screen->screenSizeWidth(), c.width);
        EXPECT_EQ(screen->screenSizeHeight(), c.height);
        EXPECT_TRUE(test::samePicture(pixelsOf(*screen), c.picture));
        EXPECT_EQ(screen->thumbnail()->size(), (Size{double(c.width), double(c.height)}));
    }
}

TEST(GXScreen, CopySharesAndGetsItsCaptionsBack)
{
    const ScreenRef source = makeScreen(2, 2, 3, 3);
    source->setLabel1(nullptr);
    const auto copy = std::dynamic_pointer_cast<GXScreen>(source->copy());
    ASSERT_TRUE(copy);
    for (const GXItem::Field& field : GXItem::fields())
        EXPECT_EQ(copy->value(field), source->value(field)) << field.property;
    EXPECT_EQ(copy->thumbnail(), source->thumbnail());
    EXPECT_EQ(textOf(copy->label1()), u"Panel-H");
    EXPECT_EQ(copy->PositionArray().size(), 5u);
    copy->drawInRect();
    EXPECT_NE(copy->thumbnail(), source->thumbnail());
}

TEST(GXScreen, AnEditShowsLikeAScreenThatWasNeverDrawnBefore)
{
    const ScreenRef screen = GXScreen::init();
    screen->setScreenFontEnable(true);
    screen->setXYFontEnable(true);
    screen->setCircleEnable(true);
    for (const GXItem::Field& field : GXItem::fields()) {
        SCOPED_TRACE(field.property);
        screen->drawInRect();
        const BitmapRef before = screen->thumbnail()->firstRepresentation();
        const GXItem::FieldValue old = screen->value(field);
        if (std::holds_alternative<std::int32_t>(old))
            screen->setValue(field, std::get<std::int32_t>(old) + 3);
        else if (std::holds_alternative<bool>(old))
            screen->setValue(field, !std::get<bool>(old));
        else if (std::holds_alternative<ColorRef>(old))
            screen->setValue(field, Color::calibratedRGB(0, 0.5, 1));
        screen->drawInRect();
        const ItemRef fresh = screen->copy();
        fresh->releasePicture();
        fresh->drawInRect();
        const BitmapRef now = screen->thumbnail()->firstRepresentation();
        EXPECT_TRUE(test::samePicture(now, fresh->thumbnail()->firstRepresentation()));
        // What is outside the picture leaves the bitmap as it is.
        const bool outside =
            field.property == "visible" || field.property == "label" || field.property.starts_with("screenSize");
        EXPECT_EQ(now == before, outside);
    }
}
