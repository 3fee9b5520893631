// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace wallgrid {

/// A whole ICC profile by the name of its file in resources/icc, which is built into the program: "GenericRGB", "sRGB"
/// or "AdobeRGB1998". Each has an even length. Empty when there is none of that name.
std::span<const std::uint8_t> iccProfile(std::string_view name);

} // namespace wallgrid
