// SPDX-License-Identifier: MIT
#include "hex.h"
#include "picture.h"
#include "psd/group_layers.h"
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

Rect rect(double x, double y, double width, double height)
{
    return {{x, y}, {width, height}};
}

} // namespace

TEST(Layer, IsCroppedToTheDocument)
{
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    const struct {
        Size document;
        Point offset;
        bool visible;
        Rect crop, inDocument;
    } cases[] = {
        {{100, 50}, {-10, -5}, true, rect(10, 5, 20, 15), rect(0, 0, 20, 15)},
        {{100, 50}, {90, 45}, true, rect(0, 0, 10, 5), rect(90, 45, 10, 5)},
        {{20, 10}, {-5, -5}, true, rect(5, 5, 20, 10), rect(0, 0, 20, 10)},
        {{100, 50}, {-10.5, 2.5}, true, rect(10, 0, 19.5, 20), rect(0, 2.5, 19.5, 20)},
        {{100, 50}, {0, 1e300}, false, rect(0, 0, 30, 50 - 1e300), rect(0, 50, 30, 50 - 1e300)},
        {{100, 50}, {kInfinite, 0}, false, rect(0, 0, 0, 0), rect(100, 0, 0, 0)},
    };
    for (const auto& c : cases) {
        const auto layer = makeLayer(c.document, filled(30, 20, {255, 1, 2, 3}), c.offset);
        EXPECT_EQ(layer->hasValidSize(), c.visible) << layer->description();
        EXPECT_EQ(layer->imageCropRegion(), c.crop) << layer->description();
        EXPECT_EQ(layer->imageInDocumentRegion(), c.inDocument) << layer->description();
        // Whatever is visible, the channels cover the document.
        EXPECT_TRUE(layer->preparePixels());
        EXPECT_EQ(layer->layerChannels().size(), 4U);
    }
    EXPECT_FALSE(makeLayer({100, 50}, nullptr, {})->hasValidSize());
    EXPECT_EQ(makeLayer({100, 50}, filled(30, 20, {}), {-10, 2})->description(),
              "(super: KPPSDLayer): Layer named 'abc' (opacity: 1.000000). Image Crop Region: (10.000000, 0.000000, "
              "20.000000, 20.000000). Image In Document Region (0.000000, 2.000000, 20.000000, 20.000000)");
}

TEST(Layer, PixelsAreTheVisibleOnes)
{
    const BitmapRef image = test::picture({"RGBW", "KRGB", "WKRG"});
    const auto layer = makeLayer({100, 2}, image, {-1, -1});
    const BitmapRef pixels = layer->visibleImageData();
    EXPECT_TRUE(test::samePicture(pixels, test::picture({"RGB", "KRG"})));
    layer->setImage(image);
    EXPECT_EQ(layer->visibleImageData(), pixels);
    layer->setImage(test::picture({"RRR", "GGG"}));
    EXPECT_TRUE(test::samePicture(layer->visibleImageData(), test::picture({"GG"})));
    layer->setVisibleImageData(test::picture({"K"}));
    EXPECT_FALSE(layer->preparePixels()); // not the size of the crop region
    EXPECT_THROW(layer->layerChannels(), std::runtime_error);
    layer->setDocumentSize({1, 2});
    EXPECT_TRUE(test::samePicture(layer->visibleImageData(), test::picture({"G"})));
}

TEST(Layer, BrokenSizesAreScaledToWholePixels)
{
    const auto plain = makeLayer({100, 100}, filled(40, 30, {255, 9, 8, 7}), {-0.5, -9.5});
    EXPECT_TRUE(test::samePicture(plain->visibleImageData(), filled(39, 20, {255, 9, 8, 7})));
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
        EXPECT_EQ(layer->visibleImageData()->at(0, 1), (Pixel{0, 255, 255, 255}));
        EXPECT_EQ(layer->visibleImageData()->at(0, 2), (Pixel{128, 254, 127, 0}));
    }
    EXPECT_EQ(image->at(0, 0), (Pixel{128, 128, 64, 0})); // the caller's pixels stay
    layer->setDocumentSize({1, 3});
    EXPECT_EQ(layer->visibleImageData()->at(0, 0), image->at(0, 0));
}

TEST(Layer, OpacityIsRoundedUpAndCut)
{
    const auto layer = KPPSDLayer::init();
    for (const auto& [opacity, byte] : std::vector<std::pair<float, int>>{
             {1, 255}, {0.5, 128}, {0, 0}, {0.1F, 26}, {0.3F, 77}, {1.5, 127}, {-0.5, 129}, {NAN, 0}, {INFINITY, 0}}) {
        layer->setOpacity(opacity);
        EXPECT_EQ(int(layer->opacity255()), byte) << opacity;
    }
    for (const std::int64_t count : {-1, 0, 2, 5})
        EXPECT_THROW(layer->setNumberOfChannels(count), std::invalid_argument);
}

TEST(Layer, LegacyNamesHold255UnitsAtMostAndNeverHalfAPair)
{
    const auto layer = KPPSDLayer::init();
    layer->setName(makeString(std::u16string(254, u'x') + u"😀"));
    const std::string legacy = written([&](ByteBuffer& b) { layer->writeNameOn(b, 4); });
    EXPECT_EQ(legacy.substr(0, 8), "FE 78 78");
    EXPECT_EQ(legacy.substr(3 * 253), "78 78 20");
}

TEST(GroupLayers, EachKindIsMadeByItsOwnInitialisers)
{
    for (const std::shared_ptr<KPPSDGroupLayer>& made :
         {KPPSDGroupLayer::initWithName(nullptr), std::shared_ptr<KPPSDGroupLayer>(KPPSDGroupOpeningLayer::init()),
          std::shared_ptr<KPPSDGroupLayer>(KPPSDGroupClosingLayer::init())})
        EXPECT_EQ(std::pair(made->opacity(), made->isOpened()), std::pair(1.0F, false));
    const auto opened = KPPSDGroupOpeningLayer::initWithName(nullptr, 0.5F, true);
    EXPECT_EQ(std::pair(opened->opacity(), opened->isOpened()), std::pair(0.5F, true));
}

TEST(GroupLayers, ClosingMarkerTakesOverWhatItsOpeningMarkerSaysEachTimeItIsWritten)
{
    const auto opening = KPPSDGroupOpeningLayer::initWithName(makeString(u"abc"));
    const auto closing = KPPSDGroupClosingLayer::init();
    closing->setGroupOpeningLayer(opening);
    const std::string bounding = hex(opening->extraLayerInformation());
    for (const bool opened : {false, true}) {
        opening->setIsOpened(opened);
        opening->setOpacity(opened ? 0.5F : 1.0F);
        written([&](ByteBuffer& b) { closing->writeLayerInformationOn(b); });
        EXPECT_EQ(closing->opacity255(), opened ? 0x80 : 0xFF);
        EXPECT_EQ(hex(closing->extraLayerInformation()),
                  "00 00 00 00 00 00 00 00 03 61 62 63 38 42 49 4D 6C 73 63 74 00 00 00 0C 00 00 00 " +
                      std::string(opened ? "01" : "02") +
                      " 38 42 49 4D 70 61 73 73 38 42 49 4D 6C 75 6E 69 00 00 00 0A 00 00 00 03 00 61 00 62 00 63");
    }
    const auto fill = std::make_shared<KPPSDSolidFillEffectLayerInformation>();
    fill->setEnabled(true);
    opening->setSolidFillEffectLayerInformation(fill);
    EXPECT_EQ(hex(opening->extraLayerInformation()), bounding) << "the opening marker shows no effects";
}
