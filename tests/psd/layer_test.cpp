// SPDX-License-Identifier: MIT
#include "hex.h"
#include "picture.h"
#include "psd/layers/kp_psd_layer.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>
#include <vector>

using namespace wallgrid;
using test::hex;
using test::written;

namespace {

std::shared_ptr<KPPSDLayer> makeLayer(Size document, BitmapRef image, Point offset)
{
    auto layer = KPPSDLayer::init();
    layer->setDocumentSize(document);
    layer->setImage(std::move(image));
    layer->setName(makeString(u"abc"));
    layer->setOffset(offset);
    return layer;
}

BitmapRef filled(int width, int height, Pixel pixel)
{
    const BitmapRef bitmap = Bitmap::create(width, height);
    for (int y = 0; y < height; ++y)
        std::ranges::fill(bitmap->row(y), pixel);
    return bitmap;
}

} // namespace

TEST(Layer, BrokenSizesAreScaledToWholePixels)
{
    const auto sliver = makeLayer({100, 2}, filled(4, 4, {255, 9, 8, 7}), {99.5, 0});
    EXPECT_TRUE(sliver->preparePixels());
    EXPECT_EQ(hex(sliver->layerChannels()[0]),
              "00 01 00 04 00 04 9E 00 00 00 9E 00 00 00"); // 99 to the left, one right
    const auto high = makeLayer({1, 9}, test::picture({"K", "W", "K", "W"}), {0, -1.5});
    EXPECT_EQ(high->visibleImageData()->at(0, 1), (Pixel{255, 255, 255, 255})) << "the hidden row is taken off the top";
}

TEST(Layer, PixelsAreCorrectedOnce)
{
    const BitmapRef image = Bitmap::create(1, 3);
    image->row(0)[0] = {128, 128, 64, 0};
    image->row(2)[0] = {255, 200, 100, 50};
    const auto layer = makeLayer({1, 3}, image, {});
    layer->setShouldUnpremultiplyLayerData(true);
    ASSERT_TRUE(layer->preparePixels());
    layer->setShouldFlipLayerData(true); // later, and made as well
    for (int time = 0; time < 2; ++time) {
        ASSERT_TRUE(layer->preparePixels());
        EXPECT_EQ(layer->visibleImageData()->at(0, 0), (Pixel{255, 200, 100, 50}));
        EXPECT_EQ(layer->visibleImageData()->at(0, 2), (Pixel{128, 254, 127, 0}));
    }
    EXPECT_EQ(image->at(0, 0), (Pixel{128, 128, 64, 0})); // the caller's pixels stay
    layer->setDocumentSize({1, 3});
    EXPECT_EQ(layer->visibleImageData()->at(0, 0), image->at(0, 0));
    layer->setImage(test::picture({"R", "R", "R"}));
    EXPECT_EQ(layer->visibleImageData()->at(0, 0), (Pixel{255, 255, 0, 0}));
}

TEST(Layer, OpacityIsRoundedUpAndCut)
{
    const auto layer = KPPSDLayer::init();
    for (const auto& [opacity, byte] : std::vector<std::pair<float, int>>{
             {1, 255}, {0.5, 128}, {0, 0}, {0.1F, 26}, {0.3F, 77}, {1.5, 127}, {-0.5, 129}, {NAN, 0}, {INFINITY, 0}}) {
        layer->setOpacity(opacity);
        EXPECT_EQ(int(layer->opacity255()), byte) << opacity;
    }
}

TEST(Layer, EffectsStayWithinTheirBounds)
{
    KPPSDDropShadowEffectLayerInformation shadow;
    shadow.setDistance(40'000);
    EXPECT_EQ(shadow.distance(), 30'000);
}

TEST(Layer, LegacyNamesHold255UnitsAtMostAndNeverHalfAPair)
{
    const auto layer = KPPSDLayer::init();
    layer->setName(makeString(std::u16string(254, u'x') + u"😀"));
    const std::string legacy = written([&](ByteBuffer& b) { layer->writeNameOn(b, 4); });
    EXPECT_EQ(legacy.substr(0, 8), "FE 78 78");
    EXPECT_EQ(legacy.substr(3 * 253), "78 78 20");
}
