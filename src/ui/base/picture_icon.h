// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

class QPixmap;

namespace wallgrid {

/// An icon that draws its picture as it is, also in a selected row, which styles would tint. Qt's own icons draw
/// through a cache of pixmaps that never forgets a name. Each picture would leave a little memory behind.
QIcon pictureIcon(const QPixmap& picture);

} // namespace wallgrid
