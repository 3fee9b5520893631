// SPDX-License-Identifier: MIT
#include "items/gx_item.h"

#include "archive/keyed_archiver.h"

#include <algorithm>
#include <limits>
#include <type_traits>

namespace wallgrid {

std::span<const GXItem::Field> GXItem::fields()
{
    static const Field table[] = {
        {"col", "col", &GXItem::m_col, true, true},
        {"bgEnable", "bgenable", &GXItem::m_bgEnable, true, true},
        {"BoarderEnable", "boarderenable", &GXItem::m_BoarderEnable, true, true},
        {"panelWidth", "panelwidth", &GXItem::m_panelWidth, true, true},
        {"panelHeight", "panelheight", &GXItem::m_panelHeight, true, true},
        {"row", "row", &GXItem::m_row, true, true},
        {"rectColor", "rectcolor", &GXItem::m_rectColor, true, true},
        {"visible", "visible", &GXItem::m_visible, true, false},
        {"screenSizeHeight", "screenheight", &GXItem::m_screenSizeHeight, false, false},
        {"screenSizeWidth", "screenwidth", &GXItem::m_screenSizeWidth, false, false},
        {"xpoint", "xpoint", &GXItem::m_xpoint, true, &GXItem::m_XYFontEnable},
        {"ypoint", "ypoint", &GXItem::m_ypoint, true, &GXItem::m_XYFontEnable},
        {"XYFontSize", "xyfontsize", &GXItem::m_XYFontSize, true, true},
        {"XYFontEnable", "xyenable", &GXItem::m_XYFontEnable, true, true},
        {"screenFontEnable", "fontenable", &GXItem::m_screenFontEnable, true, true},
        {"CircleEnable", "circleenable", &GXItem::m_CircleEnable, true, true},
        {"screenFontSize", "screenfontsize", &GXItem::m_screenFontSize, true, true},
        {"circleColor", "circlecolor", &GXItem::m_circleColor, true, true},
        {"boarderColor", "boardercolor", &GXItem::m_boarderColor, true, true},
        {"label", "label", &GXItem::m_label, false, false},
        {"boarderWidth", "boarderwidth", &GXItem::m_boarderWidth, true, true},
        {"circleBWidth", "circlebwidth", &GXItem::m_circleBWidth, true, true},
    };
    return table;
}

GXItem::FieldValue GXItem::value(const Field& field) const
{
    return std::visit([this](auto member) { return FieldValue(this->*member); }, field.member);
}

bool GXItem::hasValue(const Field& field, const FieldValue& value) const
{
    return std::visit(
        [&](auto member) { return this->*member == std::get<std::remove_cvref_t<decltype(this->*member)>>(value); },
        field.member);
}

void GXItem::setValue(const Field& field, const FieldValue& value)
{
    std::visit([&](auto member) { this->*member = std::get<std::remove_cvref_t<decltype(this->*member)>>(value); },
               field.member);
    didChangeValue(field.property);
}

bool GXItem::setPosition(PixelPoint point)
{
    const auto nearest = [](std::int64_t value) {
        using Limits = std::numeric_limits<std::int32_t>;
        return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
    };
    const std::int32_t x = nearest(point.x);
    const std::int32_t y = nearest(point.y);
    const bool across = m_xpoint != x;
    const bool down = m_ypoint != y;
    if (across)
        setXpoint(x);
    if (down)
        setYpoint(y);
    return across || down;
}

const GXItem::Captions& GXItem::captions() const
{
    const auto isEmpty = [](const Caption& caption) { return textOf(caption.text).empty(); };
    return std::all_of(m_captions.fields.begin(), m_captions.fields.end(), isEmpty) ? standardCaptions() : m_captions;
}

ItemRef GXItem::duplicate() const
{
    ItemRef duplicate = copy();
    if (m_thumbnail)
        duplicate->m_thumbnail = std::make_shared<Image>(*m_thumbnail);
    return duplicate;
}

void GXItem::encodeWithCoder(KeyedArchiver& coder) const
{
    for (const Field& field : fields()) {
        std::visit(
            [&](auto member) {
                using Value = std::remove_cvref_t<decltype(this->*member)>;
                if constexpr (std::is_same_v<Value, std::int32_t>)
                    coder.encodeInt(this->*member, field.archiveKey);
                else if constexpr (std::is_same_v<Value, bool>)
                    coder.encodeBool(this->*member, field.archiveKey);
                else
                    coder.encodeObject(this->*member, field.archiveKey);
            },
            field.member);
    }
}

void GXItem::decodeFields(KeyedDecoder& coder)
{
    for (const Field& field : fields()) {
        std::visit(
            [&](auto member) {
                auto& value = this->*member;
                using Value = std::remove_cvref_t<decltype(value)>;
                if constexpr (std::is_same_v<Value, std::int32_t>)
                    value = coder.decodeInt(field.archiveKey);
                else if constexpr (std::is_same_v<Value, bool>)
                    value = coder.decodeBool(field.archiveKey);
                else if constexpr (std::is_same_v<Value, ColorRef>)
                    value = coder.decodeColor(field.archiveKey);
                else
                    value = coder.decodeString(field.archiveKey);
            },
            field.member);
    }
}

void GXItem::copyFieldsTo(GXItem& copy) const
{
    for (const Field& field : fields())
        std::visit([&](auto member) { copy.*member = this->*member; }, field.member);
    copy.m_thumbnail = m_thumbnail;
}

} // namespace wallgrid
