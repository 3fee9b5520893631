// SPDX-License-Identifier: MIT
#pragma once

#include "base/error.h"
#include "graphics/image.h"

#include <cstdint>
#include <span>

namespace wallgrid {

/// See QtToolkit::decodeImage().
Expected<ImageRef> decodeImage(std::span<const std::uint8_t> bytes);

} // namespace wallgrid
