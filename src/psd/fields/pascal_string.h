// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace wallgrid {

// The bytes of length-prefixed names, padded to a multiple of a number; the length byte is the caller's. Lengths count
// UTF-16 units while the bytes are UTF-8. A text outside ASCII gives more bytes than its padded length; callers that
// copy so many take the first ones. All throw std::invalid_argument for a padding of 0 or less.

/// The text's length, rounded up to a multiple of the padding.
std::int32_t kpPascalStringLengthPaddedTo(std::u16string_view text, std::int32_t padding);

/// The text's UTF-8 bytes, padded at its end to that length with the padding text again and again.
std::string kpPascalStringPaddedTo(std::u16string_view text, std::int32_t padding, std::u16string_view paddingString);
/// The same, padded with U+0000.
std::string kpPascalStringPaddedTo(std::u16string_view text, std::int32_t padding);

} // namespace wallgrid
