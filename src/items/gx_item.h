// SPDX-License-Identifier: MIT
#pragma once

#include "archive/keyed_coding.h"
#include "archive/keyed_decoder.h"
#include "base/key_value_observing.h"
#include "base/string_ref.h"
#include "graphics/color.h"
#include "graphics/geometry.h"
#include "graphics/image.h"

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace wallgrid {

/// A property: the getter reads the field; the setter stores it and then tells observers the property's name. Setting
/// a property never renders.
#define GX_PROPERTY(type, name, Name)                                                                                  \
public:                                                                                                                \
    type name() const                                                                                                  \
    {                                                                                                                  \
        return m_##name;                                                                                               \
    }                                                                                                                  \
    void set##Name(type value)                                                                                         \
    {                                                                                                                  \
        m_##name = std::move(value);                                                                                   \
        didChangeValue(#name);                                                                                         \
    }                                                                                                                  \
                                                                                                                       \
protected:                                                                                                             \
    type m_##name{};

/// The inspector's caption of one of the eight numeric fields, and whether that field is hidden.
#define GX_CAPTION(n)                                                                                                  \
public:                                                                                                                \
    StringRef label##n() const                                                                                         \
    {                                                                                                                  \
        return numericField(n).text;                                                                                   \
    }                                                                                                                  \
    void setLabel##n(StringRef value)                                                                                  \
    {                                                                                                                  \
        numericField(n).text = std::move(value);                                                                       \
        didChangeValue("label" #n);                                                                                    \
    }                                                                                                                  \
    bool label##n##Hidden() const                                                                                      \
    {                                                                                                                  \
        return numericField(n).hidden;                                                                                 \
    }                                                                                                                  \
    void setLabel##n##Hidden(bool value)                                                                               \
    {                                                                                                                  \
        numericField(n).hidden = value;                                                                                \
        didChangeValue("label" #n "Hidden");                                                                           \
    }

class GXItem;
using ItemRef = std::shared_ptr<GXItem>;
using ItemArray = std::vector<ItemRef>;

/// What the two kinds of layout item, screen and still, have in common: their properties, the one table that names
/// those properties for archiving, copying and observation, and the operations the controller uses. Lengths are
/// pixels of the output raster; positions count from its top-left corner, y downwards.
class GXItem : public KeyValueObservable, public Archivable {
public:
    static constexpr std::size_t kCaptionCount = 8;

    struct Caption {
        StringRef text;
        bool hidden = false;
    };
    /// What the inspector shows of an item: its eight numeric fields, and its right-hand group of controls or not.
    struct Captions {
        std::array<Caption, kCaptionCount> fields;
        bool groupRightHidden = false;
    };

    /// One archived property. The table is in the order of the archive's keys.
    struct Field {
        std::string_view property;   ///< as observers are told it
        std::string_view archiveKey; ///< lower case, and not always the property's name
        std::variant<std::int32_t GXItem::*, bool GXItem::*, ColorRef GXItem::*, StringRef GXItem::*> member;
        bool observed; ///< the controller renders and composes again when it changes
        /// Whether the picture of a screen depends on it: never, always, or while a switch is on.
        std::variant<bool, bool GXItem::*> drawn;
    };
    static std::span<const Field> fields();

    /// The value of an archived property, and its setter: it stores the value and then tells observers.
    using FieldValue = std::variant<std::int32_t, bool, ColorRef, StringRef>;
    FieldValue value(const Field& field) const;
    bool hasValue(const Field& field, const FieldValue& value) const;
    void setValue(const Field& field, const FieldValue& value);

    /// Renders again from the present properties. Tells no observer, so an observer may call it.
    virtual void drawInRect() = 0;
    /// Lets go of a picture that drawInRect() can make again, in an item that is kept but not shown.
    virtual void releasePicture() {}
    /// The pixels of the output that the item covers, as of its last render.
    PixelRect frame() const { return {m_xpoint, m_ypoint, m_screenSizeWidth, m_screenSizeHeight}; }
    /// Sets what changes of the position, to the nearest that 32 bits can hold. Whether anything did.
    bool setPosition(PixelPoint point);
    /// What is composed and exported: the thumbnail, at the size of this item's own last render.
    virtual ImageRef picture() const { return m_thumbnail; }
    /// A new item of the same class that shares this one's colours, texts and images; not rendered.
    virtual ItemRef copy() const = 0;
    /// A copy with an image of its own: rendering the one says nothing about the other's.
    ItemRef duplicate() const;

    void encodeWithCoder(KeyedArchiver& coder) const override;

    /// The item's own captions, or those of its kind for an item without any (one that was read from a file).
    const Captions& captions() const;
    /// The captions that a new item of this kind has.
    virtual const Captions& standardCaptions() const = 0;

    // clang-format off
    GX_PROPERTY(std::int32_t, panelWidth, PanelWidth)             ///< one panel; a still: its display width
    GX_PROPERTY(std::int32_t, panelHeight, PanelHeight)
    GX_PROPERTY(std::int32_t, col, Col)                           ///< panel columns
    GX_PROPERTY(std::int32_t, row, Row)                           ///< panel rows
    GX_PROPERTY(ColorRef, rectColor, RectColor)                   ///< panel fill
    GX_PROPERTY(ColorRef, boarderColor, BoarderColor)             ///< panel frame
    GX_PROPERTY(bool, visible, Visible)
    GX_PROPERTY(ImageRef, thumbnail, Thumbnail)                   ///< the picture that is composed
    GX_PROPERTY(std::int32_t, screenSizeHeight, ScreenSizeHeight) ///< the whole item, as of the last render
    GX_PROPERTY(std::int32_t, screenSizeWidth, ScreenSizeWidth)
    GX_PROPERTY(std::int32_t, xpoint, Xpoint)                     ///< from the raster's left edge, may be negative
    GX_PROPERTY(std::int32_t, ypoint, Ypoint)                     ///< from the raster's top edge down
    GX_PROPERTY(std::int32_t, XYFontSize, XYFontSize)
    GX_PROPERTY(bool, XYFontEnable, XYFontEnable)                 ///< the position text is drawn
    GX_PROPERTY(std::int32_t, screenFontSize, ScreenFontSize)
    GX_PROPERTY(bool, screenFontEnable, ScreenFontEnable)         ///< the size text is drawn
    GX_PROPERTY(bool, BoarderEnable, BoarderEnable)
    GX_PROPERTY(bool, CircleEnable, CircleEnable)
    GX_PROPERTY(bool, bgEnable, BgEnable)                         ///< panels are filled, or left transparent
    GX_PROPERTY(ColorRef, circleColor, CircleColor)
    GX_PROPERTY(StringRef, label, Label)                          ///< the item's name; never drawn
    GX_PROPERTY(std::int32_t, boarderWidth, BoarderWidth)
    GX_PROPERTY(std::int32_t, circleBWidth, CircleBWidth)         ///< stroke width, and the texts' margin
    GX_CAPTION(1)
    GX_CAPTION(2)
    GX_CAPTION(3)
    GX_CAPTION(4)
    GX_CAPTION(5)
    GX_CAPTION(6)
    GX_CAPTION(7)
    GX_CAPTION(8)
    // clang-format on

    bool labelGroupRightHidden() const { return m_captions.groupRightHidden; }
    void setLabelGroupRightHidden(bool hidden)
    {
        m_captions.groupRightHidden = hidden;
        didChangeValue("labelGroupRightHidden");
    }

protected:
    /// Reads the archived properties of a record into this item; the decoder keeps the first error.
    void decodeFields(KeyedDecoder& coder);
    /// Copies every archived property and the thumbnail.
    void copyFieldsTo(GXItem& copy) const;

    Caption& numericField(std::size_t number) { return m_captions.fields[number - 1]; }
    const Caption& numericField(std::size_t number) const { return m_captions.fields[number - 1]; }

    Captions m_captions;
};

} // namespace wallgrid
