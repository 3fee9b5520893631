// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"
#include "base/error.h"
#include "base/progress.h"
#include "graphics/bitmap.h"

namespace wallgrid {

/// The bitmap as a PNG file (W3C, "Portable Network Graphics", third edition): RGBA with straight
/// alpha, 8 bits a sample, no colour profile, so that pixel values pass unchanged. The same bitmap gives the same
/// bytes. Beside the file it takes memory for a row.
Expected<Bytes> encodePng(const Bitmap& bitmap, const Report& report = {});

} // namespace wallgrid
