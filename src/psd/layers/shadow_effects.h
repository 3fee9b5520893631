// SPDX-License-Identifier: MIT
#pragma once

#include "platform/color.h"
#include "psd/blend_modes.h"
#include "psd/layers/effect_values.h"

#include <cstdint>
#include <string>
#include <utility>

namespace wallgrid {

/// What the two shadows have in common. Sizes and distances in pixels, angles in degrees, the opacity in percent.
class KPPSDShadowEffectLayerInformation {
public:
    std::int64_t size() const { return m_size; }
    void setSize(std::int64_t size) { m_size = effect::size(size); }
    std::int64_t angle() const { return m_angle; }
    void setAngle(std::int64_t angle) { m_angle = effect::angle(angle); }
    std::int64_t distance() const { return m_distance; }
    void setDistance(std::int64_t distance) { m_distance = effect::distance(distance); }
    const ColorRef& color() const { return m_color; }
    void setColor(ColorRef color) { m_color = std::move(color); }
    const std::string& blendMode() const { return m_blendMode; }
    void setBlendMode(std::string key) { m_blendMode = std::move(key); }
    bool enabled() const { return m_enabled; }
    void setEnabled(bool enabled) { m_enabled = enabled; }
    bool useGlobalLight() const { return m_useGlobalLight; }
    void setUseGlobalLight(bool use) { m_useGlobalLight = use; }
    std::int64_t opacity() const { return m_opacity; }
    void setOpacity(std::int64_t percent) { m_opacity = effect::percent(percent); }
    std::int64_t opacity255() const { return effect::opacity255(m_opacity); }

private:
    std::int64_t m_size = 0;
    std::int64_t m_angle = 0;
    std::int64_t m_distance = 0;
    ColorRef m_color = effect::transparentBlack();
    std::string m_blendMode{blend_mode::kNormal};
    bool m_enabled = false;
    bool m_useGlobalLight = false;
    std::int64_t m_opacity = 100;
};

class KPPSDDropShadowEffectLayerInformation : public KPPSDShadowEffectLayerInformation {};
class KPPSDInnerShadowEffectLayerInformation : public KPPSDShadowEffectLayerInformation {};

} // namespace wallgrid
