// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/color.h"
#include "psd/fields/blend_modes.h"
#include "psd/layers/effect_values.h"

#include <cstdint>
#include <string>
#include <utility>

namespace wallgrid {

/// What the effects of one colour have in common. The opacity is in percent.
class KPPSDEffectLayerInformation {
public:
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
    ColorRef m_color = effect::transparentBlack();
    std::string m_blendMode{blend_mode::kNormal};
    bool m_enabled = false;
    std::int64_t m_opacity = 100;
};

} // namespace wallgrid
