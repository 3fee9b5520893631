// SPDX-License-Identifier: MIT
#include "graphics/toolkit.h"
#include "items/gx_screen.h"
#include "picture.h"

#include <gtest/gtest.h>

using namespace wallgrid;

namespace {

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

/// Each text is a box of two pixels.
struct BoxToolkit : Toolkit {
    struct Box : TextLine {
        PixelRect inkBounds() const override { return {0, -1, 2, 1}; }
        void rasterize(const PixelRect&, std::span<std::uint8_t> coverages) const override
        {
            std::ranges::fill(coverages, std::uint8_t(255));
        }
    };
    std::unique_ptr<TextLine> layOutText(std::string_view text, double) override
    {
        texts += std::string(text) + "|";
        return std::make_unique<Box>();
    }
    Expected<ImageRef> decodeImage(std::span<const std::uint8_t>) override { return failure("no images here"); }
    std::string texts;
};

} // namespace

TEST(GXScreen, DrawsPanelsAndFrames)
{
    const ScreenRef screen = makeScreen(2, 1, 4, 3);
    EXPECT_EQ(screen->circleBWidth(), 4);
    screen->setThumbnail(makeScreen(1, 1, 1, 1)->thumbnail()); // not its own
    expectDrawn(*screen, {"WWWWWWWW", "WRRWWRRW", "WWWWWWWW"});
    screen->setBoarderWidth(-3);
    expectDrawn(*screen, {"RRRRRRRR", "RRRRRRRR", "RRRRRRRR"});
    screen->setBoarderWidth(1);
    screen->setBoarderColor(nullptr); // leaves the colour in force
    expectDrawn(*screen, {"RRRRRRRR", "RRRRRRRR", "RRRRRRRR"});
}

TEST(GXScreen, TextsSayTheSizeAndThePlaceWithinAMargin)
{
    BoxToolkit toolkit;
    Toolkit::install(&toolkit);
    const ScreenRef screen = makeScreen(2, 1, 2, 6);
    screen->setBgEnable(false);
    screen->setBoarderEnable(false);
    screen->setScreenFontEnable(true);
    screen->setXYFontEnable(true);
    screen->setXYFontSize(2);
    screen->setXpoint(-7);
    screen->setCircleBWidth(1); // which is the margin
    expectDrawn(*screen, {"....", "....", ".WW.", "....", ".WW.", "...."});
    EXPECT_EQ(toolkit.texts, "4 x 6|xy -7 x 0|");
    Toolkit::install(nullptr);
}

TEST(GXScreen, AnEditIsToldAndShowsLikeAScreenThatWasNeverDrawnBefore)
{
    const ScreenRef screen = GXScreen::init();
    screen->setScreenFontEnable(true);
    screen->setXYFontEnable(true);
    screen->setCircleEnable(true);
    EXPECT_EQ(textOf(std::make_shared<GXScreen>()->captions().fields[0].text), u"Panel-H") << "of one read from a file";
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
