// SPDX-License-Identifier: MIT
#include "items/gx_screen.h"

#include <utility>

namespace wallgrid {

const GXItem::Captions& GXScreen::standardCaptions() const
{
    static const Captions captions{{{{makeString(u"Panel-H")},
                                     {makeString(u"Panel-V")},
                                     {makeString(u"COLS")},
                                     {makeString(u"ROWS")},
                                     {makeString(u"H-Start")},
                                     {makeString(u"V-Start")},
                                     {makeString(u"XY Label Size")},
                                     {makeString(u"Label Screen Size")}}},
                                   false};
    return captions;
}

ScreenRef GXScreen::init()
{
    auto screen = std::make_shared<GXScreen>();
    screen->m_visible = true;
    screen->m_row = 5;
    screen->m_col = 5;
    screen->m_panelWidth = 48;
    screen->m_panelHeight = 48;
    screen->m_rectColor = Color::redColor();
    screen->m_boarderColor = Color::whiteColor();
    screen->m_circleColor = Color::whiteColor();
    screen->m_XYFontSize = 50;
    screen->m_screenFontSize = 50;
    screen->m_bgEnable = true;
    screen->m_BoarderEnable = true;
    screen->m_boarderWidth = 1;
    screen->m_circleBWidth = 4;
    screen->m_PositionArray = {u"TOP LEFT", u"TOP RIGHT", u"CENTER", u"BOTTOM LEFT", u"BOTTOM RIGHT"};
    screen->m_captions = screen->standardCaptions();
    screen->drawInRect();
    return screen;
}

ScreenRef GXScreen::initWithrow(std::int32_t row, std::int32_t col, std::int32_t panelWidth, std::int32_t panelHeight,
                                ColorRef rectColor, ColorRef boarderColor, ColorRef circleColor,
                                std::int32_t xyFontSize, bool bgEnable, bool boarderEnable, StringRef label,
                                bool circleEnable, std::int32_t hpos, std::int32_t vpos)
{
    auto screen = std::make_shared<GXScreen>();
    screen->m_row = row;
    screen->m_col = col;
    screen->m_panelWidth = panelWidth;
    screen->m_panelHeight = panelHeight;
    screen->m_rectColor = std::move(rectColor);
    screen->m_boarderColor = std::move(boarderColor);
    screen->m_circleColor = std::move(circleColor);
    screen->m_XYFontSize = xyFontSize;
    screen->m_bgEnable = bgEnable;
    screen->m_BoarderEnable = boarderEnable;
    screen->m_label = std::move(label);
    screen->m_CircleEnable = circleEnable;
    screen->m_xpoint = hpos;
    screen->m_ypoint = vpos;
    screen->m_visible = true;
    screen->m_boarderWidth = 1;
    screen->m_circleBWidth = 4;
    screen->m_captions = screen->standardCaptions();
    screen->drawInRect();
    return screen;
}

Expected<ScreenRef> GXScreen::initWithCoder(KeyedDecoder& coder)
{
    auto screen = std::make_shared<GXScreen>();
    screen->decodeFields(coder);
    if (coder.error())
        return tl::unexpected(*coder.error());
    screen->drawInRect();
    return screen;
}

void GXScreen::releasePicture()
{
    m_offscreenRep = nullptr;
    m_thumbnail = nullptr;
}

ItemRef GXScreen::copy() const
{
    // From init, so that a screen read from a file gets its captions and anchor names back.
    auto copy = init();
    copyFieldsTo(*copy);
    return copy;
}

} // namespace wallgrid
