// SPDX-License-Identifier: MIT
#include "graphics/color.h"

#include <gtest/gtest.h>
#include <limits>

using namespace wallgrid;

TEST(Color, IsClampedPremultipliedAndRoundedWhenPainted)
{
    EXPECT_EQ(Color::greenColor()->pixel(), (Pixel{255, 0, 255, 0}));
    EXPECT_EQ(Color::deviceRGB(1, 0.5, 0, 0.5)->pixel(), (Pixel{128, 128, 64, 0}));
    EXPECT_EQ(Color::calibratedWhite(1, 0)->pixel(), (Pixel{0, 0, 0, 0}));
    EXPECT_EQ(Color(Color::Space::DeviceCMYK, {0, 1, 0.5, 0.2}, 1).pixel(), (Pixel{255, 204, 0, 102}));
    const ColorRef wide = Color::calibratedRGB(1.5, -0.25, std::numeric_limits<double>::quiet_NaN(), 2);
    EXPECT_EQ(wide->pixel(), (Pixel{255, 255, 0, 0}));
    EXPECT_EQ(wide->components()[1], -0.25);
}
