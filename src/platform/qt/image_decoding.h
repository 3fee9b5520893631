// SPDX-License-Identifier: MIT
#pragma once

#include "platform/error.h"
#include "platform/image.h"

#include <cstdint>
#include <span>

namespace wallgrid {

/// See QtToolkit::decodeImage().
Expected<ImageRef> decodeImage(std::span<const std::uint8_t> bytes);

} // namespace wallgrid
