// SPDX-License-Identifier: MIT
#include "items/gx_screen.h"
#include "picture.h"

#include <gtest/gtest.h>
#include <limits>
#include <sstream>

using namespace wallgrid;

namespace {

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

ScreenRef makeScreen(std::int32_t col, std::int32_t row, std::int32_t panelWidth, std::int32_t panelHeight)
{
    return GXScreen::initWithrow(row, col, panelWidth, panelHeight, Color::redColor(), Color::whiteColor(),
                                 Color::greenColor(), 50, true, true, nullptr, false, 0, 0);
}

BitmapRef pixelsOf(const GXItem& item)
{
    return item.thumbnail()->firstRepresentation();
}

void expectDrawn(GXScreen& screen, std::initializer_list<std::string_view> rows)
{
    screen.drawInRect();
    EXPECT_TRUE(test::samePicture(pixelsOf(screen), test::picture(rows)));
}

} // namespace

TEST(GXScreen, InitMakesTheDefaultScreen)
{
    const ScreenRef screen = GXScreen::init();
    std::ostringstream values;
    for (const GXItem::Field& field : GXItem::fields()) {
        const GXItem::FieldValue value = screen->value(field);
        if (const auto* number = std::get_if<std::int32_t>(&value))
            values << field.property << ' ' << *number << ' ';
        else if (const auto* flag = std::get_if<bool>(&value))
            values << field.property << ' ' << *flag << ' ';
    }
    EXPECT_EQ(values.str(), "col 5 bgEnable 1 BoarderEnable 1 panelWidth 48 panelHeight 48 row 5 visible 1 "
                            "screenSizeHeight 240 screenSizeWidth 240 xpoint 0 ypoint 0 XYFontSize 50 XYFontEnable 0 "
                            "screenFontEnable 0 CircleEnable 0 screenFontSize 50 boarderWidth 1 circleBWidth 4 ");
    EXPECT_EQ(screen->label(), nullptr);
    EXPECT_EQ(screen->PositionArray(),
              (std::vector<std::u16string>{u"TOP LEFT", u"TOP RIGHT", u"CENTER", u"BOTTOM LEFT", u"BOTTOM RIGHT"}));
    EXPECT_EQ(textOf(std::make_shared<GXScreen>()->captions().fields[0].text), u"Panel-H")
        << "of one that a file holds, too";
    EXPECT_EQ(textOf(screen->label8()), u"Label Screen Size");
    EXPECT_FALSE(screen->label3Hidden() || screen->labelGroupRightHidden());
}

TEST(GXScreen, DrawsPanelsAndFrames)
{
    const ScreenRef screen = makeScreen(2, 1, 4, 3);
    expectDrawn(*screen, {"WWWWWWWW", "WRRWWRRW", "WWWWWWWW"});
    screen->setBoarderWidth(-3);
    expectDrawn(*screen, {"RRRRRRRR", "RRRRRRRR", "RRRRRRRR"});
    screen->setBoarderWidth(1);
    screen->setBgEnable(false);
    expectDrawn(*screen, {"WWWWWWWW", "W..WW..W", "WWWWWWWW"});
    screen->setBoarderEnable(false);
    expectDrawn(*screen, {"........", "........", "........"});

    const ScreenRef large = makeScreen(1, 1, 600, 600);
    large->setBgEnable(false);
    large->drawInRect(); // in the memory of the filled picture
    EXPECT_EQ(pixelsOf(*large)->at(300, 300), Pixel{});

    const ScreenRef colors = makeScreen(1, 1, 3, 3);
    colors->setRectColor(Color::calibratedRGB(0, 1, 0, 0.5));
    colors->setBoarderColor(Color::calibratedWhite(1, 0.25));
    colors->drawInRect();
    EXPECT_EQ(pixelsOf(*colors)->at(1, 1), (Pixel{128, 0, 128, 0})) << "translucent colours replace";
    EXPECT_EQ(pixelsOf(*colors)->at(0, 0), (Pixel{64, 64, 64, 64}));
    colors->setBoarderColor(nullptr);
    colors->drawInRect();
    EXPECT_EQ(pixelsOf(*colors)->at(0, 0), (Pixel{128, 0, 128, 0})) << "no colour leaves the one in force";
}

