// SPDX-License-Identifier: MIT
#pragma once

#include "platform/bitmap.h"
#include "platform/error.h"
#include "platform/progress.h"

#include <cstdint>
#include <vector>

namespace wallgrid {

/// The bitmap as a PNG file (W3C, "Portable Network Graphics", third edition): RGBA with straight
/// alpha, 8 bits a sample, no colour profile, so that pixel values pass unchanged. The same bitmap gives the same
/// bytes. Takes as much memory again as the bitmap has while it works; fails when there is none.
/// Compression is one step that cannot stop: a report that ends it is followed afterwards.
Expected<std::vector<std::uint8_t>> encodePng(const Bitmap& bitmap, const Report& report = {});

} // namespace wallgrid
