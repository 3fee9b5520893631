// SPDX-License-Identifier: MIT
#include "hex.h"
#include "psd/layers/layer_effects.h"

#include <gtest/gtest.h>

using namespace wallgrid;
using test::written;

namespace {

std::string block(const KPPSDLayerEffects& effects)
{
    return written([&](ByteBuffer& b) { effects.writeEffectsLayerOn(b); });
}

} // namespace

TEST(Effects, EveryValueHasItsField)
{
    const auto values = [](auto effect) {
        effect->setSize(0x11);
        effect->setColor(Color::deviceRGB(1, 0.5, 0.2));
        effect->setBlendMode("mul ");
        effect->setEnabled(true);
        effect->setOpacity(50);
        return effect;
    };
    const auto shadow = values(std::make_shared<KPPSDInnerShadowEffectLayerInformation>());
    shadow->setAngle(-400);
    shadow->setDistance(40000);
    shadow->setUseGlobalLight(true);
    const auto glow = values(std::make_shared<KPPSDInnerGlowEffectLayerInformation>());
    glow->setSource(0x102);
    glow->setSize(300);
    const auto bevel = std::make_shared<KPPSDBevelEffectLayerInformation>();
    bevel->setAngle(-30);
    bevel->setSize(0x11);
    bevel->setHighlightBlendMode("mul ");
    bevel->setHighlightColor(Color::deviceRGB(1, 0.5, 0.2));
    bevel->setStyle(3);
    bevel->setHighlightOpacity(50);
    bevel->setShadowOpacity(20);
    bevel->setUseGlobalLight(false);
    bevel->setDirection(2);
    const auto fill = std::make_shared<KPPSDSolidFillEffectLayerInformation>();
    fill->setEnabled(true);
    fill->setColor(Color::deviceRGB(1, 0.5, 0.2));
    fill->setBlendMode("too long");

    KPPSDLayerEffects effects;
    effects.setBevelEffectLayerInformation(bevel);
    EXPECT_EQ(block(effects), "") << "no effect is enabled";
    bevel->setEnabled(true);
    EXPECT_NE(block(effects), "") << "one is";
    effects.setInnerShadowEffectLayerInformation(shadow);
    effects.setInnerGlowEffectLayerInformation(glow);
    effects.setSolidFillEffectLayerInformation(fill);
    const std::string key = "38 42 49 4D ", multiply = key + "6D 75 6C 20 ", normal = key + "6E 6F 72 6D ";
    const std::string black = "00 00 00 00 00 00 00 00 00 00 ", orange = "00 00 FF FF 7F FF 33 32 00 00 ";
    // The drop shadow and the outer glow are missing: sizes, angles and distances of 0, opacities of 254.
    EXPECT_EQ(block(effects) + " ",
              key + "6C 72 46 58 00 00 01 8A 00 00 00 07 " + // "lrFX"
                  key + "63 6D 6E 53 00 00 00 07 00 00 00 00 01 00 00 " + key +
                  "64 73 64 77 00 00 00 33 00 00 00 02 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 " + black +
                  normal + "00 00 FE " + black + key +
                  "69 73 64 77 00 00 00 33 00 00 00 02 00 11 00 00 00 00 FF FF FE 98 00 00 75 30 00 00 " + orange +
                  multiply + "01 01 7F " + orange + key +
                  "6F 67 6C 77 00 00 00 2A 00 00 00 02 00 00 00 00 00 00 00 00 " + black + normal + "00 FE " + black +
                  key + "69 67 6C 77 00 00 00 2B 00 00 00 02 00 FA 00 00 00 00 00 00 " + orange + multiply +
                  "01 7F 02 " + orange + key +
                  "62 65 76 6C 00 00 00 4E 00 00 00 02 FF E2 00 00 00 01 00 00 00 11 00 00 " + multiply + normal +
                  orange + black + "03 7F 33 01 00 02 " + orange + black + key +
                  "73 6F 66 69 00 00 00 22 00 00 00 02 " + normal + orange + "FE 01 " + orange);
}
