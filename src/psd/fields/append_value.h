// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"
#include "graphics/color.h"

#include <cstdint>
#include <string_view>

namespace wallgrid {

// The fields of a PSD file, added at the end of a buffer (Adobe, "Photoshop File Formats", 2019).

/// The low `length` bytes of the value, big-endian. Throws std::invalid_argument for a length outside 0 to 8.
void kpAppendValue(ByteBuffer& buffer, std::int64_t value, std::int32_t length);

/// The text's bytes, without terminator or padding. `length` is what the reader of the call expects it to be.
void kpAppendUTF8String(ByteBuffer& buffer, std::string_view text, std::int32_t length);

/// The 10-byte colour record: colour space 0 (RGB), red, green and blue in 16 bits, 0; alpha is left out. Throws
/// std::invalid_argument for no colour and for one that is not RGB.
void kpAppendCGColorRef(ByteBuffer& buffer, const ColorRef& color, std::int32_t length);

} // namespace wallgrid
