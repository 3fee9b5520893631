// SPDX-License-Identifier: MIT
#include "graphics/graphics_context.h"
#include "items/gx_screen.h"

#include <algorithm>
#include <string>

namespace wallgrid {

namespace {

/// Two's complement, as the sizes of every file that overflowed were computed.
std::int32_t wrappedProduct(std::int32_t a, std::int32_t b)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

/// How many of `count` panels begin inside `length` pixels; fewer than `count` only when the product wrapped. Unless
/// there are none, they cover the length.
std::int64_t panelsWithin(std::int64_t length, std::int64_t panel, std::int64_t count)
{
    return panel <= 0 ? 0 : std::min(count, (length + panel - 1) / panel);
}

} // namespace

void GXScreen::drawInRect()
{
    m_screenSizeHeight = wrappedProduct(m_row, m_panelHeight);
    m_screenSizeWidth = wrappedProduct(m_col, m_panelWidth);
    std::vector<FieldValue> now = look();
    if (m_offscreenRep && m_thumbnail && m_thumbnail->firstRepresentation() == m_offscreenRep && now == m_drawnLook) {
        m_thumbnail = std::make_shared<Image>(*m_thumbnail);
        return;
    }
    // The old picture goes first: unless somebody else holds it, its memory serves the new one.
    m_offscreenRep = nullptr;
    m_thumbnail = nullptr;
    m_offscreenRep = drawn();
    m_drawnLook = std::move(now);
    m_thumbnail =
        std::make_shared<Image>(Size{static_cast<double>(m_screenSizeWidth), static_cast<double>(m_screenSizeHeight)});
    m_thumbnail->addRepresentation(m_offscreenRep);
}

std::vector<GXItem::FieldValue> GXScreen::look() const
{
    std::vector<FieldValue> look;
    look.reserve(fields().size());
    for (const Field& field : fields()) {
        const auto* alone = std::get_if<bool>(&field.drawn);
        const bool isDrawn = alone ? *alone : this->*std::get<bool GXItem::*>(field.drawn);
        look.push_back(isDrawn ? value(field) : FieldValue());
    }
    return look;
}

/// Empty when there is nothing to draw, or no memory.
BitmapRef GXScreen::drawn() const
{
    const std::int64_t columns = panelsWithin(m_screenSizeWidth, m_panelWidth, m_col);
    const std::int64_t rows = panelsWithin(m_screenSizeHeight, m_panelHeight, m_row);
    const bool hasPanels = columns > 0 && rows > 0; // and they paint every pixel
    BitmapRef bitmap = Bitmap::create(m_screenSizeWidth, m_screenSizeHeight,
                                      hasPanels ? Bitmap::Contents::Undefined : Bitmap::Contents::Cleared);
    if (bitmap) {
        GraphicsContext context(bitmap);
        if (hasPanels)
            drawPanels(context, columns, rows);
        drawTexts(context);
        drawCircle(context);
    }
    return bitmap;
}

void GXScreen::drawPanels(GraphicsContext& context, std::int64_t columns, std::int64_t rows) const
{
    const PixelRect panel{0, std::int64_t{m_screenSizeHeight} - m_panelHeight, m_panelWidth, m_panelHeight};
    if (m_bgEnable) {
        context.setColor(m_rectColor);
        context.fillRect(panel);
    } else {
        context.clearRect(panel);
    }
    if (m_BoarderEnable) {
        context.setColor(m_boarderColor);
        context.frameRect(panel, m_boarderWidth);
    }
    context.tile(m_panelWidth, m_panelHeight, columns, rows);
}

void GXScreen::drawTexts(GraphicsContext& context) const
{
    const std::int64_t margin = m_circleBWidth;
    if (m_screenFontEnable) {
        const std::string text = std::to_string(m_screenSizeWidth) + " x " + std::to_string(m_screenSizeHeight);
        context.drawText(text, {margin, m_screenSizeHeight - margin}, m_screenFontSize, Color::whiteColor());
    }
    if (m_XYFontEnable) {
        const std::string text = "xy " + std::to_string(m_xpoint) + " x " + std::to_string(m_ypoint);
        context.drawText(text, {margin, margin + m_XYFontSize}, m_XYFontSize, Color::whiteColor());
    }
}

void GXScreen::drawCircle(GraphicsContext& context) const
{
    if (!m_CircleEnable)
        return;
    const std::int64_t width = m_screenSizeWidth;
    const std::int64_t height = m_screenSizeHeight;
    const std::int64_t line = m_circleBWidth;
    const std::int64_t side = std::min(width, height);
    // Each half is truncated on its own, from the lower left, so the circle sits where older files expect it.
    const std::int64_t left = width / 2 - side / 2 + line / 2;
    const std::int64_t below = height / 2 - side / 2 + line / 2;
    context.setColor(m_circleColor);
    context.strokeCircle({left, height - below - (side - line), side - line, side - line}, line);
}

} // namespace wallgrid
