// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/color.h"
#include "psd/fields/blend_modes.h"
#include "psd/layers/effect_values.h"

#include <cstdint>
#include <string>
#include <utility>

namespace wallgrid {

/// The size in pixels, the angle in degrees, opacities in percent; style and direction as the format numbers them.
class KPPSDBevelEffectLayerInformation {
public:
    std::int64_t angle() const { return m_angle; }
    void setAngle(std::int64_t angle) { m_angle = effect::angle(angle); }
    std::int64_t size() const { return m_size; }
    void setSize(std::int64_t size) { m_size = effect::size(size); }
    const std::string& highlightBlendMode() const { return m_highlightBlendMode; }
    void setHighlightBlendMode(std::string key) { m_highlightBlendMode = std::move(key); }
    const std::string& shadowBlendMode() const { return m_shadowBlendMode; }
    void setShadowBlendMode(std::string key) { m_shadowBlendMode = std::move(key); }
    const ColorRef& highlightColor() const { return m_highlightColor; }
    void setHighlightColor(ColorRef color) { m_highlightColor = std::move(color); }
    const ColorRef& shadowColor() const { return m_shadowColor; }
    void setShadowColor(ColorRef color) { m_shadowColor = std::move(color); }
    std::int32_t style() const { return m_style; }
    void setStyle(std::int32_t style) { m_style = style; }
    std::int64_t highlightOpacity() const { return m_highlightOpacity; }
    void setHighlightOpacity(std::int64_t percent) { m_highlightOpacity = effect::percent(percent); }
    std::int64_t highlightOpacity255() const { return effect::opacity255(m_highlightOpacity); }
    std::int64_t shadowOpacity() const { return m_shadowOpacity; }
    void setShadowOpacity(std::int64_t percent) { m_shadowOpacity = effect::percent(percent); }
    std::int64_t shadowOpacity255() const { return effect::opacity255(m_shadowOpacity); }
    bool enabled() const { return m_enabled; }
    void setEnabled(bool enabled) { m_enabled = enabled; }
    bool useGlobalLight() const { return m_useGlobalLight; }
    void setUseGlobalLight(bool use) { m_useGlobalLight = use; }
    std::int32_t direction() const { return m_direction; }
    void setDirection(std::int32_t direction) { m_direction = direction; }

private:
    std::int64_t m_angle = 0;
    std::int64_t m_size = 0;
    std::string m_highlightBlendMode{blend_mode::kNormal};
    std::string m_shadowBlendMode{blend_mode::kNormal};
    ColorRef m_highlightColor = effect::transparentBlack();
    ColorRef m_shadowColor = effect::transparentBlack();
    std::int32_t m_style = 1;
    std::int64_t m_highlightOpacity = 100;
    std::int64_t m_shadowOpacity = 100;
    bool m_enabled = false;
    bool m_useGlobalLight = true;
    std::int32_t m_direction = 1;
};

} // namespace wallgrid
