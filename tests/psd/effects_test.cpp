// SPDX-License-Identifier: MIT
#include "psd/hex.h"
#include "psd/layers/layer_effects.h"

#include <gtest/gtest.h>
#include <stdexcept>

using namespace wallgrid;
using test::written;

namespace {

std::string block(const KPPSDLayerEffects& effects)
{
    return written([&](ByteBuffer& b) { effects.writeEffectsLayerOn(b); });
}

const std::string kNorm = "38 42 49 4D 6E 6F 72 6D "; // "8BIM" "norm"
const std::string kBlack = "00 00 00 00 00 00 00 00 00 00 ";
const std::string kRed = "00 00 FF FF 00 00 00 00 00 00 ";

} // namespace

TEST(Effects, SettersKeepTheirBounds)
{
    KPPSDInnerShadowEffectLayerInformation shadow;
    EXPECT_EQ(shadow.opacity255(), 254);
    const struct {
        std::int64_t given, size, angle, distance, opacity, opacity255;
    } cases[] = {
        {40000, 250, 360, 30000, 100, 254}, {-400, 0, -360, 0, 0, 0}, {50, 50, 50, 50, 50, 127},
        {20, 20, 20, 20, 20, 51},           {1, 1, 1, 1, 1, 2},
    };
    for (const auto& c : cases) {
        shadow.setSize(c.given);
        shadow.setAngle(c.given);
        shadow.setDistance(c.given);
        shadow.setOpacity(c.given);
        EXPECT_EQ(shadow.size(), c.size);
        EXPECT_EQ(shadow.angle(), c.angle);
        EXPECT_EQ(shadow.distance(), c.distance);
        EXPECT_EQ(shadow.opacity(), c.opacity);
        EXPECT_EQ(shadow.opacity255(), c.opacity255);
    }
}

TEST(Effects, TheBlockIsWrittenOnlyForAnEnabledEffect)
{
    KPPSDLayerEffects effects;
    EXPECT_EQ(block(effects), "");
    const auto fill = std::make_shared<KPPSDSolidFillEffectLayerInformation>();
    effects.setSolidFillEffectLayerInformation(fill);
    EXPECT_EQ(block(effects), "");
    fill->setEnabled(true);
    fill->setColor(Color::deviceRGB(1, 0, 0));
    fill->setBlendMode("too long");
    // Sizes, angles and distances of the missing effects are 0; opacities are 254.
    const std::string shadow = "00 00 00 33 00 00 00 02 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 " + kBlack +
                               kNorm + "00 00 FE " + kBlack;
    EXPECT_EQ(block(effects) + " ",
              "38 42 49 4D 6C 72 46 58 00 00 01 8A 00 00 00 07 "
              "38 42 49 4D 63 6D 6E 53 00 00 00 07 00 00 00 00 01 00 00 "
              "38 42 49 4D 64 73 64 77 " +
                  shadow + "38 42 49 4D 69 73 64 77 " + shadow +
                  "38 42 49 4D 6F 67 6C 77 00 00 00 2A 00 00 00 02 00 00 00 00 00 00 00 00 " + kBlack + kNorm +
                  "00 FE " + kBlack + "38 42 49 4D 69 67 6C 77 00 00 00 2B 00 00 00 02 00 00 00 00 00 00 00 00 " +
                  kBlack + kNorm + "00 FE 00 " + kBlack +
                  "38 42 49 4D 62 65 76 6C 00 00 00 4E 00 00 00 02 00 00 00 00 00 01 00 00 00 00 00 00 " + kNorm +
                  kNorm + kBlack + kBlack + "01 FE FE 00 01 01 " + kBlack + kBlack +
                  "38 42 49 4D 73 6F 66 69 00 00 00 22 00 00 00 02 " + kNorm + kRed + "FE 01 " + kRed);
    fill->setColor(Color::calibratedWhite(1));
    EXPECT_THROW(block(effects), std::invalid_argument);
}

TEST(Effects, EveryValueHasItsField)
{
    const auto values = [](auto effect) {
        effect->setSize(0x11);
        effect->setColor(Color::deviceRGB(1, 0, 0));
        effect->setBlendMode("mul ");
        effect->setEnabled(true);
        effect->setOpacity(50);
        return effect;
    };
    const std::string multiply = "38 42 49 4D 6D 75 6C 20 ";
    KPPSDLayerEffects effects;

    const auto shadow = values(std::make_shared<KPPSDInnerShadowEffectLayerInformation>());
    shadow->setAngle(-30);
    shadow->setDistance(0x1234);
    shadow->setUseGlobalLight(true);
    effects.setInnerShadowEffectLayerInformation(shadow);
    EXPECT_EQ(written([&](ByteBuffer& b) { effects.writeEffectsLayerInnerShadowOn(b); }) + " ",
              "38 42 49 4D 69 73 64 77 00 00 00 33 00 00 00 02 00 11 00 00 00 00 FF FF FF E2 00 00 12 34 00 00 " +
                  kRed + multiply + "01 01 7F " + kRed);

    const auto glow = values(std::make_shared<KPPSDInnerGlowEffectLayerInformation>());
    glow->setSource(0x102);
    effects.setInnerGlowEffectLayerInformation(glow);
    EXPECT_EQ(written([&](ByteBuffer& b) { effects.writeEffectsLayerInnerGlowOn(b); }) + " ",
              "38 42 49 4D 69 67 6C 77 00 00 00 2B 00 00 00 02 00 11 00 00 00 00 00 00 " + kRed + multiply +
                  "01 7F 02 " + kRed);

    const auto bevel = std::make_shared<KPPSDBevelEffectLayerInformation>();
    bevel->setAngle(-30);
    bevel->setSize(0x11);
    bevel->setHighlightBlendMode("mul ");
    bevel->setHighlightColor(Color::deviceRGB(1, 0, 0));
    bevel->setStyle(3);
    bevel->setHighlightOpacity(50);
    bevel->setShadowOpacity(20);
    bevel->setEnabled(true);
    bevel->setUseGlobalLight(false);
    bevel->setDirection(2);
    effects.setBevelEffectLayerInformation(bevel);
    EXPECT_EQ(written([&](ByteBuffer& b) { effects.writeEffectsLayerBevelOn(b); }) + " ",
              "38 42 49 4D 62 65 76 6C 00 00 00 4E 00 00 00 02 FF E2 00 00 00 01 00 00 00 11 00 00 " + multiply +
                  kNorm + kRed + kBlack + "03 7F 33 01 00 02 " + kRed + kBlack);
}
