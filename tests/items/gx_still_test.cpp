// SPDX-License-Identifier: MIT
#include "items/gx_still.h"

#include <gtest/gtest.h>

using namespace wallgrid;

TEST(GXStill, TakesTheImagesSizeInWholePointsAndResizesItForEveryHolder)
{
    auto image = std::make_shared<Image>(Size{400.9, 300.2});
    image->addRepresentation(Bitmap::create(800, 600));
    const StillRef still = GXStill::initWithimage(image);
    still->setImageURL(std::make_shared<const Url>(Url::fromFilePath("/a b.png")));
    EXPECT_EQ(std::pair(still->panelWidth(), still->panelHeight()), std::pair(400, 300));
    EXPECT_EQ(std::pair(still->screenSizeWidth(), still->screenSizeHeight()), std::pair(400, 300));
    EXPECT_EQ(image->size(), (Size{400.9, 300.2})) << "not rendered";

    const auto copy = std::dynamic_pointer_cast<GXStill>(still->copy());
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->ImageURL(), still->ImageURL());
    still->setPanelWidth(1600);
    EXPECT_EQ(still->screenSizeWidth(), 400);
    still->drawInRect();
    EXPECT_EQ(still->screenSizeWidth(), 1600);
    EXPECT_EQ(copy->thumbnail()->size(), (Size{1600, 300}));
    EXPECT_EQ(copy->screenSizeWidth(), 400);

    const StillRef empty = GXStill::initWithimage(nullptr);
    empty->setPanelWidth(5);
    empty->drawInRect();
    EXPECT_EQ(std::pair(empty->screenSizeWidth(), empty->thumbnail()), std::pair(5, ImageRef()));
}
