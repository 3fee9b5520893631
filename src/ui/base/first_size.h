// SPDX-License-Identifier: MIT
#pragma once

#include <QScreen>
#include <QWidget>

namespace wallgrid {

/// The size that a window opens with: the wanted one, or what its display has room for. A desktop adds a frame around a
/// window, about this large; nobody knows before the window is shown.
inline QSize firstSize(const QWidget& window, QSize wanted)
{
    constexpr QSize kFrame(16, 48);
    return wanted.boundedTo(window.screen()->availableSize() - kFrame);
}

} // namespace wallgrid
