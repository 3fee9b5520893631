// SPDX-License-Identifier: MIT
#include <QGuiApplication>
#include <gtest/gtest.h>

/// Fonts and image plugins need an application; it needs no display.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
