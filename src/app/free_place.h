// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/geometry.h"

#include <optional>
#include <vector>

namespace wallgrid {

/// The first place, read like text, where a rectangle of this size lies in the output and meets none of those that are
/// taken: at an edge of the output or of one of them. Nothing when there is none.
std::optional<PixelPoint> freePlace(const PixelRect& size, std::vector<PixelRect> taken, const PixelRect& output);

} // namespace wallgrid