TEST(GXScreen, CircleTouchesTheShorterSides)
{
    const Pixel green{255, 0, 255, 0};
    for (const auto& [width, height] : {std::pair(960, 540), std::pair(540, 960)}) {
        const ScreenRef screen = makeScreen(1, 1, width, height);
        screen->setBgEnable(false);
        screen->setBoarderEnable(false);
        screen->setCircleEnable(true);
        screen->drawInRect();
        const BitmapRef bitmap = pixelsOf(*screen);
        const int x = width / 2, y = height / 2;
        // A stroke of 4 around a radius of 268.
        for (const auto& [from, color] : {std::pair(271, Pixel{}), {269, green}, {267, green}, {264, Pixel{}}})
            EXPECT_EQ(bitmap->at(width > height ? x - from : x, width > height ? y : y - from), color) << from;
        EXPECT_EQ(bitmap->at(x, y), Pixel{});
        EXPECT_EQ(width > height ? bitmap->at(x, 1) : bitmap->at(1, y), green);
        screen->setCircleBWidth(541);
        screen->drawInRect();
        EXPECT_EQ(bitmap->at(x, y), Pixel{}) << "a picture handed out keeps its pixels";
        EXPECT_EQ(pixelsOf(*screen)->at(x, y), Pixel{}) << "no circle of a negative size";
    }
    const ScreenRef odd = makeScreen(1, 1, 8, 5); // each half is truncated on its own
    odd->setBgEnable(false);
    odd->setBoarderEnable(false);
    odd->setCircleEnable(true);
    odd->setCircleBWidth(1);
    odd->drawInRect();
    EXPECT_EQ(pixelsOf(*odd)->at(0, 3).a, 0);
    EXPECT_GT(pixelsOf(*odd)->at(1, 3).a, 0);
}

TEST(GXScreen, UnusualSizesCostNothingAndDrawWhatTheyCan)
{
    struct Case {
        std::int32_t col, row, panelWidth, panelHeight;
        Size size;
        BitmapRef picture;
    };
    const Case cases[] = {
        {0, 3, 4, 4, {0, 12}, nullptr},
        {3, -1, 4, 4, {12, -4}, nullptr},
        {-2, -1, -2, -2, {4, 2}, test::picture({"....", "...."})},
        {4, 1, (1 - kMax) / 2, 2, {4, 2}, test::picture({"....", "...."})}, // wraps, and no panel has a size
        // The product wraps to one panel.
        {1 << 30 | 1, 1 << 30 | 1, 4, 4, {4, 4}, test::picture({"WWWW", "WRRW", "WRRW", "WWWW"})},
        {kMax, kMax, kMax, kMax, {1, 1}, test::picture({"W"})},
        {kMax, 1, 65536, 65536, {-65536, 65536}, nullptr},
    };
    for (const Case& c : cases) {
        const ScreenRef screen = makeScreen(c.col, c.row, c.panelWidth, c.panelHeight);
        EXPECT_EQ(screen->thumbnail()->size(), c.size);
        EXPECT_TRUE(test::samePicture(pixelsOf(*screen), c.picture)) << c.col << " x " << c.row;
    }
}

TEST(GXScreen, AnEditIsToldAndShowsLikeAScreenThatWasNeverDrawnBefore)
{
    const ScreenRef screen = GXScreen::init();
    screen->setScreenFontEnable(true);
    screen->setXYFontEnable(true);
    screen->setCircleEnable(true);
    std::string told;
    const auto observation = screen->observe([&](std::string_view key) { told = key; });
    for (const GXItem::Field& field : GXItem::fields()) {
        SCOPED_TRACE(field.property);
        screen->drawInRect();
        const BitmapRef before = pixelsOf(*screen);
        GXItem::FieldValue value = screen->value(field);
        if (auto* number = std::get_if<std::int32_t>(&value))
            *number += 3;
        else if (auto* flag = std::get_if<bool>(&value))
            *flag = !*flag;
        else if (std::holds_alternative<ColorRef>(value))
            value = Color::calibratedRGB(0, 0.5, 1);
        screen->setValue(field, value);
        EXPECT_EQ(told, field.property);
        screen->drawInRect();
        const ItemRef fresh = screen->copy();
        EXPECT_EQ(fresh->thumbnail(), screen->thumbnail());
        EXPECT_EQ(fresh->value(field), screen->value(field));
        fresh->releasePicture();
        fresh->drawInRect();
        EXPECT_TRUE(test::samePicture(pixelsOf(*screen), pixelsOf(*fresh)));
        // What is outside the picture leaves the bitmap as it is.
        const bool outside =
            field.property == "visible" || field.property == "label" || field.property.starts_with("screenSize");
        EXPECT_EQ(pixelsOf(*screen) == before, outside);
    }
}
