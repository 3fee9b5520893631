// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/toolkit.h"

#include <QPainterPath>
#include <string_view>

namespace wallgrid {

/// A line of text as filled outlines, unhinted, so that a size that no font has hints for is as good as any other.
/// The baseline lies on a whole pixel.
class QtTextLine final : public TextLine {
public:
    QtTextLine(std::string_view text, double fontSize);

    PixelRect inkBounds() const override;
    void rasterize(const PixelRect& area, std::span<std::uint8_t> coverage) const override;

private:
    QPainterPath m_outline; // at the reference size, y downwards from the baseline
    double m_scale;
    double m_descent; // from the line box's lower edge up to the baseline, whole pixels
};

} // namespace wallgrid
