// SPDX-License-Identifier: MIT
#pragma once

#include "platform/color.h"
#include "psd/blend_modes.h"
#include "psd/layers/effect_values.h"

#include <cstdint>
#include <string>
#include <utility>

namespace wallgrid {

/// What the two glows have in common. The size in pixels, the opacity in percent.
class KPPSDGlowEffectLayerInformation {
public:
    std::int64_t size() const { return m_size; }
    void setSize(std::int64_t size) { m_size = effect::size(size); }
    const ColorRef& color() const { return m_color; }
    void setColor(ColorRef color) { m_color = std::move(color); }
    const std::string& blendMode() const { return m_blendMode; }
    void setBlendMode(std::string key) { m_blendMode = std::move(key); }
    bool enabled() const { return m_enabled; }
    void setEnabled(bool enabled) { m_enabled = enabled; }
    std::int64_t opacity() const { return m_opacity; }
    void setOpacity(std::int64_t percent) { m_opacity = effect::percent(percent); }
    std::int64_t opacity255() const { return effect::opacity255(m_opacity); }

private:
    std::int64_t m_size = 0;
    ColorRef m_color = effect::transparentBlack();
    std::string m_blendMode{blend_mode::kNormal};
    bool m_enabled = false;
    std::int64_t m_opacity = 100;
};

class KPPSDOuterGlowEffectLayerInformation : public KPPSDGlowEffectLayerInformation {};

class KPPSDInnerGlowEffectLayerInformation : public KPPSDGlowEffectLayerInformation {
public:
    /// The format's "invert": 0 for a glow from the edge.
    std::int32_t source() const { return m_source; }
    void setSource(std::int32_t source) { m_source = source; }

private:
    std::int32_t m_source = 0;
};

} // namespace wallgrid
