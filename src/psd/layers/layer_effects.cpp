// SPDX-License-Identifier: MIT
#include "psd/layers/layer_effects.h"

#include "psd/fields/append_value.h"
#include "psd/fields/record_fields.h"

#include <string_view>

namespace wallgrid {

namespace {

constexpr std::int64_t kEffectVersion = 2;
constexpr std::int32_t kColorLength = 10;

void startRecord(ByteBuffer& buffer, std::string_view key, std::int64_t size, std::int64_t version)
{
    appendSignedKey(buffer, key);
    kpAppendValue(buffer, size, 4);
    kpAppendValue(buffer, version, 4);
}

/// The description, or one with the defaults when there is none.
template <class Effect>
Effect described(const std::shared_ptr<Effect>& effect)
{
    return effect ? *effect : Effect();
}

void writeShadow(ByteBuffer& buffer, std::string_view key, const KPPSDShadowEffectLayerInformation& shadow)
{
    startRecord(buffer, key, 51, kEffectVersion);
    kpAppendValue(buffer, shadow.size(), 2);
    kpAppendValue(buffer, 0, 4);
    kpAppendValue(buffer, shadow.angle(), 4);
    kpAppendValue(buffer, shadow.distance(), 4);
    kpAppendValue(buffer, 0, 2);
    kpAppendCGColorRef(buffer, shadow.color(), kColorLength);
    appendBlendMode(buffer, shadow.blendMode());
    kpAppendValue(buffer, shadow.enabled(), 1);
    kpAppendValue(buffer, shadow.useGlobalLight(), 1);
    kpAppendValue(buffer, shadow.opacity255(), 1);
    kpAppendCGColorRef(buffer, shadow.color(), kColorLength);
}

/// Up to the opacity; the inner glow has one more field then, and both end with the colour again.
void writeGlow(ByteBuffer& buffer, std::string_view key, std::int64_t size, const KPPSDGlowEffectLayerInformation& glow)
{
    startRecord(buffer, key, size, kEffectVersion);
    kpAppendValue(buffer, glow.size(), 2);
    kpAppendValue(buffer, 0, 4);
    kpAppendValue(buffer, 0, 2);
    kpAppendCGColorRef(buffer, glow.color(), kColorLength);
    appendBlendMode(buffer, glow.blendMode());
    kpAppendValue(buffer, glow.enabled(), 1);
    kpAppendValue(buffer, glow.opacity255(), 1);
}

} // namespace

void KPPSDLayerEffects::writeEffectsLayerOn(ByteBuffer& buffer) const
{
    const auto enabled = [](const auto& effect) { return effect && effect->enabled(); };
    if (!enabled(m_dropShadow) && !enabled(m_innerShadow) && !enabled(m_outerGlow) && !enabled(m_innerGlow) &&
        !enabled(m_bevel) && !enabled(m_solidFill))
        return;
    ByteBuffer body;
    kpAppendValue(body, 0, 2); // version
    kpAppendValue(body, 7, 2); // records
    writeEffectsLayerCommonStateOn(body);
    writeEffectsLayerDropShadowOn(body);
    writeEffectsLayerInnerShadowOn(body);
    writeEffectsLayerOuterGlowOn(body);
    writeEffectsLayerInnerGlowOn(body);
    writeEffectsLayerBevelOn(body);
    writeEffectsLayerSolidFillOn(body);
    // The records above are 394 bytes together, so the block needs no byte to become even.
    appendSignedKey(buffer, "lrFX");
    kpAppendValue(buffer, static_cast<std::int64_t>(body.size()), 4);
    append(buffer, body);
}

void KPPSDLayerEffects::writeEffectsLayerCommonStateOn(ByteBuffer& buffer) const
{
    startRecord(buffer, "cmnS", 7, 0);
    kpAppendValue(buffer, 1, 1); // visible
    kpAppendValue(buffer, 0, 2);
}

void KPPSDLayerEffects::writeEffectsLayerDropShadowOn(ByteBuffer& buffer) const
{
    writeShadow(buffer, "dsdw", described(m_dropShadow));
}

void KPPSDLayerEffects::writeEffectsLayerInnerShadowOn(ByteBuffer& buffer) const
{
    writeShadow(buffer, "isdw", described(m_innerShadow));
}

void KPPSDLayerEffects::writeEffectsLayerOuterGlowOn(ByteBuffer& buffer) const
{
    const auto glow = described(m_outerGlow);
    writeGlow(buffer, "oglw", 42, glow);
    kpAppendCGColorRef(buffer, glow.color(), kColorLength);
}

void KPPSDLayerEffects::writeEffectsLayerInnerGlowOn(ByteBuffer& buffer) const
{
    const auto glow = described(m_innerGlow);
    writeGlow(buffer, "iglw", 43, glow);
    kpAppendValue(buffer, glow.source(), 1);
    kpAppendCGColorRef(buffer, glow.color(), kColorLength);
}

void KPPSDLayerEffects::writeEffectsLayerBevelOn(ByteBuffer& buffer) const
{
    const auto bevel = described(m_bevel);
    startRecord(buffer, "bevl", 78, kEffectVersion);
    kpAppendValue(buffer, bevel.angle(), 2);
    kpAppendValue(buffer, 1, 4);
    kpAppendValue(buffer, bevel.size(), 4);
    kpAppendValue(buffer, 0, 2);
    appendBlendMode(buffer, bevel.highlightBlendMode());
    appendBlendMode(buffer, bevel.shadowBlendMode());
    kpAppendCGColorRef(buffer, bevel.highlightColor(), kColorLength);
    kpAppendCGColorRef(buffer, bevel.shadowColor(), kColorLength);
    kpAppendValue(buffer, bevel.style(), 1);
    kpAppendValue(buffer, bevel.highlightOpacity255(), 1);
    kpAppendValue(buffer, bevel.shadowOpacity255(), 1);
    kpAppendValue(buffer, bevel.enabled(), 1);
    kpAppendValue(buffer, bevel.useGlobalLight(), 1);
    kpAppendValue(buffer, bevel.direction(), 1);
    kpAppendCGColorRef(buffer, bevel.highlightColor(), kColorLength);
    kpAppendCGColorRef(buffer, bevel.shadowColor(), kColorLength);
}

void KPPSDLayerEffects::writeEffectsLayerSolidFillOn(ByteBuffer& buffer) const
{
    const auto fill = described(m_solidFill);
    startRecord(buffer, "sofi", 34, kEffectVersion);
    appendBlendMode(buffer, fill.blendMode());
    kpAppendCGColorRef(buffer, fill.color(), kColorLength);
    kpAppendValue(buffer, fill.opacity255(), 1);
    kpAppendValue(buffer, fill.enabled(), 1);
    kpAppendCGColorRef(buffer, fill.color(), kColorLength);
}

} // namespace wallgrid
