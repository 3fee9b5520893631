// SPDX-License-Identifier: MIT
#include "items/gx_still.h"

#include <gtest/gtest.h>

using namespace wallgrid;

namespace {

ImageRef makeImage(Size points, int width, int height)
{
    auto image = std::make_shared<Image>(points);
    image->addRepresentation(Bitmap::create(width, height));
    return image;
}

} // namespace

TEST(GXStill, TakesTheImagesSizeInWholePoints)
{
    const StillRef still = GXStill::initWithimage(makeImage({400.9, 300.2}, 800, 600));
    EXPECT_EQ(std::pair(still->panelWidth(), still->panelHeight()), std::pair(400, 300));
    EXPECT_EQ(std::pair(still->screenSizeWidth(), still->screenSizeHeight()), std::pair(400, 300));
    EXPECT_TRUE(still->visible());
    EXPECT_EQ(still->boarderWidth(), 1);
    EXPECT_EQ(still->thumbnail()->size(), (Size{400.9, 300.2})) << "not rendered";

    const StillRef empty = GXStill::initWithimage(nullptr);
    EXPECT_EQ(empty->panelWidth(), 0);
    empty->setPanelWidth(5);
    empty->drawInRect();
    EXPECT_EQ(empty->screenSizeWidth(), 5);
    EXPECT_EQ(empty->thumbnail(), nullptr);
}

TEST(GXStill, RenderResizesTheImageForEveryHolder)
{
    const StillRef still = GXStill::initWithimage(makeImage({800, 600}, 800, 600));
    still->setImageURL(std::make_shared<const Url>(Url::fromFilePath("/a b.png")));
    const auto copy = std::dynamic_pointer_cast<GXStill>(still->copy());
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->ImageURL(), still->ImageURL());
    EXPECT_EQ(copy->thumbnail(), still->thumbnail());
    EXPECT_EQ(textOf(copy->label2()), u"Height");
    EXPECT_TRUE(copy->labelGroupRightHidden() && copy->label4Hidden());

    still->setPanelWidth(1600);
    EXPECT_EQ(still->screenSizeWidth(), 800);
    still->drawInRect();
    EXPECT_EQ(still->screenSizeWidth(), 1600);
    EXPECT_EQ(copy->thumbnail()->size(), (Size{1600, 600}));
    EXPECT_EQ(copy->thumbnail()->firstRepresentation()->width(), 800);
    EXPECT_EQ(copy->screenSizeWidth(), 800);
}
