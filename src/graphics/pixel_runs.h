// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/color.h"

#include <cstddef>

namespace wallgrid {

/// From this many bytes on a bitmap does not stay in the processor's cache; writing past the cache then takes less than
/// half the time (22 ms instead of 53 for 512 MB).
inline constexpr std::size_t kBeyondCache = std::size_t(64) << 20;

/// Replaces a run.
void fillPixels(Pixel* destination, Pixel color, std::size_t count);
/// Copies a run; the two do not overlap.
void copyPixels(Pixel* destination, const Pixel* source, std::size_t count);
/// The same past the cache, for the rows of a bitmap of kBeyondCache or more. Call finishStreaming() after the last.
void streamPixels(Pixel* destination, const Pixel* source, std::size_t count);
/// Makes what was written past the cache visible in order, as all other writes are.
void finishStreaming();

} // namespace wallgrid
