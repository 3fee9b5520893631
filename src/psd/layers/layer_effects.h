// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"
#include "psd/layers/bevel_effect.h"
#include "psd/layers/glow_effects.h"
#include "psd/layers/shadow_effects.h"
#include "psd/layers/solid_fill_effect.h"

#include <memory>
#include <utility>

namespace wallgrid {

/// The effect descriptions of a layer, each of which may be missing, and the "lrFX" block that they make in its record
/// (Adobe, "Photoshop File Formats", effects layer). Descriptions are shared; the block has what they say
/// when it is written.
class KPPSDLayerEffects {
public:
    const std::shared_ptr<KPPSDDropShadowEffectLayerInformation>& dropShadowEffectLayerInformation() const
    {
        return m_dropShadow;
    }
    void setDropShadowEffectLayerInformation(std::shared_ptr<KPPSDDropShadowEffectLayerInformation> dropShadow)
    {
        m_dropShadow = std::move(dropShadow);
    }
    const std::shared_ptr<KPPSDInnerShadowEffectLayerInformation>& innerShadowEffectLayerInformation() const
    {
        return m_innerShadow;
    }
    void setInnerShadowEffectLayerInformation(std::shared_ptr<KPPSDInnerShadowEffectLayerInformation> innerShadow)
    {
        m_innerShadow = std::move(innerShadow);
    }
    const std::shared_ptr<KPPSDOuterGlowEffectLayerInformation>& outerGlowEffectLayerInformation() const
    {
        return m_outerGlow;
    }
    void setOuterGlowEffectLayerInformation(std::shared_ptr<KPPSDOuterGlowEffectLayerInformation> outerGlow)
    {
        m_outerGlow = std::move(outerGlow);
    }
    const std::shared_ptr<KPPSDInnerGlowEffectLayerInformation>& innerGlowEffectLayerInformation() const
    {
        return m_innerGlow;
    }
    void setInnerGlowEffectLayerInformation(std::shared_ptr<KPPSDInnerGlowEffectLayerInformation> innerGlow)
    {
        m_innerGlow = std::move(innerGlow);
    }
    const std::shared_ptr<KPPSDBevelEffectLayerInformation>& bevelEffectLayerInformation() const { return m_bevel; }
    void setBevelEffectLayerInformation(std::shared_ptr<KPPSDBevelEffectLayerInformation> bevel)
    {
        m_bevel = std::move(bevel);
    }
    const std::shared_ptr<KPPSDSolidFillEffectLayerInformation>& solidFillEffectLayerInformation() const
    {
        return m_solidFill;
    }
    void setSolidFillEffectLayerInformation(std::shared_ptr<KPPSDSolidFillEffectLayerInformation> solidFill)
    {
        m_solidFill = std::move(solidFill);
    }

    /// Nothing when no effect is enabled; else all seven records, the missing effects with their defaults. Throws
    /// std::invalid_argument for a colour that is not RGB.
    void writeEffectsLayerOn(ByteBuffer& buffer) const;

    void writeEffectsLayerCommonStateOn(ByteBuffer& buffer) const;
    void writeEffectsLayerDropShadowOn(ByteBuffer& buffer) const;
    void writeEffectsLayerInnerShadowOn(ByteBuffer& buffer) const;
    void writeEffectsLayerOuterGlowOn(ByteBuffer& buffer) const;
    void writeEffectsLayerInnerGlowOn(ByteBuffer& buffer) const;
    void writeEffectsLayerBevelOn(ByteBuffer& buffer) const;
    void writeEffectsLayerSolidFillOn(ByteBuffer& buffer) const;

private:
    std::shared_ptr<KPPSDDropShadowEffectLayerInformation> m_dropShadow;
    std::shared_ptr<KPPSDInnerShadowEffectLayerInformation> m_innerShadow;
    std::shared_ptr<KPPSDOuterGlowEffectLayerInformation> m_outerGlow;
    std::shared_ptr<KPPSDInnerGlowEffectLayerInformation> m_innerGlow;
    std::shared_ptr<KPPSDBevelEffectLayerInformation> m_bevel;
    std::shared_ptr<KPPSDSolidFillEffectLayerInformation> m_solidFill;
};

} // namespace wallgrid
