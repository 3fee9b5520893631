// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

class QPixmap;

namespace wallgrid {

/// An icon that draws its picture as it is, also in a selected row, which styles would tint. What Qt's own icons draw
/// goes through its cache of pixmaps, which never forgets the name of any that it has held: a little more for each
/// picture, for as long as the program runs.
QIcon pictureIcon(const QPixmap& picture);

} // namespace wallgrid
