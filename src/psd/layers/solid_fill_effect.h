// SPDX-License-Identifier: MIT
#pragma once

#include "platform/color.h"
#include "psd/blend_modes.h"
#include "psd/layers/effect_values.h"

#include <cstdint>
#include <string>
#include <utility>

namespace wallgrid {

/// One colour over the whole layer, the opacity in percent.
class KPPSDSolidFillEffectLayerInformation {
public:
    const std::string& blendMode() const { return m_blendMode; }
    void setBlendMode(std::string key) { m_blendMode = std::move(key); }
    const ColorRef& color() const { return m_color; }
    void setColor(ColorRef color) { m_color = std::move(color); }
    std::int64_t opacity() const { return m_opacity; }
    void setOpacity(std::int64_t percent) { m_opacity = effect::percent(percent); }
    std::int64_t opacity255() const { return effect::opacity255(m_opacity); }
    bool enabled() const { return m_enabled; }
    void setEnabled(bool enabled) { m_enabled = enabled; }

private:
    std::string m_blendMode{blend_mode::kNormal};
    ColorRef m_color = effect::transparentBlack();
    std::int64_t m_opacity = 100;
    bool m_enabled = false;
};

} // namespace wallgrid
