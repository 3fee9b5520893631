// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/geometry.h"

#include <cstdint>
#include <optional>
#include <span>

namespace wallgrid {

/// The resolution that a JPEG file records in its Exif segment, in dots per metre along its stored rows and columns.
/// None when the file is no JPEG, or the segment is missing, broken or without a unit. Reads no byte outside the file
/// and each byte a few times at most, whatever the file says.
///
/// Markers: ITU-T T.81, table B.1. The segment: CIPA DC-008-2012, "Exchangeable image file format for digital still
/// cameras: Exif Version 2.3", 4.5.4 and 4.6.4. Directories and the tags 282, 283 and 296: Adobe, "TIFF Revision 6.0",
/// sections 2 and 8.
std::optional<Size> exifResolution(std::span<const std::uint8_t> file);

} // namespace wallgrid
