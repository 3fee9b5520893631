// SPDX-License-Identifier: MIT
#include "app/new_items.h"

#include <utility>

namespace wallgrid {

StringRef numberedName(std::u16string prefix, std::int32_t number)
{
    const std::string digits = std::to_string(number);
    return makeString(prefix.append(digits.begin(), digits.end()));
}

ScreenRef makeDefaultScreen(StringRef label)
{
    return GXScreen::initWithrow(4, 4, 78, 78, Color::redColor(), Color::whiteColor(), Color::whiteColor(), 50, true,
                                 true, std::move(label), false, 0, 0);
}

Project makeLaunchProject(std::int32_t number)
{
    return {1080, 1920, {makeDefaultScreen(numberedName(u"Layer ", number))}};
}

ItemArray makePresets()
{
    const ColorRef red = Color::redColor();
    const ColorRef green = Color::greenColor();
    const ColorRef white = Color::whiteColor();
    return {
        GXScreen::initWithrow(10, 10, 192, 108, red, white, white, 50, false, true, makeString(u"GRID"), false, 0, 0),
        // 1620 rows: the middle 1080 cover the raster, 270 overhang at the top and at the bottom.
        GXScreen::initWithrow(3, 1, 1920, 540, green, green, white, 50, false, true, makeString(u"LINES"), false, 0,
                              -270),
        GXScreen::initWithrow(2, 2, 960, 540, red, red, white, 50, false, true, makeString(u"CROSS"), false, 0, 0),
        GXScreen::initWithrow(1, 1, 960, 540, red, white, white, 50, false, false, makeString(u"CIRCLE"), true, 480,
                              270),
    };
}

} // namespace wallgrid
