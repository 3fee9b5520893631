// SPDX-License-Identifier: MIT
#pragma once

#include "psd/fields/append_value.h"
#include "psd/fields/blend_modes.h"

#include <string_view>

namespace wallgrid {

// Pieces that recur in the records of a PSD.

/// The signature "8BIM" and a four-byte key.
inline void appendSignedKey(ByteBuffer& buffer, std::string_view key)
{
    kpAppendUTF8String(buffer, "8BIM", 4);
    kpAppendUTF8String(buffer, key, 4);
}

/// A blend mode with its signature. A key of another length than four bytes would shift every later field, so normal
/// stands in its place.
inline void appendBlendMode(ByteBuffer& buffer, std::string_view key)
{
    appendSignedKey(buffer, key.size() == 4 ? key : blend_mode::kNormal);
}

} // namespace wallgrid
