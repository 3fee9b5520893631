// SPDX-License-Identifier: MIT
#include "ui/preview/viewport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace wallgrid;

namespace {

Viewport viewportOf(QSize raster, QSize view, int margin = 0)
{
    Viewport viewport;
    viewport.setRaster(raster);
    viewport.setView(view, margin);
    return viewport;
}

bool isNear(QPointF a, QPointF b, double distance)
{
    return std::abs(a.x() - b.x()) <= distance && std::abs(a.y() - b.y()) <= distance;
}

} // namespace

TEST(Viewport, fitsTheRasterIntoTheMiddle)
{
    const std::tuple<QSize, QSize, int, QRect> cases[]{
        {{40, 20}, {100, 100}, 0, {30, 40, 40, 20}}, // never enlarged
        {{1920, 1080}, {660, 400}, 10, {10, 20, 640, 360}}, {{8704, 192}, {640, 360}, 0, {0, 173, 640, 14}},
        {{2'000'000, 1}, {640, 360}, 0, {0, 179, 640, 1}},  {{16, 16}, {4, 4}, 10, {1, 1, 1, 1}}, // no room at all
        {{0, 0}, {640, 360}, 0, {320, 180, 0, 0}},
    };
    for (const auto& [raster, view, margin, picture] : cases)
        EXPECT_EQ(viewportOf(raster, view, margin).picture(), picture) << raster.width();
}

TEST(Viewport, keepsThePointThatItZoomsAbout)
{
    Viewport viewport = viewportOf({7680, 4320}, {1200, 800}, 12);
    viewport.zoomTo(1. / 6, viewport.center());
    const QRect start = viewport.picture();
    for (const QPointF about : {QPointF(1000, 300), QPointF(200, 600), QPointF(600.5, 400.5)}) {
        const auto stays = [&](void (Viewport::*zoom)(QPointF)) {
            const QPointF kept = viewport.toRaster(about);
            const double before = viewport.scale();
            (viewport.*zoom)(about);
            EXPECT_TRUE(isNear(viewport.toRaster(about), kept, 1.01 / std::min(before, viewport.scale()))) << before;
            return viewport.scale() / before;
        };
        while (viewport.scale() < 32) {
            ASSERT_GT(stays(&Viewport::zoomIn), 1);
            if (viewport.scale() >= 1) {
                ASSERT_EQ(viewport.picture().size(), QSize(7680, 4320) * viewport.scale());
            }
        }
        while (viewport.scale() > 0.167)
            ASSERT_LT(stays(&Viewport::zoomOut), 1);
        EXPECT_EQ(viewport.picture(), start);
    }
    viewport.zoomTo(1e9, {0, 0});
    EXPECT_EQ(viewport.scale(), 32);
    viewport.zoomTo(0, {0, 0});
    EXPECT_EQ(viewport.scale(), 0.01);
}
