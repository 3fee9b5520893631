// SPDX-License-Identifier: MIT
#include "ui/preview/display_fit.h"

#include <gtest/gtest.h>

using namespace wallgrid;

TEST(DisplayFit, saysWhatTheDisplayDoesNotShow)
{
    const std::tuple<QSize, double, QSize, const char*> cases[] = {
        {{3840, 2160}, 1, {1920, 1080}, "Output Preview on HDMI-1, 3840 × 2160, pixel for pixel"},
        {{1280, 1080}, 1, {1920, 1080}, "HDMI-1, 1280 × 1080, is smaller than the output and cuts off 640 columns."},
        {{1920, 720}, 1, {1920, 1080}, "HDMI-1, 1920 × 720, is smaller than the output and cuts off 360 rows."},
        {{1280, 720},
         2,
         {1920, 1080},
         "HDMI-1, 1280 × 720, is smaller than the output and cuts off 640 columns and 360 rows. The desktop scales "
         "HDMI-1 to 200 %: set it to 100 % for exact pixels."},
        {{1920, 1080}, 1, {}, "HDMI-1: no output"},
    };
    for (const auto& [pixels, scale, output, expected] : cases)
        EXPECT_EQ(displayFit({"HDMI-1", pixels, scale}, output).toStdString(), expected);
}
