// SPDX-License-Identifier: MIT
#include "ui/window/command_icons.h"

#include <QPainter>
#include <vector>

namespace wallgrid {

namespace {

constexpr int kSide = 16;

/// Filled rectangles in a square of kSide points; those of a vertical picture are mirrored about the diagonal.
QIcon iconOf(const std::vector<QRect>& blocks, Direction direction, const QPalette& palette, qreal ratio)
{
    QIcon icon;
    for (const auto group : {QPalette::Active, QPalette::Disabled}) {
        QPixmap pixmap(QSize(kSide, kSide) * ratio);
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        for (const QRect& block : blocks) {
            const QRect shown =
                direction == Direction::Across ? block : QRect(block.y(), block.x(), block.height(), block.width());
            painter.fillRect(shown, palette.color(group, QPalette::ButtonText));
        }
        painter.end();
        icon.addPixmap(pixmap, group == QPalette::Active ? QIcon::Normal : QIcon::Disabled);
    }
    return icon;
}

} // namespace

QIcon alignIcon(Direction direction, Edge edge, const QPalette& palette, qreal ratio)
{
    switch (edge) {
    case Edge::Near:
        return iconOf({{1, 1, 1, 14}, {3, 3, 11, 4}, {3, 9, 6, 4}}, direction, palette, ratio);
    case Edge::Middle:
        return iconOf({{7, 1, 1, 14}, {2, 3, 11, 4}, {5, 9, 5, 4}}, direction, palette, ratio);
    case Edge::Far:
        return iconOf({{14, 1, 1, 14}, {2, 3, 11, 4}, {7, 9, 6, 4}}, direction, palette, ratio);
    }
    return {};
}

QIcon distributeIcon(Direction direction, const QPalette& palette, qreal ratio)
{
    return iconOf({{1, 1, 1, 14}, {14, 1, 1, 14}, {4, 4, 3, 8}, {9, 4, 3, 8}}, direction, palette, ratio);
}

QIcon rowsIcon(const QPalette& palette, qreal ratio)
{
    return iconOf({{1, 2, 4, 5}, {6, 2, 4, 5}, {11, 2, 4, 5}, {1, 9, 4, 5}, {6, 9, 4, 5}}, Direction::Across, palette,
                  ratio);
}

QIcon windowIcon(const QPalette& palette, qreal ratio)
{
    return iconOf({{1, 2, 14, 3}, {1, 5, 1, 8}, {14, 5, 1, 8}, {1, 13, 14, 1}}, Direction::Across, palette, ratio);
}

QIcon displayIcon(const QPalette& palette, qreal ratio)
{
    return iconOf({{0, 1, 16, 10}, {7, 11, 2, 2}, {4, 13, 8, 1}}, Direction::Across, palette, ratio);
}

} // namespace wallgrid
