// SPDX-License-Identifier: MIT
#pragma once

#include "psd/layers/effect_information.h"

#include <cstdint>

namespace wallgrid {

/// What the two shadows have in common. Sizes and distances are in pixels, angles in degrees.
class KPPSDShadowEffectLayerInformation : public KPPSDEffectLayerInformation {
public:
    std::int64_t size() const { return m_size; }
    void setSize(std::int64_t size) { m_size = effect::size(size); }
    std::int64_t angle() const { return m_angle; }
    void setAngle(std::int64_t angle) { m_angle = effect::angle(angle); }
    std::int64_t distance() const { return m_distance; }
    void setDistance(std::int64_t distance) { m_distance = effect::distance(distance); }
    bool useGlobalLight() const { return m_useGlobalLight; }
    void setUseGlobalLight(bool use) { m_useGlobalLight = use; }

private:
    std::int64_t m_size = 0;
    std::int64_t m_angle = 0;
    std::int64_t m_distance = 0;
    bool m_useGlobalLight = false;
};

class KPPSDDropShadowEffectLayerInformation : public KPPSDShadowEffectLayerInformation {};
class KPPSDInnerShadowEffectLayerInformation : public KPPSDShadowEffectLayerInformation {};

} // namespace wallgrid
