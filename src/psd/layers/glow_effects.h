// SPDX-License-Identifier: MIT
#pragma once

#include "psd/layers/effect_information.h"

#include <cstdint>

namespace wallgrid {

/// What the two glows have in common. The size is in pixels.
class KPPSDGlowEffectLayerInformation : public KPPSDEffectLayerInformation {
public:
    std::int64_t size() const { return m_size; }
    void setSize(std::int64_t size) { m_size = effect::size(size); }

private:
    std::int64_t m_size = 0;
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
