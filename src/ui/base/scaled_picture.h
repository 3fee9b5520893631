// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/bitmap.h"
#include "graphics/geometry.h"

#include <QImage>
#include <QRect>
#include <QSize>

class QPainter;

namespace wallgrid {

/// How a target pixel that stands for several pixels of the bitmap gets its alpha.
enum class Coverage {
    Mean,      ///< as seen from afar
    Strongest, ///< a thin line on nothing stays a line, however small the picture: for icons
};

/// The bitmap at a size in pixels, made from a bounded number of samples for each target pixel: its cost is the
/// target's, not the bitmap's, and nothing of the bitmap is converted or copied.
///
/// Where the bitmap is reduced there are 4 × 4 samples, or 8 × 8 where it is by more than 16; elsewhere there is one.
/// They are spread so that each lies in a column and in a row of its own: up to a reduction by 64 every column and
/// every row behind a target pixel counts, so a line one pixel wide never falls between the samples.
///
/// This is not the scaler of documents, graphics/resample.h. That one is exact: it reads all pixels behind a part and
/// blends where it enlarges. A view must not cost what the bitmap costs, and has to show each pixel as a square.
QImage scaledPicture(const Bitmap& bitmap, QSize target, Coverage coverage = Coverage::Mean);

/// A part of that picture, which must lie within it; the rest costs nothing.
QImage scaledPart(const Bitmap& bitmap, QSize target, const QRect& part, Coverage coverage = Coverage::Mean);

/// A size scaled down in proportion where it does not fit into the room, never scaled up, at least one by one. Empty
/// when either is.
QSize fittedSize(Size size, QSize room);

/// What lies behind transparent parts of a picture.
void paintCheckerboard(QPainter& painter, const QRect& area, int squareSize);

} // namespace wallgrid
