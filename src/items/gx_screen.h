// SPDX-License-Identifier: MIT
#pragma once

#include "base/error.h"
#include "graphics/bitmap.h"
#include "items/gx_item.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace wallgrid {

class GXScreen;
class GraphicsContext;
using ScreenRef = std::shared_ptr<GXScreen>;

/// One LED wall on the output raster: a grid of `col` by `row` identical panels whose top-left corner sits at
/// (`xpoint`, `ypoint`). It renders itself into a bitmap of exactly its own pixel size; each render makes a new
/// thumbnail, and a new bitmap unless it would look the same, so a picture handed out before keeps its pixels.
class GXScreen final : public GXItem {
public:
    /// The default screen: 5 × 5 red panels of 48 × 48 with white frames, rendered.
    static ScreenRef init();
    static ScreenRef initWithrow(std::int32_t row, std::int32_t col, std::int32_t panelWidth, std::int32_t panelHeight,
                                 ColorRef rectColor, ColorRef boarderColor, ColorRef circleColor,
                                 std::int32_t xyFontSize, bool bgEnable, bool boarderEnable, StringRef label,
                                 bool circleEnable, std::int32_t hpos, std::int32_t vpos);
    /// A screen from its archived record, rendered; it has no captions and no anchor names.
    static Expected<ScreenRef> initWithCoder(KeyedDecoder& coder);

    /// Sets the two sizes, then draws panels, size text, position text and circle, in this order. A size of 0 or less,
    /// or memory that is not to be had, leaves a thumbnail of that size that shows nothing.
    void drawInRect() override;
    void releasePicture() override;
    ItemRef copy() const override;

    std::string_view archivedClassName() const override { return "GXScreen"; }
    const Captions& standardCaptions() const override;

    /// The names of the five anchors that the interface offers; the screen itself never reads them.
    GX_PROPERTY(std::vector<std::u16string>, PositionArray, PositionArray)

private:
    /// All that a picture of the screen depends on.
    std::vector<FieldValue> look() const;
    BitmapRef drawn() const;
    void drawPanels(GraphicsContext& context, std::int64_t columns, std::int64_t rows) const;
    void drawTexts(GraphicsContext& context) const;
    void drawCircle(GraphicsContext& context) const;

    BitmapRef m_offscreenRep;
    std::vector<FieldValue> m_drawnLook; ///< of m_offscreenRep
};

} // namespace wallgrid
